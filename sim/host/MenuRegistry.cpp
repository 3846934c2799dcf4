#include "host/MenuRegistry.h"

namespace sim {

namespace {

constexpr std::size_t kPluginsMenuIndex = 0;

}  // namespace

MenuRegistry::MenuRegistry(std::uint16_t generation) : menus_(HandleKind::Menu, generation) {
  menus_.Add(Menu{"Plugins", nullptr, nullptr, false, {}});
}

XPLMMenuID MenuRegistry::PluginsMenu() const { return menus_.HandleOf(kPluginsMenuIndex); }

XPLMMenuID MenuRegistry::Create(const char* name, XPLMMenuID parent, int parentItem,
                                XPLMMenuHandler_f handler, void* menuRef) {
  if (name == nullptr || name[0] == '\0') return nullptr;
  if (parent != nullptr) {
    Menu* parentMenu = menus_.Find(parent);
    if (parentMenu == nullptr || parentItem < 0 ||
        parentItem >= static_cast<int>(parentMenu->items.size())) {
      return nullptr;
    }
    parentMenu->items[static_cast<std::size_t>(parentItem)].opensSubmenu = true;
  }
  return menus_.HandleOf(menus_.Add(Menu{name, handler, menuRef, true, {}}));
}

int MenuRegistry::Append(XPLMMenuID menu, const char* itemName, void* itemRef) {
  Menu* target = menus_.Find(menu);
  if (target == nullptr || itemName == nullptr) return -1;
  target->items.push_back(Item{itemName, itemRef, false});
  return static_cast<int>(target->items.size()) - 1;
}

bool MenuRegistry::Pick(std::string_view itemName) {
  for (std::size_t m = 0; m < menus_.Size(); ++m) {
    const Menu& menu = menus_.At(m);
    if (!menu.createdByPlugin) continue;
    for (const Item& item : menu.items) {
      if (item.opensSubmenu || item.name != itemName) continue;
      // Copies: the handler may add menus and items.
      const XPLMMenuHandler_f handler = menu.handler;
      void* const menuRef = menu.menuRef;
      void* const itemRef = item.itemRef;
      if (handler != nullptr) handler(menuRef, itemRef);
      return true;
    }
  }
  return false;
}

std::vector<std::string> MenuRegistry::PluginItems() const {
  std::vector<std::string> items;
  for (std::size_t m = 0; m < menus_.Size(); ++m) {
    const Menu& menu = menus_.At(m);
    for (const Item& item : menu.items) items.push_back(menu.name + "/" + item.name);
  }
  return items;
}

}  // namespace sim
