#include "ui/AssignDialog.h"

#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "config/Assignments.h"
#include "base/IniFile.h"
#include "base/Numbers.h"
#include "base/Version.h"
#include "hid/ModuleTypes.h"
#include "ui/DialogDeviceList.h"
#include "ui/DialogLayout.h"
#include "ui/DialogRows.h"
#include "ui/FunctionPickLists.h"
#include "ui/ItemList.h"
#include "ui/MenuColours.h"
#include "ui/PopupList.h"
#include "ui/TextMeasure.h"

namespace drav {

namespace {

constexpr const char* kDialogTitle = "Drav " DRAV_VERSION " (MR) : Assign Functions";
constexpr const char* kInitialCaption = "*init*";
constexpr const char* kInitialSliderLabel = "---";
// The dialog is laid out for the screen it was designed on.
constexpr int kDesignScreenWidth = 1024;
constexpr int kDesignScreenHeight = 768;
constexpr int kRowPitch = 20;
constexpr int kSliderPitch = 40;
constexpr int kSliderLabelWidth = 20;

struct FunctionRowWidgets {
  XPWidgetID caption = nullptr;
  XPWidgetID popup = nullptr;
  std::string key;  // empty while the row is unused
};

struct ColourRowWidgets {
  XPWidgetID popup = nullptr;
  std::string key;
};

struct SliderRowWidgets {
  AssignDialogSliderWidgets widgets;
  std::string key;
  bool percent = false;
};

struct DialogState {
  bool open = false;
  XPWidgetID mainWindow = nullptr;
  XPWidgetID devicePopup = nullptr;
  std::vector<DialogDevice> devices;
  int currentDevice = 0;
  std::uint32_t currentType = kModuleNone;
  std::int32_t currentUnit = 0;
  std::string section;
  std::array<FunctionRowWidgets, kDialogFunctionRows> functions;
  std::array<ColourRowWidgets, kDialogColourRows> colours;
  std::array<SliderRowWidgets, kDialogSliderRows> sliders;
};

// Main thread only, like every widget call.
DialogState gDialog;

// ---- the lists a unit's rows need ------------------------------------------------------------------

// Every list a row of the unit can offer, by kind, built once per unit shown.
class UnitLists {
 public:
  explicit UnitLists(std::uint32_t moduleType) {
    Set(PickListKind::kButton, GetButtonFunctionList());
    Set(PickListKind::kButtonWithAltimeterStd, Get(PickListKind::kButton) + "ALTIMETER_SET_STD;");
    Set(PickListKind::kToggle, GetToggleFunctionList());
    Set(PickListKind::kAvionic, GetAvionicFunctionList(moduleType));
    Set(PickListKind::kLever, GetLeverFunctionList());
    Set(PickListKind::kWcp, GetWCPFunctionList());
    for (PickListKind fixed : {PickListKind::kTrim, PickListKind::kGear, PickListKind::kFlap,
                               PickListKind::kFuelFeed, PickListKind::kColour}) {
      Set(fixed, FixedListText(fixed));
    }
  }
  const std::string& Get(PickListKind kind) const { return lists_[static_cast<std::size_t>(kind)]; }

