// X-Plane's Plugins menu and the menus and items that the plug-in adds to the menu bar.
#pragma once

#include <XPLMMenus.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/SlotTable.h"

namespace sim {

class MenuRegistry {
 public:
  explicit MenuRegistry(std::uint16_t generation);  // holds the (empty) Plugins menu

  XPLMMenuID PluginsMenu() const;
  // Null for an empty name, or a parent item that does not exist. No parent: a menu-bar menu.
  XPLMMenuID Create(const char* name, XPLMMenuID parent, int parentItem, XPLMMenuHandler_f handler,
                    void* menuRef);
  int Append(XPLMMenuID menu, const char* itemName, void* itemRef);  // index, or -1

  // Runs the handler of the first item of that name in a menu the plug-in created (items that open
  // a submenu are not picked). False when there is no such item.
  bool Pick(std::string_view itemName);
  std::vector<std::string> PluginItems() const;  // "Menu/Item", menus in creation order

 private:
  struct Item {
    std::string name;
    void* itemRef = nullptr;
    bool opensSubmenu = false;
  };
  struct Menu {
    std::string name;
    XPLMMenuHandler_f handler = nullptr;
    void* menuRef = nullptr;
    bool createdByPlugin = false;
    std::vector<Item> items;
  };

  SlotTable<Menu> menus_;
};

}  // namespace sim
