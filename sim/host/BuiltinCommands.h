// The simulator's own commands that the plug-in looks up by name.
#pragma once

#include <span>

namespace sim {

std::span<const char* const> BuiltinCommands();

}  // namespace sim
