#include "host/CommandRegistry.h"

#include <algorithm>

#include "host/BuiltinCommands.h"

namespace sim {

CommandRegistry::CommandRegistry(EventLog& events, std::uint16_t generation)
    : events_(events), commands_(HandleKind::Command, generation) {
  for (const char* name : BuiltinCommands()) commands_.Add(Command{name, true, 0, {}});
}

// A few dozen commands: a linear search is plenty.
std::int64_t CommandRegistry::IndexOf(std::string_view name) const {
  for (std::size_t i = 0; i < commands_.Size(); ++i) {
    if (commands_.At(i).name == name) return static_cast<std::int64_t>(i);
  }
  return -1;
}

CommandRegistry::Command* CommandRegistry::Known(XPLMCommandRef command) {
  Command* found = commands_.Find(command);
  return found != nullptr && found->known ? found : nullptr;
}

void CommandRegistry::SetKnown(std::string_view name, bool known) {
  const std::int64_t index = IndexOf(name);
  if (index >= 0) {
    commands_.At(static_cast<std::size_t>(index)).known = known;
  } else if (known && !name.empty()) {
    commands_.Add(Command{std::string(name), true, 0, {}});
  }
}

XPLMCommandRef CommandRegistry::Find(std::string_view name) const {
  const std::int64_t index = IndexOf(name);
  if (index < 0 || !commands_.At(static_cast<std::size_t>(index)).known) return nullptr;
  return commands_.HandleOf(static_cast<std::size_t>(index));
}

XPLMCommandRef CommandRegistry::Create(std::string_view name) {
  if (name.empty()) return nullptr;
  SetKnown(name, true);
  return Find(name);
}

// Handlers that run before X-Plane's own action may stop it, and with it the handlers after.
// The list is copied: a handler may register or unregister handlers.
void CommandRegistry::RunHandlers(XPLMCommandRef command, XPLMCommandPhase phase) {
  const Command* target = Known(command);
  if (target == nullptr || target->handlers.empty()) return;
  const std::vector<Handler> handlers = target->handlers;
  for (const bool before : {true, false}) {
    for (const Handler& handler : handlers) {
      if (handler.before != before) continue;
      if (handler.callback(command, phase, handler.refcon) == 0) return;
    }
  }
}

void CommandRegistry::Begin(XPLMCommandRef command) {
  Command* target = Known(command);
  if (target == nullptr) return;
  ++target->held;
  events_.Record("command-begin " + target->name);
  RunHandlers(command, xplm_CommandBegin);
}

// An end without a begin is still the plug-in's call, so it is recorded; no handler sees it.
void CommandRegistry::End(XPLMCommandRef command) {
  Command* target = Known(command);
  if (target == nullptr) return;
  events_.Record("command-end " + target->name);
  if (target->held == 0) return;
  --target->held;
  RunHandlers(command, xplm_CommandEnd);
}

void CommandRegistry::Once(XPLMCommandRef command) {
  const Command* target = Known(command);
  if (target == nullptr) return;
  events_.Record("command-once " + target->name);
  RunHandlers(command, xplm_CommandBegin);
  RunHandlers(command, xplm_CommandEnd);
}

bool CommandRegistry::RunForPilot(std::string_view name, XPLMCommandPhase phase) {
  const XPLMCommandRef command = Find(name);
  Command* target = Known(command);
  if (target == nullptr) return false;
  if (phase == xplm_CommandBegin) {
    ++target->held;
  } else if (phase == xplm_CommandEnd) {
    if (target->held == 0) return true;  // a release without a press reaches no handler
    --target->held;
  }
  RunHandlers(command, phase);
  return true;
}

void CommandRegistry::AddHandler(XPLMCommandRef command, XPLMCommandCallback_f handler, bool before,
                                 void* refcon) {
  Command* target = Known(command);
  if (target == nullptr || handler == nullptr) return;
  target->handlers.push_back(Handler{handler, before, refcon});
}

void CommandRegistry::RemoveHandler(XPLMCommandRef command, XPLMCommandCallback_f handler,
                                    bool before, void* refcon) {
  Command* target = commands_.Find(command);
  if (target == nullptr) return;
  auto& handlers = target->handlers;
  const auto found = std::find_if(handlers.begin(), handlers.end(), [&](const Handler& h) {
    return h.callback == handler && h.before == before && h.refcon == refcon;
  });
  if (found != handlers.end()) handlers.erase(found);
}

void CommandRegistry::ContinueHeld() {
  for (std::size_t i = 0; i < commands_.Size(); ++i) {
    const Command& command = commands_.At(i);
    if (command.known && command.held > 0 && !command.handlers.empty()) {
      RunHandlers(commands_.HandleOf(i), xplm_CommandContinue);
    }
  }
}

}  // namespace sim
