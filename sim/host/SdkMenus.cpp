// XPLMMenus.h.
#include <XPLMMenus.h>

#include "host/SdkHost.h"

using sim::SdkHost;

XPLMMenuID XPLMFindPluginsMenu(void) { return SdkHost().menus.PluginsMenu(); }

XPLMMenuID XPLMCreateMenu(const char* inName, XPLMMenuID inParentMenu, int inParentItem,
                          XPLMMenuHandler_f inHandler, void* inMenuRef) {
  return SdkHost().menus.Create(inName, inParentMenu, inParentItem, inHandler, inMenuRef);
}

int XPLMAppendMenuItem(XPLMMenuID inMenu, const char* inItemName, void* inItemRef,
                       int /*inDeprecatedAndIgnored*/) {
  return SdkHost().menus.Append(inMenu, inItemName, inItemRef);
}
