#include "host/WidgetClasses.h"

#include <XPLMGraphics.h>
#include <XPStandardWidgets.h>
#include <XPUIGraphics.h>
#include <XPWidgetUtils.h>
#include <XPWidgets.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace sim {
namespace {

// Text colours of X-Plane's classic interface: light grey on the dark window, a brighter tone for
// lit captions.
float kTextColour[3] = {0.85f, 0.87f, 0.88f};
float kLitTextColour[3] = {1.0f, 0.92f, 0.55f};

ScreenRect GeometryOf(XPWidgetID widget) {
  ScreenRect g;
  XPGetWidgetGeometry(widget, &g.left, &g.top, &g.right, &g.bottom);
  return g;
}

std::string DescriptorOf(XPWidgetID widget) {
  const int length = XPGetWidgetDescriptor(widget, nullptr, 0);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  if (length > 0) XPGetWidgetDescriptor(widget, text.data(), length);
  return text;
}

intptr_t PropertyOf(XPWidgetID widget, int property) {
  return XPGetWidgetProperty(widget, property, nullptr);
}

const XPMouseState_t& MouseOf(intptr_t param) { return *reinterpret_cast<XPMouseState_t*>(param); }

// Text vertically centred in a box, as the classic widgets place it.
void DrawTextIn(const ScreenRect& box, int x, const std::string& text, float* colour) {
  int charHeight = 0;
  XPLMGetFontDimensions(xplmFont_Basic, nullptr, &charHeight, nullptr);
  const int y = (box.top + box.bottom) / 2 - charHeight / 2 + 2;
  XPLMDrawString(colour, x, y, text.c_str(), nullptr, xplmFont_Basic);
}

bool IsMouseMessage(int message) {
  return message == xpMsg_MouseDown || message == xpMsg_MouseDrag || message == xpMsg_MouseUp;
}

// ---- main window --------------------------------------------------------------------------------

// The close box is pressed while this property is set (the SDK keeps it in the hilite property).
int MainWindowFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t) {
  const ScreenRect g = GeometryOf(widget);
  const bool hasCloseBox = PropertyOf(widget, xpProperty_MainWindowHasCloseBoxes) != 0;
  if (message == xpMsg_Draw) {
    XPDrawWindow(g.left, g.bottom, g.right, g.top, xpWindow_MainWindow);
    DrawTextIn(TitleBarRect(g), g.left + 8, DescriptorOf(widget), kTextColour);
    if (hasCloseBox) {
      const ScreenRect box = CloseBoxRect(g);
      const bool pressed = PropertyOf(widget, xpProperty_Hilited) != 0;
      XPDrawElement(box.left, box.bottom, box.right, box.top,
                    pressed ? xpElement_WindowCloseBoxPressed : xpElement_WindowCloseBox, 0);
    }
    return 1;
  }
  if (!IsMouseMessage(message)) return 0;
  const XPMouseState_t& mouse = MouseOf(param1);
  const bool onCloseBox = hasCloseBox && CloseBoxRect(g).Contains(mouse.x, mouse.y);
  if (message == xpMsg_MouseDown && onCloseBox) {
    XPSetWidgetProperty(widget, xpProperty_Hilited, 1);
    return 1;
  }
  if (PropertyOf(widget, xpProperty_Hilited) != 0) {  // a click that began on the close box
    if (message != xpMsg_MouseUp) return 1;
    XPSetWidgetProperty(widget, xpProperty_Hilited, 0);
    // Released elsewhere: the pilot changed their mind.
    if (onCloseBox) {
      XPSendMessageToWidget(widget, xpMessage_CloseButtonPushed, xpMode_UpChain,
                            reinterpret_cast<intptr_t>(widget), 0);
    }
    return 1;
  }
  const ScreenRect bar = TitleBarRect(g);
  if (XPUDragWidget(message, widget, param1, 0, bar.left, bar.top, bar.right, bar.bottom) != 0) {
    return 1;
  }
  return message == xpMsg_MouseDown ? 1 : 0;  // a window takes the clicks on its body
}

int SubWindowFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t, intptr_t) {
  if (message != xpMsg_Draw) return 0;
  const ScreenRect g = GeometryOf(widget);
  const intptr_t type = PropertyOf(widget, xpProperty_SubWindowType);
  XPDrawWindow(g.left, g.bottom, g.right, g.top,
               type == xpSubWindowStyle_Screen     ? xpWindow_Screen
               : type == xpSubWindowStyle_ListView ? xpWindow_ListView
                                                   : xpWindow_SubWindow);
  return 1;
}

// ---- button -------------------------------------------------------------------------------------

