// Commands that let the simulator run: frames, simulated time, menu picks, commands a pilot runs and
// writes of other plug-ins to datarefs.
#include <charconv>
#include <cstdio>

#include "dravsim/CommandArgs.h"
#include "dravsim/CommandHandlers.h"
#include "dravsim/DatarefSyntax.h"

namespace dravsim {
namespace {

// Far more than any scenario needs (about 46 hours at 60 frames a second): a few digits too many
// are better an error than a hang.
constexpr long long kMaxFrames = 10'000'000;
constexpr double kMaxSeconds = kMaxFrames / 60.0;

void NoteClock(ScenarioContext& ctx) {
  char seconds[32];
  const std::to_chars_result result = std::to_chars(seconds, seconds + sizeof seconds, ctx.host.ElapsedSeconds(),
                                                    std::chars_format::fixed, 3);
  ctx.Note("frame " + std::to_string(ctx.host.FrameNumber()) + ", " +
           std::string(seconds, result.ec == std::errc() ? result.ptr : seconds) + " s");
  ctx.Note(std::to_string(ctx.host.WindowCount()) + " window(s)");
}

}  // namespace

void FrameCommand(ScenarioContext& ctx, const Invocation& call) {
  std::optional<long long> frames = 1;
  if (!call.args.empty() && !(frames = IntegerArg(ctx, call, 0, 0, kMaxFrames))) return;
  ctx.host.RunFrames(static_cast<int>(*frames));
  NoteClock(ctx);
}

void RunCommand(ScenarioContext& ctx, const Invocation& call) {
  const auto seconds = RealArg(ctx, call, 0);
  if (!seconds) return;
  if (!(*seconds >= 0.0 && *seconds <= kMaxSeconds)) {
    CommandError(ctx, call, "the time must be from 0 to " + std::to_string(kMaxSeconds) + " s");
    return;
  }
  ctx.host.RunSeconds(*seconds);
  NoteClock(ctx);
}

// The block's lines run COUNT times over, as if written out: the long runs of the same input a fault
// scenario needs stay readable. A failure inside points at the `repeat` line.
void RepeatCommand(ScenarioContext& ctx, const Invocation& call) {
  constexpr long long kMaxRepeats = 100'000;
  const auto count = IntegerArg(ctx, call, 0, 0, kMaxRepeats);
  if (!count) return;
  for (long long round = 0; round < *count && !ctx.Skipped(); ++round) {
    for (const std::string& line : call.block) ctx.runNestedLine(line);
  }
}

void MenuCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& item = call.args[0].text;
  if (ctx.host.PickMenuItem(item)) return;
  std::vector<std::string> items = ctx.host.PluginMenuItems();
  CommandError(ctx, call, "no menu item " + Quoted(item) + " (the plug-in's items: " +
                              QuotedList(items) + ")");
}

// Without a phase the command is pressed and let go, as a tap on a bound key.
void RunSimCommandCommand(ScenarioContext& ctx, const Invocation& call) {
  constexpr int kBegin = 0;  // XPLMCommandPhase: begin 0, end 2
  constexpr int kEnd = 2;
  const std::string& name = call.args[0].text;
  bool begin = true;
  bool end = true;
  if (call.args.size() > 1) {
    begin = IsKeyword(call.args[1], "begin");
    end = IsKeyword(call.args[1], "end");
    if (!begin && !end) {
      UsageError(ctx, call);
      return;
    }
  }
  const bool known = begin ? ctx.host.RunCommandForPilot(name, kBegin) : ctx.host.RunCommandForPilot(name, kEnd);
  if (!known) {
    CommandError(ctx, call, "the simulator knows no command " + Quoted(name));
    return;
  }
  if (begin && end) ctx.host.RunCommandForPilot(name, kEnd);
}

void WriteDatarefCommand(ScenarioContext& ctx, const Invocation& call) {
  std::string error;
  const auto target = ParseDatarefTarget(call.args[0].text, error);
  if (!target) {
    CommandError(ctx, call, error);
    return;
  }
  if (target->IsRange() || !IsKeyword(call.args[1], "=")) {
    UsageError(ctx, call);
    return;
  }
  const auto value = RealArg(ctx, call, 2);
  if (!value) return;
  if (!ctx.host.HasDataref(target->path)) {
    CommandError(ctx, call, "unknown dataref " + target->path);
  } else if (!ctx.host.WriteDatarefAsOtherPlugin(target->path, target->first, *value)) {
    CommandError(ctx, call, "cannot write " + DescribeTarget(*target) +
                                " (read-only, or the index is out of range)");
  }
}

}  // namespace dravsim
