#ifndef _XPLMMenus_h_
#define _XPLMMenus_h_

/*
 * Menus in X-Plane's menu bar, normally below the Plugins menu.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Opaque handle to a menu; NULL means failure. */
typedef void* XPLMMenuID;

typedef void (*XPLMMenuHandler_f)(void* inMenuRef, void* inItemRef);

XPLM_API XPLMMenuID XPLMFindPluginsMenu(void);

/* inName must not be empty, even for a submenu. */
XPLM_API XPLMMenuID XPLMCreateMenu(const char* inName,
                                   XPLMMenuID inParentMenu,
                                   int inParentItem,
                                   XPLMMenuHandler_f inHandler,
                                   void* inMenuRef);

/* Returns the new item's index, or < 0 on failure. The last parameter is ignored. */
XPLM_API int XPLMAppendMenuItem(XPLMMenuID inMenu,
                                const char* inItemName,
                                void* inItemRef,
                                int inDeprecatedAndIgnored);

#ifdef __cplusplus
}
#endif

#endif /* _XPLMMenus_h_ */
