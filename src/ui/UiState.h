// The part of the plug-in's state that belongs to the Assign Functions dialog and its pick lists, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentUiState().
#pragma once

#include <memory>

#include "base/ContextSlot.h"
#include "ui/AssignDialog.h"
#include "ui/MenuColours.h"
#include "ui/PickMenu.h"
#include "ui/PopupList.h"

namespace drav {

struct UiState {
  AssignDialogState dialog;
  MenuColourLookups menuColours;
  std::unique_ptr<PickMenuWindow> pickMenu;  // null while no pick menu is open
  PopupListState popups;
};

inline UiState& CurrentUiState() { return ContextSlot<UiState>::Current(); }

}  // namespace drav
