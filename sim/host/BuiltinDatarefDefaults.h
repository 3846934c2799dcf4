// The values of the built-in datarefs at the start of a simulation.
#pragma once

#include <span>

namespace sim {

// A powered, parked single-engine aircraft: the values that differ from 0. An array default fills
// every element.
struct BuiltinDatarefDefault {
  const char* path;
  double value;
};

std::span<const BuiltinDatarefDefault> BuiltinDatarefDefaults();

}  // namespace sim
