// The "Drav" item of the simulator's Plugins menu: "Assign Functions" first, as it always was, then
// the same actions the plug-in's commands offer.
#pragma once

namespace drav {

inline constexpr int kAssignFunctionsItemRef = 1;
inline constexpr int kAssignDialogSize = 650;

void BuildPluginMenu();

}  // namespace drav