 private:
  void Set(PickListKind kind, std::string list) { lists_[static_cast<std::size_t>(kind)] = std::move(list); }
  std::array<std::string, kPickListKinds> lists_;
};

// ---- reading and writing the unit's section --------------------------------------------------------

std::string ReadSectionValue(const std::string& key, const char* defaultValue) {
  return ReadIniString(kConfigFileName, gDialog.section.c_str(), key.c_str(), defaultValue);
}

void WriteSectionValue(const std::string& key, const char* value) {
  WriteIniValue(kConfigFileName, gDialog.section.c_str(), key.c_str(), value);
}

// A unit unplugged while the dialog is open has no module object: reloading it does nothing.
void ReloadCurrentUnit() {
  if (gDialog.currentUnit < 1) return;
  LoadUnitAssignments(gDialog.currentType, static_cast<std::uint32_t>(gDialog.currentUnit - 1));
}

// ---- callbacks -------------------------------------------------------------------------------------

void SaveItemPicked(XPWidgetID popup, const std::string& key, int index) {
  if (key.empty()) return;
  const std::string item(ItemAt(WidgetDescriptor(popup), index));
  WriteSectionValue(key, IsNoSelectionItem(item) ? "" : item.c_str());
  ReloadCurrentUnit();
}

void DevicePicked(int index);

int OnItemPicked(XPWidgetMessage message, XPWidgetID /*widget*/, intptr_t param1, intptr_t param2) {
  if (message != kPopupItemPickedMessage || !gDialog.open) return 0;
  XPWidgetID popup = reinterpret_cast<XPWidgetID>(param1);
  const int index = static_cast<int>(param2);
  if (popup == gDialog.devicePopup) {
    DevicePicked(index);
    return 1;
  }
  for (const FunctionRowWidgets& row : gDialog.functions) {
    if (row.popup == popup) {
      SaveItemPicked(popup, row.key, index);
      return 1;
    }
  }
  for (const ColourRowWidgets& row : gDialog.colours) {
    if (row.popup == popup) {
      SaveItemPicked(popup, row.key, index);
      return 1;
    }
  }
  return 0;
}

std::string PercentText(int value) {
  char text[16];
  std::snprintf(text, sizeof text, "%d%%", value);
  return text;
}

std::string NumberText(int value) { return std::to_string(value); }

int OnSliderMoved(XPWidgetMessage message, XPWidgetID /*widget*/, intptr_t param1, intptr_t /*param2*/) {
  if (message != xpMsg_ScrollBarSliderPositionChanged || !gDialog.open) return 0;
  XPWidgetID slider = reinterpret_cast<XPWidgetID>(param1);
  for (const SliderRowWidgets& row : gDialog.sliders) {
    if (row.widgets.slider != slider || row.key.empty()) continue;
    const int position = static_cast<int>(XPGetWidgetProperty(slider, xpProperty_ScrollBarSliderPosition, nullptr));
    char value[32];
    if (row.percent) {
      FormatFixed(value, sizeof value, position / 100.0, 1, 2);
    } else {
      std::snprintf(value, sizeof value, "%d", position);
    }
    WriteSectionValue(row.key, value);
    XPSetWidgetDescriptor(row.widgets.valueLabel, row.percent ? PercentText(position).c_str() : value);
    ReloadCurrentUnit();
    return 1;
  }
  return 0;
}

int OnCloseBox(XPWidgetMessage message, XPWidgetID /*widget*/, intptr_t /*param1*/, intptr_t /*param2*/) {
  if (message != xpMessage_CloseButtonPushed) return 0;
  CloseAssignDialog();
  return 1;
}

// ---- filling the rows ------------------------------------------------------------------------------

void ShowWithText(XPWidgetID widget, const char* text) {
  XPSetWidgetDescriptor(widget, text);
  XPShowWidget(widget);
}

void HideWithText(XPWidgetID widget) {
  XPSetWidgetDescriptor(widget, "");
  XPHideWidget(widget);
}

void HideEveryRow() {
  for (FunctionRowWidgets& row : gDialog.functions) {
    HideWithText(row.caption);
    HideWithText(row.popup);
    row.key.clear();
  }
  for (ColourRowWidgets& row : gDialog.colours) {
    HideWithText(row.popup);
    row.key.clear();
  }
  for (SliderRowWidgets& row : gDialog.sliders) {
    for (XPWidgetID widget : {row.widgets.caption, row.widgets.minimumLabel, row.widgets.valueLabel,
                              row.widgets.maximumLabel, row.widgets.slider}) {
      HideWithText(widget);
    }
    row.key.clear();
  }
}

void ShowPopupSelection(XPWidgetID popup, const std::string& list, const std::string& value) {
  ShowWithText(popup, list.c_str());
  XPSetWidgetProperty(popup, kPopupCurrentItemProperty, FindItemBeginningWith(list, value));
}

void FillFunctionRow(const DialogFunctionRow& entry, const std::string& list) {
  if (entry.row < 0 || entry.row >= kDialogFunctionRows) return;
  FunctionRowWidgets& row = gDialog.functions[static_cast<std::size_t>(entry.row)];
  ShowWithText(row.caption, entry.caption);
  ShowPopupSelection(row.popup, list, ReadSectionValue(entry.key, entry.defaultValue));
  row.key = entry.key;
}

void FillColourRow(const DialogFunctionRow& entry, const std::string& list) {
  if (entry.row < 0 || entry.row >= kDialogColourRows) return;
  ColourRowWidgets& row = gDialog.colours[static_cast<std::size_t>(entry.row)];
  ShowPopupSelection(row.popup, list, ReadSectionValue(entry.key, entry.defaultValue));
  row.key = entry.key;
}

void FillSliderRow(const DialogSliderRow& entry) {
  if (entry.row < 0 || entry.row >= kDialogSliderRows) return;
  SliderRowWidgets& row = gDialog.sliders[static_cast<std::size_t>(entry.row)];
  ShowWithText(row.widgets.caption, entry.caption);
  row.key = entry.key;
  row.percent = entry.percent;
  const int value = SliderValue(entry, ReadSectionValue(entry.key, entry.defaultValue).c_str());
  // A value the slider cannot show (a reverse point of -1.0 reads as -100) leaves only the caption.
  if (!SliderValueShown(entry, value)) return;
  auto label = [&entry](int number) { return entry.percent ? PercentText(number) : NumberText(number); };
  ShowWithText(row.widgets.minimumLabel, label(entry.minimum).c_str());
  ShowWithText(row.widgets.valueLabel, label(value).c_str());
  ShowWithText(row.widgets.maximumLabel, label(entry.maximum).c_str());
  XPSetWidgetProperty(row.widgets.slider, xpProperty_ScrollBarMin, entry.minimum);
  XPSetWidgetProperty(row.widgets.slider, xpProperty_ScrollBarMax, entry.maximum);
  XPSetWidgetProperty(row.widgets.slider, xpProperty_ScrollBarSliderPosition, value);
  XPShowWidget(row.widgets.slider);
}

void DevicePicked(int index) {
  gDialog.currentDevice = index;
  if (index < 0 || index >= static_cast<int>(gDialog.devices.size())) return;
  const DialogDevice& device = gDialog.devices[static_cast<std::size_t>(index)];
  ShowDevicePanel(device.moduleType, device.unit);
}

// ---- measuring what the dialog must show -----------------------------------------------------------

// The widest item of each list a row can offer. Only the avionic list differs between models; each
// list is measured once.
class ListWidths {
 public:
  ListWidths() : shared_(kFirstModuleType) { widths_.fill(-1); }
  int Of(PickListKind kind, std::uint32_t moduleType) {
    if (kind == PickListKind::kAvionic) return WidestItemWidth(GetAvionicFunctionList(moduleType));
    int& width = widths_[static_cast<std::size_t>(kind)];
    if (width < 0) width = WidestItemWidth(shared_.Get(kind));
    return width;
  }

