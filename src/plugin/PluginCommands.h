// The plug-in's own X-Plane commands ("merrow/drav/..."), which X-Plane lists in its keyboard and
// joystick settings so that a pilot can bind them. They are made through the optional SDK, which
// exists from X-Plane 9 on; a simulator without it simply has no such commands.
#pragma once

#include <XPLMUtilities.h>

#include <array>

namespace drav {

struct PluginCommand {
  const char* name;
  const char* description;  // what X-Plane's binding screens show
  void (*action)();
};

inline constexpr int kPluginCommandCount = 5;
extern const PluginCommand kPluginCommands[kPluginCommandCount];

// The handle each command was registered under; all null while no handler is installed
// (PluginState::registeredCommands).
using RegisteredPluginCommands = std::array<XPLMCommandRef, kPluginCommandCount>;

// Creates the commands (X-Plane hands back the same command when it already exists) and installs
// the handlers. At enable, after the optional SDK has been looked up; a second call does nothing.
void RegisterPluginCommands();
// Removes the handlers, as X-Plane expects of a plug-in being disabled or stopped. The commands
// themselves stay known to X-Plane (it cannot forget one) and do nothing until the next enable.
void UnregisterPluginCommands();

}  // namespace drav