void PushButton(XPWidgetID widget) {
  const intptr_t behaviour = PropertyOf(widget, xpProperty_ButtonBehavior);
  if (behaviour == xpButtonBehaviorPushButton) {
    XPSendMessageToWidget(widget, xpMsg_PushButtonPressed, xpMode_UpChain,
                          reinterpret_cast<intptr_t>(widget), 0);
    return;
  }
  const intptr_t state = behaviour == xpButtonBehaviorCheckBox
                             ? (PropertyOf(widget, xpProperty_ButtonState) != 0 ? 0 : 1)
                             : 1;  // a radio button only turns on
  XPSetWidgetProperty(widget, xpProperty_ButtonState, state);
  XPSendMessageToWidget(widget, xpMsg_ButtonStateChanged, xpMode_UpChain,
                        reinterpret_cast<intptr_t>(widget), state);
}

int ButtonFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t) {
  const ScreenRect g = GeometryOf(widget);
  switch (message) {
    case xpMsg_Draw: {
      const bool lit = PropertyOf(widget, xpProperty_Hilited) != 0 ||
                       PropertyOf(widget, xpProperty_ButtonState) != 0;
      const intptr_t type = PropertyOf(widget, xpProperty_ButtonType);
      const int element = type == xpRadioButton      ? (lit ? xpElement_CheckBoxLit : xpElement_CheckBox)
                          : type == xpWindowCloseBox ? xpElement_WindowCloseBox
                          : type == xpLittleDownArrow ? xpElement_LittleDownArrow
                          : type == xpLittleUpArrow   ? xpElement_LittleUpArrow
                          : (lit ? xpElement_PushButtonLit : xpElement_PushButton);
      XPDrawElement(g.left, g.bottom, g.right, g.top, element, lit ? 1 : 0);
      const std::string text = DescriptorOf(widget);
      int charWidth = 0;
      XPLMGetFontDimensions(xplmFont_Basic, &charWidth, nullptr, nullptr);
      const int width = static_cast<int>(text.size()) * charWidth;
      DrawTextIn(g, type == xpPushButton ? (g.left + g.right - width) / 2 : g.right + 4, text,
                 kTextColour);
      return 1;
    }
    case xpMsg_MouseDown:
      XPSetWidgetProperty(widget, xpProperty_Hilited, 1);
      return 1;
    case xpMsg_MouseDrag:
      XPSetWidgetProperty(widget, xpProperty_Hilited,
                          g.Contains(MouseOf(param1).x, MouseOf(param1).y) ? 1 : 0);
      return 1;
    case xpMsg_MouseUp:
      XPSetWidgetProperty(widget, xpProperty_Hilited, 0);
      if (g.Contains(MouseOf(param1).x, MouseOf(param1).y)) PushButton(widget);
      return 1;
    default:
      return 0;
  }
}

// ---- text field ---------------------------------------------------------------------------------

constexpr char kBackspace = 8;

bool EditText(XPWidgetID widget, const XPKeyState_t& key) {
  if ((key.flags & xplm_DownFlag) == 0) return false;
  std::string text = DescriptorOf(widget);
  if (key.key == kBackspace) {
    if (text.empty()) return true;
    text.pop_back();
  } else if (static_cast<unsigned char>(key.key) >= 32) {
    const intptr_t limit = PropertyOf(widget, xpProperty_MaxCharacters);
    if (limit > 0 && static_cast<intptr_t>(text.size()) >= limit) return true;
    text += key.key;
  } else {
    return false;  // Return, Tab and the like are the dialog's business
  }
  XPSetWidgetDescriptor(widget, text.c_str());
  XPSendMessageToWidget(widget, xpMsg_TextFieldChanged, xpMode_UpChain,
                        reinterpret_cast<intptr_t>(widget), 0);
  return true;
}

int TextFieldFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t) {
  switch (message) {
    case xpMsg_Draw: {
      const ScreenRect g = GeometryOf(widget);
      if (PropertyOf(widget, xpProperty_TextFieldType) == xpTextEntryField) {
        XPDrawElement(g.left, g.bottom, g.right, g.top, xpElement_TextField, 0);
      }
      std::string text = DescriptorOf(widget);
      if (PropertyOf(widget, xpProperty_PasswordMode) != 0) text.assign(text.size(), '*');
      DrawTextIn(g, g.left + 3, text, kTextColour);
      return 1;
    }
    case xpMsg_KeyTakeFocus:
      return 1;
    case xpMsg_MouseDown:
      XPSetKeyboardFocus(widget);
      return 1;
    case xpMsg_KeyPress:
      return EditText(widget, *reinterpret_cast<XPKeyState_t*>(param1)) ? 1 : 0;
    default:
      return 0;
  }
}

// ---- scroll bar ---------------------------------------------------------------------------------

