// The names XPLMFindSymbol resolves: every XPLM function this simulator implements.
#pragma once

#include <string_view>

namespace sim {

void* FindSdkSymbol(std::string_view name);  // null for a name it does not implement

}  // namespace sim
