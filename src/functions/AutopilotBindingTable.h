// The autopilot functions whose binding depends on X737Mode: the simulator's own autopilot (through
// the system's drav/autopilot datarefs) or the x737 aircraft's.
#pragma once

#include <cstdint>
#include <span>

#include "functions/FunctionCatalogue.h"

namespace drav {

enum class AutopilotBuild : std::int32_t {
  kNothing,       // no object: the control does nothing and stays dark
  kSwitch,        // BindSwitch on path: int scalar, read equal
  kSwitchPair,    // BindSwitchPair on path and secondPath, each on 1 / off 0: lit when both are
  kCommandTable,  // built from command buttons or key strokes (CommandBindingTable)
};

struct AutopilotVariant {
  AutopilotBuild build;
  const char* path;
  const char* secondPath;
  std::int32_t onValue;
  std::int32_t offValue;
};

struct AutopilotBindingRow {
  FunctionId id;
  AutopilotVariant withoutX737;
  AutopilotVariant withX737;
};

std::span<const AutopilotBindingRow> AutopilotBindingRows();

// The row of id, or nullptr when id does not depend on X737Mode.
const AutopilotBindingRow* FindAutopilotBinding(FunctionId id);

}  // namespace drav
