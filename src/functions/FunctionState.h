// The part of the plug-in's state that belongs to the function layer, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentFunctionState().
#pragma once

#include <XPLMDataAccess.h>

#include <cstdint>
#include <vector>

#include "base/ContextSlot.h"
#include "functions/AutopilotCourseDatarefs.h"
#include "functions/AutopilotModeDatarefs.h"
#include "functions/AutopilotSelectorDatarefs.h"
#include "functions/AvionicFunctionTable.h"
#include "functions/CustomBindings.h"
#include "functions/DisplayBrightness.h"
#include "functions/FunctionObjects.h"
#include "functions/PublishedDatarefRegistry.h"

namespace drav {

class PanelDirectory;

struct FunctionState {
  // How the ModuleSelect functions reach the radios and the brightness counts units. The plug-in
  // hands its directory over at start; tests hand one of their own. Null: no panels.
  const PanelDirectory* panelDirectory = nullptr;
  std::int32_t displayBrightnessLevel = kInitialDisplayBrightness;
  // One object per avionic row: every control bound to an id shows and adjusts the same object.
  std::vector<AvionicFunction> sharedAvionicObjects = std::vector<AvionicFunction>(AvionicFunctionRows().size());
  CustomBindingTable customBindings;
  // "sim/physics/metric_press", looked up at start for the display formatting.
  XPLMDataRef metricPress = nullptr;
  // The function layer's own datarefs: what they read, and their registrations.
  XPLMDataRef autopilotStateWord = nullptr;
  CourseDatarefSources courses;
  ModeDatarefSources modes;
  SelectorDatarefState selectors;
  PublishedDatarefs published;
};

inline FunctionState& CurrentFunctionState() { return ContextSlot<FunctionState>::Current(); }

}  // namespace drav
