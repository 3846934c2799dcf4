#include "plugin/PluginMenu.h"

#include <XPLMMenus.h>

#include <cstdint>

#include "plugin/PluginActions.h"

namespace drav {

namespace {

struct MenuEntry {
  const char* item;
  void (*action)();
};

// The item refs count from kAssignFunctionsItemRef in this order.
constexpr MenuEntry kMenuEntries[] = {
    {"Assign Functions", OpenAssignFunctions},
    {"Close Assign Functions", CloseAssignFunctions},
    {"Reload DRAV.INI", ReloadConfiguration},
    {"Rescan Panels", RescanPanels},
};
constexpr std::intptr_t kMenuEntryCount = sizeof kMenuEntries / sizeof kMenuEntries[0];

void HandleMenu(void* /*menuRef*/, void* itemRef) {
  const std::intptr_t row = reinterpret_cast<std::intptr_t>(itemRef) - kAssignFunctionsItemRef;
  if (row < 0 || row >= kMenuEntryCount) return;
  kMenuEntries[row].action();
}

}  // namespace

void BuildPluginMenu() {
  XPLMMenuID pluginsMenu = XPLMFindPluginsMenu();
  int item = XPLMAppendMenuItem(pluginsMenu, "Drav", nullptr, 1);
  XPLMMenuID menu = XPLMCreateMenu("Drav", pluginsMenu, item, HandleMenu, nullptr);
  if (menu == nullptr) return;
  for (std::intptr_t row = 0; row < kMenuEntryCount; ++row) {
    XPLMAppendMenuItem(menu, kMenuEntries[row].item, reinterpret_cast<void*>(row + kAssignFunctionsItemRef), 1);
  }
}

}  // namespace drav
