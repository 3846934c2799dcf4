#include "dravsim/ScenarioRunner.h"

#include "dravsim/CommandTable.h"
#include "plugin/PluginContext.h"

namespace dravsim {
namespace {

std::string UnknownCommand(const std::vector<Word>& words) {
  const bool isExpect = !words[0].quoted && words[0].text == "expect";
  if (isExpect && words.size() < 2) return "expect: what to expect is missing";
  if (isExpect) return "unknown check \"expect " + words[1].text + "\"";
  return "unknown command \"" + words[0].text + "\"";
}

// Collects the lines up to the one that reads `end`; false when the input ends first.
bool ReadBlock(LineSource& source, std::vector<std::string>& block) {
  std::string line;
  while (source.Next(line, LineKind::BlockLine)) {
    if (TrimBlanks(line) == "end") return true;
    block.push_back(line);
  }
  return false;
}

bool ArgsFit(const CommandRow& row, std::size_t count) {
  const auto args = static_cast<int>(count);
  return args >= row.minArgs && (row.maxArgs < 0 || args <= row.maxArgs);
}

}  // namespace

ScenarioRunner::ScenarioRunner(std::ostream& out, RunnerOptions options)
    : out_(out), options_(options) {}

ScenarioResult ScenarioRunner::Run(std::string_view text, std::string_view name) {
  TextLineSource source(text);
  return Run(source, name);
}

ScenarioResult ScenarioRunner::Run(LineSource& source, std::string_view name) {
  // Scenario commands look at the plug-in (is its dialog open?), the device layer and the modules
  // before XPluginStart and after XPluginStop too (waiting for the panels to go quiet after a stop,
  // say). They see this context
  // then, and the plug-in's own in between, as a test sees its own around the plug-in's. The
  // plug-in is shut down below, before this context goes.
  drav::PluginContext outside;
  sim::SimHost& host = sim::SimHost::Current();
  ScenarioContext ctx(host, out_, std::string(name), options_);
  if (ctx.hid == nullptr) {
    ctx.Error("no panels: " + ctx.hardwareError);
    return ctx.Result();
  }
  // A nested line has no lines after it, so a block opened inside a repeat block reads no `end`.
  ctx.runNestedLine = [this, &ctx](const std::string& nested) {
    TextLineSource nothingAfter("");
    ctx.BeginCommand(ctx.Line());
    RunLine(ctx, nothingAfter, nested);
  };
  host.LoadPlugin(options_.plugin);
  std::string line;
  while (!ctx.Skipped() && source.Next(line, LineKind::Command)) {
    ctx.BeginCommand(source.LineNumber());
    RunLine(ctx, source, line);
  }
  ShutDownPlugin(ctx);
  return ctx.Result();
}

void ScenarioRunner::RunLine(ScenarioContext& ctx, LineSource& source, const std::string& line) {
  const LexedLine lexed = LexLine(line);
  if (!lexed.Ok()) {
    ctx.Error(lexed.error);
    return;
  }
  if (lexed.words.empty()) return;
  std::size_t nameWords = 0;
  const CommandRow* row = FindCommand(lexed.words, nameWords);
  if (row == nullptr) {
    ctx.Error(UnknownCommand(lexed.words));
    return;
  }
  Invocation call{row->name, row->usage, std::span(lexed.words).subspan(nameWords), {}};
  // A block is read even when the command's words are wrong, so that its lines are never taken
  // for commands.
  if (row->opensBlock && !ReadBlock(source, call.block)) {
    ctx.Error(std::string(row->name) + ": missing end");
    return;
  }
  if (!ArgsFit(*row, call.args.size())) {
    ctx.Error(std::string(row->name) + ": usage: " + std::string(row->usage));
    return;
  }
  row->handler(ctx, call);
  ctx.EndCommand(TrimBlanks(std::string_view(line).substr(0, lexed.codeLength)));
}

void ScenarioRunner::ShutDownPlugin(ScenarioContext& ctx) {
  if (ctx.plugin.enabled) {
    ctx.host.Disable();
    ctx.plugin.enabled = false;
    ctx.Trace("(end of " + ctx.Name() + ": XPluginDisable)");
  }
  if (ctx.plugin.started) {
    ctx.host.Stop();
    ctx.plugin.started = false;
    ctx.Trace("(end of " + ctx.Name() + ": XPluginStop)");
  }
}

}  // namespace dravsim
