#ifndef _XPLMDisplay_h_
#define _XPLMDisplay_h_

/*
 * Windows drawn by a plug-in, with keyboard, mouse and cursor callbacks.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Opaque handle to a window. */
typedef void* XPLMWindowID;

enum {
    xplm_MouseDown = 1,
    xplm_MouseDrag = 2,
    xplm_MouseUp = 3
};
typedef int XPLMMouseStatus;

#if defined(XPLM200)
enum {
    xplm_CursorDefault = 0,
    xplm_CursorHidden = 1,
    xplm_CursorArrow = 2,
    xplm_CursorCustom = 3
};
typedef int XPLMCursorStatus;
#endif

typedef void (*XPLMDrawWindow_f)(XPLMWindowID inWindowID, void* inRefcon);

/* inVirtualKey may exceed 0x7F: read it as unsigned char. */
typedef void (*XPLMHandleKey_f)(XPLMWindowID inWindowID,
                                char inKey,
                                XPLMKeyFlags inFlags,
                                char inVirtualKey,
                                void* inRefcon,
                                int losingFocus);

/* Returns 1 to consume the click. */
typedef int (*XPLMHandleMouseClick_f)(XPLMWindowID inWindowID,
                                      int x,
                                      int y,
                                      XPLMMouseStatus inMouse,
                                      void* inRefcon);

#if defined(XPLM200)
typedef XPLMCursorStatus (*XPLMHandleCursor_f)(XPLMWindowID inWindowID,
                                               int x,
                                               int y,
                                               void* inRefcon);

typedef int (*XPLMHandleMouseWheel_f)(XPLMWindowID inWindowID,
                                      int x,
                                      int y,
                                      int wheel,
                                      int clicks,
                                      void* inRefcon);

/* Set structSize to sizeof(XPLMCreateWindow_t): X-Plane tells the versions apart by it. */
typedef struct {
    int structSize;
    int left;
    int top;
    int right;
    int bottom;
    int visible;
    XPLMDrawWindow_f drawWindowFunc;
    XPLMHandleMouseClick_f handleMouseClickFunc;
    XPLMHandleKey_f handleKeyFunc;
    XPLMHandleCursor_f handleCursorFunc;
    XPLMHandleMouseWheel_f handleMouseWheelFunc;
    void* refcon;
#if defined(XPLM301)
    int decorateAsFloatingWindow;
#endif
#if defined(XPLM300)
    int layer;
    XPLMHandleMouseClick_f handleRightClickFunc;
#endif
} XPLMCreateWindow_t;

#if defined(__cplusplus) && defined(UINTPTR_MAX) && UINTPTR_MAX == 0xFFFFFFFFFFFFFFFFu
#if !defined(XPLM300) && !defined(XPLM301)
static_assert(sizeof(XPLMCreateWindow_t) == 72, "XPLMCreateWindow_t must match the 2.x x64 layout");
#elif defined(XPLM300) && defined(XPLM301)
static_assert(sizeof(XPLMCreateWindow_t) == 88, "XPLMCreateWindow_t must match the 3.x x64 layout");
#endif
#endif
#endif /* XPLM200 */

/* Legacy window: pixels from the screen's bottom left; the plug-in draws its own frame. */
XPLM_API XPLMWindowID XPLMCreateWindow(int inLeft,
                                       int inTop,
                                       int inRight,
                                       int inBottom,
                                       int inIsVisible,
                                       XPLMDrawWindow_f inDrawCallback,
                                       XPLMHandleKey_f inKeyCallback,
                                       XPLMHandleMouseClick_f inMouseCallback,
                                       void* inRefcon);

#if defined(XPLM200)
/* No callback in inParams may be NULL. */
XPLM_API XPLMWindowID XPLMCreateWindowEx(XPLMCreateWindow_t* inParams);
#endif

XPLM_API void XPLMDestroyWindow(XPLMWindowID inWindowID);

/* Out-pointers may be NULL. */
XPLM_API void XPLMGetScreenSize(int* outWidth, int* outHeight);
XPLM_API void XPLMGetWindowGeometry(XPLMWindowID inWindowID,
                                    int* outLeft,
                                    int* outTop,
                                    int* outRight,
                                    int* outBottom);

XPLM_API int XPLMGetWindowIsVisible(XPLMWindowID inWindowID);
XPLM_API void XPLMSetWindowIsVisible(XPLMWindowID inWindowID, int inIsVisible);
XPLM_API void* XPLMGetWindowRefCon(XPLMWindowID inWindowID);
XPLM_API void XPLMSetWindowRefCon(XPLMWindowID inWindowID, void* inRefcon);

/* Passing 0 gives the keyboard back to X-Plane. */
XPLM_API void XPLMTakeKeyboardFocus(XPLMWindowID inWindow);
XPLM_API int XPLMHasKeyboardFocus(XPLMWindowID inWindow);

#ifdef __cplusplus
}
#endif

#endif /* _XPLMDisplay_h_ */
