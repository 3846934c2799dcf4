// XPWidgetUtils.h: behaviours a widget function hands its messages to.
#include <XPWidgetUtils.h>
#include <XPWidgets.h>

#include "host/SdkHost.h"

namespace {

const XPMouseState_t& MouseOf(intptr_t param) { return *reinterpret_cast<XPMouseState_t*>(param); }

}  // namespace

int XPUSelectIfNeeded(XPWidgetMessage inMessage, XPWidgetID inWidget, intptr_t /*inParam1*/,
                      intptr_t /*inParam2*/, int inEatClick) {
  if (inMessage != xpMsg_MouseDown) return 0;
  XPBringRootWidgetToFront(inWidget);
  return inEatClick != 0 ? 1 : 0;
}

int XPUDefocusKeyboard(XPWidgetMessage inMessage, XPWidgetID inWidget, intptr_t /*inParam1*/,
                       intptr_t /*inParam2*/, int inEatClick) {
  if (inMessage != xpMsg_MouseDown) return 0;
  // A click outside the widget that has the keyboard gives the keyboard back to X-Plane.
  if (XPGetWidgetWithFocus() != inWidget) XPSetKeyboardFocus(nullptr);
  return inEatClick != 0 ? 1 : 0;
}

// The drag moves the widget and everything in it by the mouse's travel since the down.
int XPUDragWidget(XPWidgetMessage inMessage, XPWidgetID inWidget, intptr_t inParam1,
                  intptr_t /*inParam2*/, int inLeft, int inTop, int inRight, int inBottom) {
  if (inParam1 == 0) return 0;
  const XPMouseState_t& mouse = MouseOf(inParam1);
  sim::WidgetTree& widgets = sim::SdkHost().widgets;
  const bool dragging = XPGetWidgetProperty(inWidget, xpProperty_Dragging, nullptr) != 0;
  switch (inMessage) {
    case xpMsg_MouseDown:
      if (!sim::ScreenRect{inLeft, inTop, inRight, inBottom}.Contains(mouse.x, mouse.y)) return 0;
      XPSetWidgetProperty(inWidget, xpProperty_Dragging, 1);
      XPSetWidgetProperty(inWidget, xpProperty_DragXOff, mouse.x);
      XPSetWidgetProperty(inWidget, xpProperty_DragYOff, mouse.y);
      return 1;
    case xpMsg_MouseDrag:
    case xpMsg_MouseUp: {
      if (!dragging) return 0;
      const auto lastX = static_cast<int>(XPGetWidgetProperty(inWidget, xpProperty_DragXOff, nullptr));
      const auto lastY = static_cast<int>(XPGetWidgetProperty(inWidget, xpProperty_DragYOff, nullptr));
      widgets.MoveWithChildren(inWidget, mouse.x - lastX, mouse.y - lastY);
      XPSetWidgetProperty(inWidget, xpProperty_DragXOff, mouse.x);
      XPSetWidgetProperty(inWidget, xpProperty_DragYOff, mouse.y);
      if (inMessage == xpMsg_MouseUp) XPSetWidgetProperty(inWidget, xpProperty_Dragging, 0);
      return 1;
    }
    default:
      return 0;
  }
}
