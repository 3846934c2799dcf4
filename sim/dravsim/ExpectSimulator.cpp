// Checks of the simulator's state: datarefs, the event log, the plug-in's windows and what the screen
// shows.
#include <XPLMGraphics.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "dravsim/CommandArgs.h"
#include "dravsim/CommandHandlers.h"
#include "dravsim/DatarefSyntax.h"

namespace dravsim {
namespace {

constexpr double kTolerance = 1e-4;

// The elements a check reads: the one or the range given, every element of an array, or the
// scalar (first = last = -1).
DatarefTarget ElementsToCheck(const sim::SimHost& host, const DatarefTarget& target) {
  if (target.HasIndex()) return target;
  const auto decl = host.DescribeDataref(target.path);
  const bool isArray = decl && (decl->type == sim::DatarefType::IntArray ||
                                decl->type == sim::DatarefType::FloatArray);
  DatarefTarget elements = target;
  if (isArray && decl->length > 0) {
    elements.first = 0;
    elements.last = decl->length - 1;
  }
  return elements;
}

// Empty when every element holds the value; else what the first differing element holds. A range
// past the end stops at the first missing element, however long it was written.
std::optional<std::string> FindMismatch(const sim::SimHost& host, const DatarefTarget& target,
                                        double expected) {
  const DatarefTarget elements = ElementsToCheck(host, target);
  const bool nameElements = elements.IsRange() || target.HasIndex();
  for (long long index = elements.first; index <= elements.last; ++index) {
    const std::string element = target.path + "[" + std::to_string(index) + "]";
    const auto value = host.GetDatarefValue(target.path, static_cast<int>(index));
    if (!value) return "no element " + element;
    // Written so that a NaN never passes.
    if (!(std::fabs(*value - expected) <= kTolerance)) {
      const std::string text = sim::FormatEventNumber(*value, false);
      return nameElements ? element + " = " + text : text;
    }
  }
  return std::nullopt;
}

std::string DescribeEvents(const std::vector<std::string>& events) {
  return events.empty() ? "no events" : QuotedList(events);
}

}  // namespace

void ExpectDatarefCommand(ScenarioContext& ctx, const Invocation& call) {
  std::string error;
  const auto target = ParseDatarefTarget(call.args[0].text, error);
  if (!target) {
    CommandError(ctx, call, error);
    return;
  }
  const bool absentForm = call.args.size() == 2 && IsKeyword(call.args[1], "absent");
  const bool valueForm = call.args.size() == 3 && IsKeyword(call.args[1], "=");
  if ((!absentForm && !valueForm) || (absentForm && target->HasIndex())) {
    UsageError(ctx, call);
    return;
  }
  if (absentForm) {
    if (!ctx.host.HasDataref(target->path)) {
      ctx.Pass();
    } else {
      ctx.Fail("dataref " + target->path + " absent", "it exists");
    }
    return;
  }
  const auto expected = RealArg(ctx, call, 2);
  if (!expected) return;
  const std::string what = "dataref " + DescribeTarget(*target) + " = " + call.args[2].text;
  if (!ctx.host.HasDataref(target->path)) {
    ctx.Fail(what, "no such dataref");
    return;
  }
  const auto mismatch = FindMismatch(ctx.host, *target, *expected);
  if (mismatch) {
    ctx.Fail(what, *mismatch);
  } else {
    ctx.Pass();
  }
}

void ExpectEventCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& text = call.args[0].text;
  const std::vector<std::string>& events = ctx.host.Events();
  if (std::find(events.begin(), events.end(), text) != events.end()) {
    ctx.Pass();
  } else {
    ctx.Fail("event " + Quoted(text), DescribeEvents(events));
  }
}

void ExpectNoEventCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& text = call.args[0].text;
  const std::vector<std::string>& events = ctx.host.Events();
  const auto it = std::find(events.begin(), events.end(), text);
  if (it == events.end()) {
    ctx.Pass();
  } else {
    ctx.Fail("no event " + Quoted(text), "it as event " + std::to_string(it - events.begin() + 1) +
                                             " of " + std::to_string(events.size()));
  }
}

