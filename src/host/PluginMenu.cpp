#include "host/PluginMenu.h"

#include <XPLMMenus.h>

#include <cstdint>

#include "ui/AssignDialog.h"

namespace drav {

namespace {

void HandleMenu(void* /*menuRef*/, void* itemRef) {
  if (reinterpret_cast<std::intptr_t>(itemRef) != kAssignFunctionsItemRef) return;
  if (IsAssignDialogOpen()) return;
  OpenAssignDialog(kAssignDialogSize, kAssignDialogSize);
}

}  // namespace

void BuildPluginMenu() {
  XPLMMenuID pluginsMenu = XPLMFindPluginsMenu();
  int item = XPLMAppendMenuItem(pluginsMenu, "Drav", nullptr, 1);
  XPLMMenuID menu = XPLMCreateMenu("Drav", pluginsMenu, item, HandleMenu, nullptr);
  if (menu == nullptr) return;
  XPLMAppendMenuItem(menu, "Assign Functions",
                     reinterpret_cast<void*>(static_cast<std::intptr_t>(kAssignFunctionsItemRef)), 1);
}

}  // namespace drav