 private:
  UnitLists shared_;
  std::array<int, kPickListKinds> widths_;
};

// Every model's captions and lists, whether or not a unit of it is connected: the columns then keep
// one layout whichever unit is picked.
DialogTextWidths MeasureDialogTexts(const std::string& deviceText) {
  DialogTextWidths widths;
  widths.device = WidestItemWidth(deviceText);
  widths.colourItem = WidestItemWidth(FixedListText(PickListKind::kColour));
  ListWidths lists;
  const DialogRowContext context = CurrentDialogRowContext();
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    const DialogModelRows rows = RowsForModel(type, context);
    bool avionicMeasured = false;
    for (const DialogFunctionRow& row : rows.functions) {
      widths.caption = std::max(widths.caption, TextWidth(row.caption));
      if (row.list == PickListKind::kAvionic && avionicMeasured) continue;
      avionicMeasured = avionicMeasured || row.list == PickListKind::kAvionic;
      widths.functionItem = std::max(widths.functionItem, lists.Of(row.list, type));
    }
    for (const DialogSliderRow& row : rows.sliders) widths.caption = std::max(widths.caption, TextWidth(row.caption));
    // A colour pop-up sits in the caption column, after the caption of its row.
    for (const DialogFunctionRow& colour : rows.colours) {
      for (const DialogFunctionRow& row : rows.functions) {
        if (row.row == colour.row) widths.colourCaption = std::max(widths.colourCaption, TextWidth(row.caption));
      }
    }
  }
  return widths;
}

// ---- building the dialog ---------------------------------------------------------------------------

XPWidgetID CreateChild(int left, int top, int right, int bottom, const char* text, XPWidgetClass widgetClass) {
  return XPCreateWidget(left, top, right, bottom, 0, text, 0, gDialog.mainWindow, widgetClass);
}

void CreateColourRows(int left, int top, const DialogColumns& columns) {
  for (int i = 0; i < kDialogColourRows; ++i) {
    const int y = top - 40 - kRowPitch * i;
    XPWidgetID popup = CreatePopupList(left + columns.colourLeft, y, left + columns.colourRight, y - 12, 0, "",
                                       gDialog.mainWindow, 1);
    XPAddWidgetCallback(popup, OnItemPicked);
    gDialog.colours[static_cast<std::size_t>(i)] = {popup, {}};
  }
}

void CreateFunctionRows(int left, int top, const DialogColumns& columns) {
  for (int i = 0; i < kDialogFunctionRows; ++i) {
    const int y = top - 40 - kRowPitch * i;
    FunctionRowWidgets& row = gDialog.functions[static_cast<std::size_t>(i)];
    row.caption = CreateChild(left + columns.captionLeft, y, left + columns.captionRight, y - 12, kInitialCaption,
                              xpWidgetClass_Caption);
    row.popup = CreatePopupList(left + columns.functionLeft, y, left + columns.functionRight, y - 12, 0, "",
                                gDialog.mainWindow, 1);
    XPAddWidgetCallback(row.popup, OnItemPicked);
    row.key.clear();
  }
}

void CreateSliderRows(int left, int top, const DialogColumns& columns) {
  // The value and maximum labels reach "100%"; the minimum ones ("0%", "1") fit the designed 20 px.
  const int labelWidth = std::max(kSliderLabelWidth, TextWidth("100%"));
  for (int j = 0; j < kDialogSliderRows; ++j) {
    const int y = top - 210 - kSliderPitch * j;
    SliderRowWidgets& row = gDialog.sliders[static_cast<std::size_t>(j)];
    row.widgets.caption = CreateChild(left + columns.captionLeft, y, left + columns.captionRight, y - 12,
                                      kInitialCaption, xpWidgetClass_Caption);
    const int shifted = left + columns.sliderShift;  // the slider keeps its place beside the pop-ups
    row.widgets.minimumLabel =
        CreateChild(shifted + 280, y, shifted + 300, y - 12, kInitialSliderLabel, xpWidgetClass_Caption);
    row.widgets.maximumLabel =
        CreateChild(shifted + 460, y, shifted + 460 + labelWidth, y - 12, kInitialSliderLabel, xpWidgetClass_Caption);
    row.widgets.valueLabel = CreateChild(shifted + 370, y - 15, shifted + 370 + labelWidth, y - 27, kInitialSliderLabel,
                                         xpWidgetClass_Caption);
    row.widgets.slider = CreateChild(shifted + 310, y, shifted + 450, y - 12, "", xpWidgetClass_ScrollBar);
    XPSetWidgetProperty(row.widgets.slider, xpProperty_ScrollBarType, xpScrollBarTypeSlider);
    XPSetWidgetProperty(row.widgets.slider, xpProperty_ScrollBarSliderPosition, 50);
    XPSetWidgetProperty(row.widgets.slider, xpProperty_ScrollBarMin, 0);
    XPSetWidgetProperty(row.widgets.slider, xpProperty_ScrollBarMax, 100);
    XPAddWidgetCallback(row.widgets.slider, OnSliderMoved);
    row.key.clear();
    row.percent = false;
  }
}

}  // namespace

