// The "Drav" item of the simulator's Plugins menu, with its one entry "Assign Functions".
#pragma once

namespace drav {

inline constexpr int kAssignFunctionsItemRef = 1;
inline constexpr int kAssignDialogSize = 650;

void BuildPluginMenu();

}  // namespace drav
