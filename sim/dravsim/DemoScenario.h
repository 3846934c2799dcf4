// The scenario dravsim runs when it is given no file: the plug-in's life in the simulator, told
// in echo lines and checked as it goes.
#pragma once

#include <string_view>

namespace dravsim {

std::string_view DemoScenarioText();

}  // namespace dravsim
