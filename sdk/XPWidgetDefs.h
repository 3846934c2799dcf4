#ifndef _XPWidgetDefs_h_
#define _XPWidgetDefs_h_

/*
 * Types shared by the widget headers: widget handles, messages, properties and the widget
 * callback.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Opaque handle to a widget. */
typedef void* XPWidgetID;

/* A widget class; the standard ones are in XPStandardWidgets.h. */
typedef int XPWidgetClass;

#define xpWidgetClass_None 0

/* Properties every widget has; classes add their own from 1000 + 100 * class. */
enum {
    xpProperty_Refcon = 0,
    xpProperty_Dragging = 1,
    xpProperty_DragXOff = 2,
    xpProperty_DragYOff = 3,
    xpProperty_Hilited = 4,
    xpProperty_Object = 5,
    xpProperty_Clip = 6,
    xpProperty_Enabled = 7,
    xpProperty_UserStart = 10000
};
typedef int XPWidgetPropertyID;

/* Sent with mouse messages. */
typedef struct {
    int x;
    int y;
    int button;
#if defined(XPLM200)
    int delta;
#endif
} XPMouseState_t;

/* Sent with xpMsg_KeyPress. */
typedef struct {
    char key;
    XPLMKeyFlags flags;
    char vkey;
} XPKeyState_t;

/* Sent with xpMsg_Reshape. */
typedef struct {
    int dx;
    int dy;
    int dwidth;
    int dheight;
} XPWidgetGeometryChange_t;

#if defined(__cplusplus)
#if defined(XPLM200)
static_assert(sizeof(XPMouseState_t) == 16, "XPMouseState_t must match the SDK layout");
#else
static_assert(sizeof(XPMouseState_t) == 12, "XPMouseState_t must match the SDK layout");
#endif
static_assert(sizeof(XPKeyState_t) == 12, "XPKeyState_t must match the SDK layout");
static_assert(sizeof(XPWidgetGeometryChange_t) == 16, "XPWidgetGeometryChange_t must match the SDK layout");
#endif

/* How XPSendMessageToWidget routes a message. */
enum {
    xpMode_Direct = 0,
    xpMode_UpChain = 1,
    xpMode_Recursive = 2,
    xpMode_DirectAllCallbacks = 3,
    xpMode_Once = 4
};
typedef int XPDispatchMode;

/* Messages every widget may receive; the standard classes use 1000-9999. */
enum {
    xpMsg_None = 0,
    xpMsg_Create = 1,
    xpMsg_Destroy = 2,
    xpMsg_Paint = 3,
    xpMsg_Draw = 4,
    xpMsg_KeyPress = 5,
    xpMsg_KeyTakeFocus = 6,
    xpMsg_KeyLoseFocus = 7,
    xpMsg_MouseDown = 8,
    xpMsg_MouseDrag = 9,
    xpMsg_MouseUp = 10,
    xpMsg_Reshape = 11,
    xpMsg_ExposedChanged = 12,
    xpMsg_AcceptChild = 13,
    xpMsg_LoseChild = 14,
    xpMsg_AcceptParent = 15,
    xpMsg_Shown = 16,
    xpMsg_Hidden = 17,
    xpMsg_DescriptorChanged = 18,
    xpMsg_PropertyChanged = 19,
#if defined(XPLM200)
    xpMsg_MouseWheel = 20,
    xpMsg_CursorAdjust = 21,
#endif
    xpMsg_UserStart = 10000
};
typedef int XPWidgetMessage;

/* Returns 1 if the widget handled the message. */
typedef int (*XPWidgetFunc_t)(XPWidgetMessage inMessage,
                              XPWidgetID inWidget,
                              intptr_t inParam1,
                              intptr_t inParam2);

#ifdef __cplusplus
}
#endif

#endif /* _XPWidgetDefs_h_ */
