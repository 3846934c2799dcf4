// Commands that call the plug-in's entry points. The simulator never calls them out of order
// (enable before start, start twice ...), so neither does a scenario: such a line is an error and
// the plug-in is not called. Stopping an enabled plug-in is what the simulator does when it quits:
// it disables the plug-in first.
#include <climits>
#include <cstdint>
#include <vector>

#include "dravsim/CommandArgs.h"
#include "dravsim/CommandHandlers.h"

namespace dravsim {
namespace {

// XPLM_MSG_PLANE_LOADED; its parameter 0 is the user's aircraft.
constexpr int kPlaneLoadedMessage = 102;

bool PluginLoaded(ScenarioContext& ctx, const Invocation& call) {
  const sim::PluginEntryPoints& entry = ctx.options.plugin;
  if (entry.start && entry.stop && entry.enable && entry.disable && entry.receiveMessage) {
    return true;
  }
  CommandError(ctx, call, "no plug-in is loaded");
  return false;
}

bool Require(ScenarioContext& ctx, const Invocation& call, bool condition,
             std::string_view reason) {
  if (!condition) CommandError(ctx, call, reason);
  return condition;
}

std::string DescribeMenuAndWindows(const sim::SimHost& host) {
  std::string text = "menu";
  const std::vector<std::string> items = host.PluginMenuItems();
  if (items.empty()) text += " none";
  for (const std::string& item : items) text += " \"" + item + "\"";
  return text + ", " + std::to_string(host.WindowCount()) + " window(s)";
}

void CallStart(ScenarioContext& ctx) {
  const int result = ctx.host.Start();
  ctx.plugin.started = result != 0;  // as the host counts it
  ctx.Note("XPluginStart " + std::to_string(result) + " (\"" + ctx.host.PluginName() + "\", " +
           ctx.host.PluginSignature() + ")");
}

void CallEnable(ScenarioContext& ctx) {
  const int result = ctx.host.Enable();
  ctx.plugin.enabled = result != 0;
  ctx.Note("XPluginEnable " + std::to_string(result));
}

void SendMessage(ScenarioContext& ctx, const Invocation& call, int from, int message,
                 std::intptr_t param) {
  if (!PluginLoaded(ctx, call) ||
      !Require(ctx, call, ctx.plugin.started, "the plug-in is not started")) {
    return;
  }
  ctx.host.SendMessage(from, message, param);
}

}  // namespace

void StartCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!PluginLoaded(ctx, call) ||
      !Require(ctx, call, !ctx.plugin.started, "the plug-in is already started")) {
    return;
  }
  CallStart(ctx);
  ctx.Note(DescribeMenuAndWindows(ctx.host));
}

void EnableCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!PluginLoaded(ctx, call) ||
      !Require(ctx, call, ctx.plugin.started, "the plug-in is not started") ||
      !Require(ctx, call, !ctx.plugin.enabled, "the plug-in is already enabled")) {
    return;
  }
  CallEnable(ctx);
}

void DisableCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!PluginLoaded(ctx, call) ||
      !Require(ctx, call, ctx.plugin.enabled, "the plug-in is not enabled")) {
    return;
  }
  ctx.host.Disable();
  ctx.plugin.enabled = false;
}

void StopCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!PluginLoaded(ctx, call) ||
      !Require(ctx, call, ctx.plugin.started, "the plug-in is not started")) {
    return;
  }
  if (ctx.plugin.enabled) ctx.Note("XPluginDisable first");
  ctx.host.Stop();  // the host disables an enabled plug-in before it stops it
  ctx.plugin.enabled = false;
  ctx.plugin.started = false;
}

void BootCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!PluginLoaded(ctx, call) ||
      !Require(ctx, call, !ctx.plugin.started, "the plug-in is already started")) {
    return;
  }
  CallStart(ctx);
  // The simulator enables only a plug-in whose start succeeded.
  if (ctx.plugin.started) CallEnable(ctx);
  ctx.Note(DescribeMenuAndWindows(ctx.host));
}

void MessageCommand(ScenarioContext& ctx, const Invocation& call) {
  const auto from = IntegerArg(ctx, call, 0, 0, INT_MAX);
  if (!from) return;
  // Message ids are written as the SDK documents them, 0x8888888E included, and travel as int.
  const auto id = IntegerArg(ctx, call, 1, INT_MIN, UINT32_MAX);
  if (!id) return;
  const int message = static_cast<int>(static_cast<std::uint32_t>(*id));
  const Word& param = call.args[2];
  if (param.quoted) {
    // The plug-in gets a char pointer, valid for the call, to a text it may read but not keep.
    std::vector<char> text(param.text.begin(), param.text.end());
    text.push_back('\0');
    SendMessage(ctx, call, static_cast<int>(*from), message,
                reinterpret_cast<std::intptr_t>(text.data()));
    return;
  }
  const auto value = IntegerArg(ctx, call, 2, INTPTR_MIN, INTPTR_MAX);
  if (value) SendMessage(ctx, call, static_cast<int>(*from), message, *value);
}

void PlaneLoadedCommand(ScenarioContext& ctx, const Invocation& call) {
  SendMessage(ctx, call, 0, kPlaneLoadedMessage, 0);
}

}  // namespace dravsim
