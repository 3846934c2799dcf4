// The simulator's commands: the names it knows (the built-in table plus those scenarios and
// plug-ins add), their handlers, and the record of every command the plug-in runs.
#pragma once

#include <XPLMUtilities.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/EventLog.h"
#include "host/SlotTable.h"

namespace sim {

class CommandRegistry {
 public:
  CommandRegistry(EventLog& events, std::uint16_t generation);  // knows the built-in commands

  void SetKnown(std::string_view name, bool known);
  XPLMCommandRef Find(std::string_view name) const;  // null when unknown
  // The command of that name, made known if it was not (XPLMCreateCommand); null for no name.
  XPLMCommandRef Create(std::string_view name);

  // "command-begin NAME" / "command-end NAME" / "command-once NAME", then the handlers.
  void Begin(XPLMCommandRef command);
  void End(XPLMCommandRef command);
  void Once(XPLMCommandRef command);

  // X-Plane runs the command for the pilot (a bound key or joystick button going down, or up): the
  // handlers run as for the plug-in's own calls, but nothing is recorded, since the events record
  // what the plug-in asks of the simulator. False for an unknown command.
  bool RunForPilot(std::string_view name, XPLMCommandPhase phase);

  void AddHandler(XPLMCommandRef command, XPLMCommandCallback_f handler, bool before, void* refcon);
  void RemoveHandler(XPLMCommandRef command, XPLMCommandCallback_f handler, bool before,
                     void* refcon);

  // Once per frame: the handlers of every command held down get the continue phase.
  void ContinueHeld();

 private:
  struct Handler {
    XPLMCommandCallback_f callback = nullptr;
    bool before = false;
    void* refcon = nullptr;
  };
  struct Command {
    std::string name;
    bool known = true;
    int held = 0;  // begins not yet ended
    std::vector<Handler> handlers;
  };

  Command* Known(XPLMCommandRef command);
  std::int64_t IndexOf(std::string_view name) const;
  void RunHandlers(XPLMCommandRef command, XPLMCommandPhase phase);

  EventLog& events_;
  SlotTable<Command> commands_;
};

}  // namespace sim