bool IsAssignDialogOpen() { return gDialog.open; }

void OpenAssignFunctionsDialog(int width, int height) {
  if (gDialog.open) return;
  const std::vector<DialogDevice> devices = BuildDialogDeviceList(CurrentDialogUnitCounts());
  const std::string deviceText = DeviceListText(devices, CurrentDeviceLabelContext());
  const DialogColumns columns = LayoutDialogColumns(MeasureDialogTexts(deviceText), width);
  width = columns.windowWidth;
  const int left = (kDesignScreenWidth - width) / 2;
  const int top = kDesignScreenHeight - (kDesignScreenHeight - height) / 2;
  gDialog = DialogState{};
  // Handles found in an earlier simulator session must not be used in this one.
  ResetMenuColourLookups();
  gDialog.mainWindow = XPCreateWidget(left, top, left + width, top - height, 1, kDialogTitle, 1, nullptr,
                                      xpWidgetClass_MainWindow);
  if (gDialog.mainWindow == nullptr) return;
  gDialog.open = true;
  XPSetWidgetProperty(gDialog.mainWindow, xpProperty_MainWindowHasCloseBoxes, 1);

  gDialog.devices = devices;
  // The device pop-up is created first: the later ones set the shared scrolling flag.
  gDialog.devicePopup = CreatePopupList(left + columns.deviceLeft, top - 40, left + columns.deviceRight, top - 52, 1,
                                        deviceText.c_str(), gDialog.mainWindow, 0);
  XPAddWidgetCallback(gDialog.devicePopup, OnItemPicked);
  CreateFunctionRows(left, top, columns);
  // After the captions, so that a colour pop-up lies in front of the caption column it sits in.
  CreateColourRows(left, top, columns);
  CreateSliderRows(left, top, columns);
  DevicePicked(0);
  XPAddWidgetCallback(gDialog.mainWindow, OnCloseBox);
}

