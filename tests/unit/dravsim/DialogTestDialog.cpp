#include "DialogTestDialog.h"

#include <XPLMDisplay.h>
#include <XPLMGraphics.h>
#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <algorithm>
#include <iterator>
#include <sstream>

#include "dravsim/DialogCommands.h"
#include "dravsim/DialogPopup.h"

namespace dravsim::testing {
namespace {

constexpr int kPicked = 1800;
constexpr int kItemHeight = 12;

drav::AssignDialogWidgets gDialog;
std::vector<std::string> gEvents;
TestDialogOptions gOptions;

// ---- the pop-up's menu window -------------------------------------------------------------------

struct Menu {
  XPLMWindowID window = nullptr;
  XPWidgetID popup = nullptr;
  std::vector<PopupItem> items;
  int offset = 0;
};
Menu gMenu;

int Left() {
  int left = 0;
  XPLMGetWindowGeometry(gMenu.window, &left, nullptr, nullptr, nullptr);
  return left;
}
int Top() {
  int top = 0;
  XPLMGetWindowGeometry(gMenu.window, nullptr, &top, nullptr, nullptr);
  return top;
}

void DrawMenu(XPLMWindowID, void*) {
  float enabled[3] = {0.8f, 0.8f, 0.8f};
  float disabled[3] = {0.4f, 0.4f, 0.4f};
  const int shown = std::min<int>(gOptions.menuPageSize, static_cast<int>(gMenu.items.size()) - gMenu.offset);
  for (int row = 0; row < shown; ++row) {
    const PopupItem& item = gMenu.items[static_cast<std::size_t>(gMenu.offset + row)];
    XPLMDrawString(item.enabled ? enabled : disabled, Left() + 4, Top() - (row + 1) * kItemHeight,
                   item.text.c_str(), nullptr, xplmFont_Basic);
  }
}

void MenuKey(XPLMWindowID, char, XPLMKeyFlags flags, char vkey, void*, int losingFocus) {
  if (losingFocus != 0 || (flags & xplm_DownFlag) == 0) return;
  if (gOptions.pageDownWorks && static_cast<unsigned char>(vkey) == 0x22 &&
      gMenu.offset + gOptions.menuPageSize < static_cast<int>(gMenu.items.size())) {
    gMenu.offset += gOptions.menuPageSize;
  }
}

void CloseMenu() {
  XPLMTakeKeyboardFocus(nullptr);
  XPLMDestroyWindow(gMenu.window);
  gMenu = Menu{};
}

int MenuMouse(XPLMWindowID, int, int y, XPLMMouseStatus status, void*) {
  if (status != xplm_MouseUp) return 1;
  const int row = (Top() - y) / kItemHeight;
  const int index = gMenu.offset + row;
  const XPWidgetID popup = gMenu.popup;
  const bool pickable = row >= 0 && row < gOptions.menuPageSize &&
                        index < static_cast<int>(gMenu.items.size()) &&
                        gMenu.items[static_cast<std::size_t>(index)].enabled;
  CloseMenu();
  if (!pickable) return 1;
  XPSetWidgetProperty(popup, kPicked, index);
  XPSendMessageToWidget(popup, kPicked, xpMode_UpChain, reinterpret_cast<intptr_t>(popup), index);
  return 1;
}

void OpenMenu(XPWidgetID popup) {
  if (gMenu.window != nullptr) CloseMenu();
  char text[4096] = {};
  XPGetWidgetDescriptor(popup, text, sizeof text - 1);
  int left = 0, top = 0;
  XPGetWidgetGeometry(popup, &left, &top, nullptr, nullptr);
  gMenu.popup = popup;
  gMenu.items = SplitPopupItems(text);
  const int rows = std::min<int>(gOptions.menuPageSize, static_cast<int>(gMenu.items.size()));
  gMenu.window = XPLMCreateWindow(left, top, left + 200, top - rows * kItemHeight - 4, 1, DrawMenu,
                                  MenuKey, MenuMouse, nullptr);
  XPLMTakeKeyboardFocus(gMenu.window);
}

// ---- the pop-up widget --------------------------------------------------------------------------

int PopupFunction(XPWidgetMessage message, XPWidgetID widget, intptr_t, intptr_t) {
  if (message == xpMsg_MouseDown) {
    OpenMenu(widget);
    return 1;
  }
  if (message == xpMsg_Draw) {
    const auto snapshot = sim::SimHost::Current().DescribeWidget(widget);
    float colour[3] = {0.8f, 0.8f, 0.8f};
    XPLMDrawString(colour, snapshot->geometry.left + 4, snapshot->geometry.bottom + 2,
                   ShownPopupItem(*snapshot).c_str(), nullptr, xplmFont_Basic);
    return 1;
  }
  return 0;
}

XPWidgetID Popup(int left, int top, int right, int bottom, bool visible, const char* items,
                 XPWidgetID window) {
  return XPCreateCustomWidget(left, top, right, bottom, visible ? 1 : 0, items, 0, window, PopupFunction);
}

XPWidgetID Caption(int left, int top, int right, int bottom, bool visible, const char* text,
                   XPWidgetID window) {
  return XPCreateWidget(left, top, right, bottom, visible ? 1 : 0, text, 0, window, xpWidgetClass_Caption);
}

// ---- the dialog's callbacks ---------------------------------------------------------------------

template <typename Array>
int RowOf(const Array& widgets, intptr_t widget) {
  for (std::size_t i = 0; i < std::size(widgets); ++i) {
    if (reinterpret_cast<intptr_t>(widgets[i]) == widget) return static_cast<int>(i);
  }
  return -1;
}

int DialogCallback(XPWidgetMessage message, XPWidgetID, intptr_t param1, intptr_t param2) {
  if (message == xpMessage_CloseButtonPushed) {
    gEvents.push_back("close");
    XPDestroyWidget(gDialog.mainWindow, 1);
    gDialog = drav::AssignDialogWidgets{};
    return 1;
  }
  if (message == kPicked) {
    std::ostringstream event;
    if (reinterpret_cast<intptr_t>(gDialog.devicePopup) == param1) {
      event << "device " << param2;
    } else if (const int row = RowOf(gDialog.functionPopup, param1); row >= 0) {
      event << "pick " << row << " " << param2;
    } else {
      event << "colour " << RowOf(gDialog.colourPopup, param1) << " " << param2;
    }
    gEvents.push_back(event.str());
    return 1;
  }
  if (message == xpMsg_ScrollBarSliderPositionChanged) {
    const int row = 0;  // the one slider row this dialog has
    const intptr_t position =
        XPGetWidgetProperty(gDialog.sliders[row].slider, xpProperty_ScrollBarSliderPosition, nullptr);
    XPSetWidgetDescriptor(gDialog.sliders[row].valueLabel, (std::to_string(position) + "%").c_str());
    gEvents.push_back("slider " + std::to_string(row) + " " + std::to_string(position));
    return 1;
  }
  return 0;
}

bool Source(drav::AssignDialogWidgets& out) {
  if (gDialog.mainWindow == nullptr) return false;
  out = gDialog;
  return true;
}

}  // namespace

void OpenTestDialog(const TestDialogOptions& options) {
  if (gDialog.mainWindow != nullptr) XPDestroyWidget(gDialog.mainWindow, 1);
  gMenu = Menu{};
  gEvents.clear();
  gOptions = options;
  gDialog = drav::AssignDialogWidgets{};
  const int left = 187, top = 709;
  XPWidgetID window = XPCreateWidget(left, top, left + 650, top - 650, 1,
                                     "Test : Assign Functions", 1, nullptr, xpWidgetClass_MainWindow);
  XPSetWidgetProperty(window, xpProperty_MainWindowHasCloseBoxes, 1);
  gDialog.mainWindow = window;
  gDialog.devicePopup =
      Popup(left + 10, top - 40, left + 130, top - 52, true, "GF-46 Unit 1;GF-P8 Unit 1;", window);
  for (int i = 0; i < drav::kDialogFunctionRows; ++i) {
    const int y = top - 40 - 20 * i;
    gDialog.colourPopup[i] = Popup(left + 230, y, left + 300, y - 12, false, "", window);
    gDialog.functionCaption[i] = Caption(left + 150, y, left + 250, y - 12, false, "", window);
    gDialog.functionPopup[i] = Popup(left + 310, y, left + 610, y - 12, false, "", window);
  }
  XPSetWidgetDescriptor(gDialog.functionCaption[0], "Button 1");
  XPSetWidgetDescriptor(gDialog.functionPopup[0],
                        "No Selection;-;(DISABLED_ONE;AP_LNAV;COM1_STANDBY;AP_LNAV;");
  XPSetWidgetDescriptor(gDialog.functionCaption[1], "Button 2 & <more>");
  std::string longList = "No Selection;";
  for (int i = 1; i <= 60; ++i) longList += "ITEM_" + std::to_string(i) + ";";
  XPSetWidgetDescriptor(gDialog.functionPopup[1], longList.c_str());
  for (int i = 0; i < 2; ++i) {
    XPShowWidget(gDialog.functionCaption[i]);
    XPShowWidget(gDialog.functionPopup[i]);
  }
  XPSetWidgetDescriptor(gDialog.colourPopup[0], "BLACK;WHITE;RED;");
  XPShowWidget(gDialog.colourPopup[0]);

  for (int j = 0; j < drav::kDialogSliderRows; ++j) {
    const int y = top - 210 - 40 * j;
    const bool shown = j == 0;
    drav::AssignDialogSliderWidgets& row = gDialog.sliders[j];
    row.caption = Caption(left + 150, y, left + 250, y - 12, shown, shown ? "Thrust Rev Max" : "", window);
    row.minimumLabel = Caption(left + 280, y, left + 300, y - 12, shown, shown ? "0%" : "", window);
    row.maximumLabel = Caption(left + 460, y, left + 480, y - 12, shown, shown ? "100%" : "", window);
    row.valueLabel = Caption(left + 370, y - 15, left + 390, y - 27, shown, shown ? "60%" : "", window);
    row.slider = XPCreateWidget(left + 310, y, left + 450, y - 12, shown ? 1 : 0, "", 0, window,
                                xpWidgetClass_ScrollBar);
    XPSetWidgetProperty(row.slider, xpProperty_ScrollBarType, xpScrollBarTypeSlider);
    XPSetWidgetProperty(row.slider, xpProperty_ScrollBarMin, 0);
    XPSetWidgetProperty(row.slider, xpProperty_ScrollBarMax, 100);
    XPSetWidgetProperty(row.slider, xpProperty_ScrollBarSliderPosition, 60);
  }
  XPAddWidgetCallback(window, DialogCallback);
  SetDialogWidgetSource(Source);
}

void ForgetTestDialog() {
  SetDialogWidgetSource(nullptr);
  gDialog = drav::AssignDialogWidgets{};
  gMenu = Menu{};
}

const drav::AssignDialogWidgets& TestDialog() { return gDialog; }

std::vector<std::string>& TestDialogEvents() { return gEvents; }

}  // namespace dravsim::testing
