#ifndef _XPUIGraphics_h_
#define _XPUIGraphics_h_

/*
 * Drawing X-Plane's user-interface windows and elements.
 */

#include "XPWidgetDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

enum {
    xpWindow_Help = 0,
    xpWindow_MainWindow = 1,
    xpWindow_SubWindow = 2,
    xpWindow_Screen = 4,
    xpWindow_ListView = 5
};
typedef int XPWindowStyle;

WIDGET_API void XPDrawWindow(int inX1, int inY1, int inX2, int inY2, XPWindowStyle inStyle);

/* Out-pointers may be NULL. */
WIDGET_API void XPGetWindowDefaultDimensions(XPWindowStyle inStyle, int* outWidth, int* outHeight);

/* The ids are sparse. */
enum {
    xpElement_TextField = 6,
    xpElement_CheckBox = 9,
    xpElement_CheckBoxLit = 10,
    xpElement_WindowCloseBox = 14,
    xpElement_WindowCloseBoxPressed = 15,
    xpElement_PushButton = 16,
    xpElement_PushButtonLit = 17,
    xpElement_OilPlatform = 24,
    xpElement_OilPlatformSmall = 25,
    xpElement_Ship = 26,
    xpElement_ILSGlideScope = 27,
    xpElement_MarkerLeft = 28,
    xpElement_Airport = 29,
    xpElement_Waypoint = 30,
    xpElement_NDB = 31,
    xpElement_VOR = 32,
    xpElement_RadioTower = 33,
    xpElement_AircraftCarrier = 34,
    xpElement_Fire = 35,
    xpElement_MarkerRight = 36,
    xpElement_CustomObject = 37,
    xpElement_CoolingTower = 38,
    xpElement_SmokeStack = 39,
    xpElement_Building = 40,
    xpElement_PowerLine = 41,
    xpElement_CopyButtons = 45,
    xpElement_CopyButtonsWithEditingGrid = 46,
    xpElement_EditingGrid = 47,
    xpElement_ScrollBar = 48,
    xpElement_VORWithCompassRose = 49,
    xpElement_Zoomer = 51,
    xpElement_TextFieldMiddle = 52,
    xpElement_LittleDownArrow = 53,
    xpElement_LittleUpArrow = 54,
    xpElement_WindowDragBar = 61,
    xpElement_WindowDragBarSmooth = 62
};
typedef int XPElementStyle;

WIDGET_API void XPDrawElement(int inX1, int inY1, int inX2, int inY2, XPElementStyle inStyle, int inLit);

/* Out-pointers may be NULL. */
WIDGET_API void XPGetElementDefaultDimensions(XPElementStyle inStyle,
                                              int* outWidth,
                                              int* outHeight,
                                              int* outCanBeLit);

#ifdef __cplusplus
}
#endif

#endif /* _XPUIGraphics_h_ */