bool OpenAssignDialog(int width, int height) {
  OpenAssignFunctionsDialog(width, height);
  return gDialog.open;
}

void CloseAssignDialog() {
  if (!gDialog.open) return;
  XPWidgetID mainWindow = gDialog.mainWindow;
  // Cleared first: destroying the widgets must not run the dialog's callbacks on half-gone rows.
  gDialog = DialogState{};
  XPDestroyWidget(mainWindow, 1);
}

void RefreshAssignDialog() {
  if (gDialog.open) DevicePicked(gDialog.currentDevice);
}

void ShowDevicePanel(std::uint32_t moduleType, std::int32_t unit) {
  if (!gDialog.open) return;
  gDialog.currentType = moduleType;
  gDialog.currentUnit = unit;
  gDialog.section = AssignmentSection(moduleType, static_cast<std::uint32_t>(unit > 0 ? unit - 1 : 0));
  const UnitLists lists(moduleType);
  HideEveryRow();
  const DialogModelRows rows = RowsForModel(moduleType, CurrentDialogRowContext());
  for (const DialogFunctionRow& row : rows.functions) FillFunctionRow(row, lists.Get(row.list));
  for (const DialogFunctionRow& row : rows.colours) FillColourRow(row, lists.Get(row.list));
  for (const DialogSliderRow& row : rows.sliders) FillSliderRow(row);
  if (rows.reloadAllWithoutRegistering) LoadTypeAssignments(moduleType, false);
}

bool GetAssignDialogWidgets(AssignDialogWidgets& out) {
  if (!gDialog.open) return false;
  out.mainWindow = gDialog.mainWindow;
  out.devicePopup = gDialog.devicePopup;
  for (int i = 0; i < kDialogFunctionRows; ++i) {
    out.functionCaption[i] = gDialog.functions[static_cast<std::size_t>(i)].caption;
    out.functionPopup[i] = gDialog.functions[static_cast<std::size_t>(i)].popup;
  }
  for (int i = 0; i < kDialogColourRows; ++i) out.colourPopup[i] = gDialog.colours[static_cast<std::size_t>(i)].popup;
  for (int j = 0; j < kDialogSliderRows; ++j) out.sliders[j] = gDialog.sliders[static_cast<std::size_t>(j)].widgets;
  return true;
}

}  // namespace drav
