#include "ui/PopupList.h"

#include <XPLMGraphics.h>
#include <XPUIGraphics.h>
#include <XPWidgetUtils.h>
#include <XPWidgets.h>

#include <GL/gl.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "ui/InterfaceTexture.h"
#include "ui/ItemList.h"
#include "ui/MenuColours.h"
#include "ui/PickMenu.h"
#include "ui/TextMeasure.h"
#include "ui/UiState.h"

namespace drav {

namespace {

// Half the height of the button piece of the interface texture.
constexpr int kButtonHalfHeight = 13;
constexpr int kButtonOverhang = 4;
constexpr int kTextIndent = 4;
constexpr int kArrowRoom = 24;  // the arrow at the right end takes this much of the width
constexpr int kArrowInset = 17;
constexpr int kTextMargin = 4;  // air between the text's end and the arrow

PopupListState& Popups() { return CurrentUiState().popups; }

void UpdateCurrentItem(XPWidgetID widget) {
  const std::string descriptor = WidgetDescriptor(widget);
  const intptr_t index = XPGetWidgetProperty(widget, kPopupCurrentItemProperty, nullptr);
  const ItemSpan span = LocateItem(descriptor, static_cast<int>(index));
  PopupShownItem& shown = Popups().shownItems[widget];
  shown.index = index;
  shown.text = descriptor.substr(span.start, span.length);
  if (shown.text.starts_with('(')) shown.text.erase(0, 1);
  shown.fittedWidth = -1;
  XPSetWidgetProperty(widget, kPopupItemStartProperty, static_cast<intptr_t>(span.start));
  XPSetWidgetProperty(widget, kPopupItemLengthProperty, static_cast<intptr_t>(span.length));
  XPSetWidgetProperty(widget, xpProperty_Enabled, 1);
}

void DrawArrow(int x, int centre) {
  const MenuColour colour = GetMenuColour(kMenuText);
  const float rgb[3] = {colour.red, colour.green, colour.blue};
  SetFlatDrawing();
  glColor3fv(rgb);
  glBegin(GL_TRIANGLES);
  glVertex2i(x, centre + 3);
  glVertex2i(x + 8, centre + 3);
  glVertex2i(x + 4, centre - 3);
  glEnd();
}

void DrawButtonText(XPWidgetID widget, int left, int right, int centre, bool enabled) {
  auto& shownItems = Popups().shownItems;
  auto shown = shownItems.find(widget);
  if (shown == shownItems.end()) return;
  int fontHeight = 12;
  XPLMGetFontDimensions(xplmFont_Basic, nullptr, &fontHeight, nullptr);
  PopupShownItem& item = shown->second;
  const int textRoom = right - left - kArrowRoom - kTextIndent;
  if (item.fittedWidth != textRoom) {
    item.fittedLength = FittingLength(item.text, textRoom);
    item.fittedWidth = textRoom;
  }
  char text[256];
  const std::size_t length = std::min(item.fittedLength, sizeof text - 1);
  std::memcpy(text, item.text.data(), length);
  text[length] = '\0';
  const MenuColour colour = GetMenuColour(enabled ? kMenuText : kMenuTextDisabled);
  float rgb[3] = {colour.red, colour.green, colour.blue};
  XPLMDrawString(rgb, left + kTextIndent, centre - fontHeight / 2 + 2, text, nullptr, xplmFont_Basic);
}

void DrawPopup(XPWidgetID widget) {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  XPGetWidgetGeometry(widget, &left, &top, &right, &bottom);
  const int centre = (top + bottom) / 2;
  // The property can be written without the change message reaching us: catch up before drawing.
  auto& shownItems = Popups().shownItems;
  auto shown = shownItems.find(widget);
  if (shown == shownItems.end() || shown->second.index != XPGetWidgetProperty(widget, kPopupCurrentItemProperty, nullptr)) {
    UpdateCurrentItem(widget);
  }
  const bool enabled = XPGetWidgetProperty(widget, xpProperty_Enabled, nullptr) != 0;
  if (HasInterfaceTexture()) {
    DrawInterfacePiece(kPopupButtonPiece, left - kButtonOverhang, centre - kButtonHalfHeight, right + kButtonOverhang,
                       centre + kButtonHalfHeight);
    DrawButtonText(widget, left, right, centre, enabled);
  } else {
    XPDrawElement(left, bottom, right, top, xpElement_WindowDragBarSmooth, 0);
    DrawButtonText(widget, left, right, centre, enabled);
    DrawArrow(right - kArrowInset, centre);
  }
}

void AnswerPick(void* refcon, int index) {
  if (index < 0) return;
  XPWidgetID widget = refcon;
  XPSetWidgetProperty(widget, kPopupCurrentItemProperty, index);
  XPSendMessageToWidget(widget, kPopupItemPickedMessage, xpMode_UpChain, reinterpret_cast<intptr_t>(widget), index);
}

void OpenMenuFor(XPWidgetID widget) {
  if (XPGetWidgetProperty(widget, xpProperty_Enabled, nullptr) == 0) return;
  int left = 0;
  int top = 0;
  XPGetWidgetGeometry(widget, &left, &top, nullptr, nullptr);
  const std::string items = WidgetDescriptor(widget);
  const int current = static_cast<int>(XPGetWidgetProperty(widget, kPopupCurrentItemProperty, nullptr));
  OpenPickMenu(left, top, items.c_str(), current, Popups().scrollingMenus, AnswerPick, widget);
}

}  // namespace

int PopupWidthFor(int textWidth) { return std::max(0, textWidth) + kArrowRoom + kTextIndent + kTextMargin; }

int PopupTextRoom(int popupWidth) { return std::max(0, popupWidth - kArrowRoom - kTextIndent - kTextMargin); }

std::string WidgetDescriptor(XPWidgetID widget) {
  const int length = XPGetWidgetDescriptor(widget, nullptr, 0);
  if (length <= 0) return {};
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  XPGetWidgetDescriptor(widget, text.data(), length + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

int PopupListMessage(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t param2) {
  // A click on a pop-up of a window behind others brings the window forward and opens the menu.
  if (XPUSelectIfNeeded(message, widget, param1, param2, 0) != 0) return 1;
  switch (message) {
    case xpMsg_Create:
    case xpMsg_DescriptorChanged:
      UpdateCurrentItem(widget);
      return 1;
    case xpMsg_PropertyChanged:
      if (param1 != kPopupCurrentItemProperty) return 0;
      UpdateCurrentItem(widget);
      return 1;
    case xpMsg_Draw:
      DrawPopup(widget);
      return 1;
    case xpMsg_MouseDown:
      OpenMenuFor(widget);
      return 1;
    case xpMsg_Destroy:
      CancelPickMenu(widget);
      Popups().shownItems.erase(widget);
      return 0;
    default:
      return 0;
  }
}

XPWidgetID CreatePopupList(int left, int top, int right, int bottom, int visible, const char* items,
                           XPWidgetID container, int scrolling) {
  Popups().scrollingMenus = scrolling != 0;
  return XPCreateCustomWidget(left, top, right, bottom, visible, items != nullptr ? items : "", 0, container,
                              PopupListMessage);
}

}  // namespace drav