// How many events there were, or how many equal TEXT: a long run of like events in one line.
void ExpectEventCountCommand(ScenarioContext& ctx, const Invocation& call) {
  const bool counting = call.args.size() == 2;
  const auto expected = IntegerArg(ctx, call, counting ? 1 : 0, 0, std::numeric_limits<int>::max());
  if (!expected) return;
  const std::vector<std::string>& events = ctx.host.Events();
  const auto found = counting ? std::count(events.begin(), events.end(), call.args[0].text)
                              : static_cast<std::ptrdiff_t>(events.size());
  const std::string what = counting ? " events " + Quoted(call.args[0].text) : " events";
  if (found == *expected) {
    ctx.Pass();
  } else {
    ctx.Fail(std::to_string(*expected) + what, std::to_string(found));
  }
}

void ExpectEventsCommand(ScenarioContext& ctx, const Invocation& call) {
  // The block is indented as the writer likes: each line is trimmed and blank lines are skipped.
  // Events are compared trimmed too, so that one ending in an empty text still matches.
  std::vector<std::string> expected;
  for (const std::string& line : call.block) {
    const std::string_view text = TrimBlanks(line);
    if (!text.empty()) expected.emplace_back(text);
  }
  const std::vector<std::string>& events = ctx.host.Events();
  std::size_t same = 0;
  while (same < expected.size() && same < events.size() &&
         expected[same] == TrimBlanks(events[same])) {
    ++same;
  }
  if (same == expected.size() && same == events.size()) {
    ctx.Pass();
    return;
  }
  ctx.Fail("events " + QuotedList(expected),
           QuotedList(events) + " (first difference at event " + std::to_string(same + 1) + ")");
}

void ExpectWindowCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& text = call.args[0].text;
  const std::vector<std::string> drawn = ctx.host.DrawWindows();
  if (std::find(drawn.begin(), drawn.end(), text) != drawn.end()) {
    ctx.Pass();
    return;
  }
  const int windows = ctx.host.WindowCount();
  ctx.Fail("window " + Quoted(text),
           windows == 0 ? "no window" : std::to_string(windows) + " window(s) drawing " +
                                            QuotedList(drawn));
}

void ExpectNoWindowCommand(ScenarioContext& ctx, const Invocation& /*call*/) {
  const int windows = ctx.host.WindowCount();
  if (windows == 0) {
    ctx.Pass();
  } else {
    ctx.Fail("no window", std::to_string(windows) + " window(s)");
  }
}

// A text counts as shown whole when it was drawn exactly and ends inside the window or widget that
// drew it: a caption that runs on past its widget lies under its neighbour on X-Plane's screen.
void ExpectScreenCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& text = call.args[0].text;
  const sim::DisplayList screen = ctx.host.DrawScreen();
  std::vector<std::string> similar;  // drawn texts that share the wanted text's beginning
  for (const sim::DisplayItem& item : screen.items) {
    for (const sim::DrawnText& drawn : item.texts) {
      if (drawn.text == text) {
        const float width = XPLMMeasureString(drawn.font, drawn.text.c_str(), static_cast<int>(drawn.text.size()));
        const int end = drawn.x + static_cast<int>(std::ceil(width));
        if (end <= item.geometry.right) {
          ctx.Pass();
          return;
        }
        similar.push_back(drawn.text + " (ends at x " + std::to_string(end) + ", past the edge at " +
                          std::to_string(item.geometry.right) + ")");
      } else if (!drawn.text.empty() && (text.starts_with(drawn.text) || drawn.text.starts_with(text))) {
        similar.push_back(drawn.text);
      }
    }
  }
  ctx.Fail("screen showing " + Quoted(text), similar.empty() ? "no such text" : QuotedList(similar));
}

}  // namespace dravsim
