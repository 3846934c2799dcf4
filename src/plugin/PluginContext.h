// The one owner of the plug-in's state, from XPluginStart to XPluginStop.
//
// Each floor keeps its part in a state struct of its own header; the context holds one of each, in
// the order of the floors, and installs each in its slot (base/ContextSlot.h) as soon as it is made,
// so that a floor made later may use the ones below it. Destruction runs the other way: the top
// floor goes first, while the floors it uses are still there. Not copyable, not movable: the slots
// point into it.
#pragma once

#include <utility>

#include "base/BaseState.h"
#include "config/ConfigState.h"
#include "functions/FunctionState.h"
#include "hid/HidState.h"
#include "modules/ModuleRegistry.h"
#include "modules/ModuleState.h"
#include "plugin/PluginState.h"
#include "ui/UiState.h"

namespace drav {

class PluginContext {
 public:
  PluginContext() = default;
  PluginContext(const PluginContext&) = delete;
  PluginContext& operator=(const PluginContext&) = delete;

 private:
  // A floor's state, installed for exactly as long as it exists.
  template <typename State>
  struct Floor {
    template <typename... Arguments>
    explicit Floor(Arguments&&... arguments) : state(std::forward<Arguments>(arguments)...) {}

    State state;
    typename ContextSlot<State>::Scope installed{state};
  };

  Floor<BaseState> base_;
  // The device layer is handed the models' rows, each written in its model's own file.
  Floor<HidState> hid_{PanelModelsInLookupOrder()};
  Floor<FunctionState> functions_;
  Floor<ModuleState> modules_;
  Floor<ConfigState> config_;
  Floor<UiState> ui_;
  Floor<PluginState> plugin_;
};

}  // namespace drav