void MoveSliderTo(XPWidgetID widget, const XPMouseState_t& mouse) {
  const int min = static_cast<int>(PropertyOf(widget, xpProperty_ScrollBarMin));
  const int max = static_cast<int>(PropertyOf(widget, xpProperty_ScrollBarMax));
  const int position = SliderPositionAt(GeometryOf(widget), min, max, mouse.x, mouse.y);
  if (position == PropertyOf(widget, xpProperty_ScrollBarSliderPosition)) return;
  XPSetWidgetProperty(widget, xpProperty_ScrollBarSliderPosition, position);
  XPSendMessageToWidget(widget, xpMsg_ScrollBarSliderPositionChanged, xpMode_UpChain,
                        reinterpret_cast<intptr_t>(widget), 0);
}

int ScrollBarFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t) {
  if (message == xpMsg_Draw) {
    const ScreenRect g = GeometryOf(widget);
    XPDrawElement(g.left, g.bottom, g.right, g.top, xpElement_ScrollBar, 0);
    return 1;
  }
  if (!IsMouseMessage(message)) return 0;
  MoveSliderTo(widget, MouseOf(param1));
  XPSetWidgetProperty(widget, xpProperty_Dragging, message == xpMsg_MouseUp ? 0 : 1);
  return 1;
}

// ---- caption, graphics, progress ----------------------------------------------------------------

int CaptionFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t, intptr_t) {
  if (message != xpMsg_Draw) return 0;
  const ScreenRect g = GeometryOf(widget);
  const bool lit = PropertyOf(widget, xpProperty_CaptionLit) != 0;
  DrawTextIn(g, g.left, DescriptorOf(widget), lit ? kLitTextColour : kTextColour);
  return 1;
}

int GeneralGraphicsFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t, intptr_t) {
  if (message != xpMsg_Draw) return 0;
  const ScreenRect g = GeometryOf(widget);
  XPDrawElement(g.left, g.bottom, g.right, g.top,
                static_cast<int>(PropertyOf(widget, xpProperty_GeneralGraphicsType)), 0);
  return 1;
}

int ProgressFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t, intptr_t) {
  if (message != xpMsg_Draw) return 0;
  const ScreenRect g = GeometryOf(widget);
  XPDrawElement(g.left, g.bottom, g.right, g.top, xpElement_TextField, 0);
  return 1;
}

constexpr std::array<XPWidgetFunc_t, 9> kClassFunctions = {
    nullptr,            MainWindowFunction, SubWindowFunction,       ButtonFunction,
    TextFieldFunction,  ScrollBarFunction,  CaptionFunction,         GeneralGraphicsFunction,
    ProgressFunction,
};

int ClampedPosition(int min, int max, long long position) {
  return static_cast<int>(std::clamp<long long>(position, std::min(min, max), std::max(min, max)));
}

}  // namespace

XPWidgetFunc_t StandardClassFunction(int widgetClass) {
  if (widgetClass < 0 || widgetClass >= static_cast<int>(kClassFunctions.size())) return nullptr;
  return kClassFunctions[static_cast<std::size_t>(widgetClass)];
}

ScreenRect TitleBarRect(const ScreenRect& w) {
  return ScreenRect{w.left, w.top, w.right, w.top - kTitleBarHeight};
}

ScreenRect CloseBoxRect(const ScreenRect& w) {
  return ScreenRect{w.right - 18, w.top - 3, w.right - 6, w.top - 15};
}

int SliderPositionAt(const ScreenRect& bar, int min, int max, int x, int y) {
  const bool horizontal = (bar.right - bar.left) >= (bar.top - bar.bottom);
  const int start = horizontal ? bar.left : bar.bottom;
  const int length = horizontal ? bar.right - bar.left : bar.top - bar.bottom;
  const int travel = std::max(length - kSliderThumbWidth, 1);
  const double along = (horizontal ? x : y) - start - kSliderThumbWidth / 2;
  const double position = min + along * (max - min) / travel;
  return ClampedPosition(min, max, std::llround(position));
}

void SliderPointFor(const ScreenRect& bar, int min, int max, int position, int* x, int* y) {
  const bool horizontal = (bar.right - bar.left) >= (bar.top - bar.bottom);
  const int start = horizontal ? bar.left : bar.bottom;
  const int length = horizontal ? bar.right - bar.left : bar.top - bar.bottom;
  const int travel = std::max(length - kSliderThumbWidth, 1);
  const int clamped = ClampedPosition(min, max, position);
  const double fraction = max == min ? 0.0 : static_cast<double>(clamped - min) / (max - min);
  const int along = start + kSliderThumbWidth / 2 + static_cast<int>(std::lround(fraction * travel));
  *x = horizontal ? along : (bar.left + bar.right) / 2;
  *y = horizontal ? (bar.top + bar.bottom) / 2 : along;
}

}  // namespace sim
