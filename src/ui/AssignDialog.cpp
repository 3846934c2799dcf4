#include "ui/AssignDialog.h"

#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "config/AircraftProfile.h"
#include "config/Assignments.h"
#include "base/IniFile.h"
#include "base/Numbers.h"
#include "base/Version.h"
#include "functions/CustomBindingSyntax.h"
#include "hid/ModuleTypes.h"
#include "ui/DialogDeviceList.h"
#include "ui/DialogLayout.h"
#include "ui/CustomRowItem.h"
#include "ui/DialogRows.h"
#include "ui/FunctionPickLists.h"
#include "ui/ItemList.h"
#include "ui/MenuColours.h"
#include "ui/PopupList.h"
#include "ui/TextMeasure.h"
#include "ui/UiState.h"

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

// Where a unit's assignments come from, and where a pick goes, by ProfileFile (all aircraft first).
// They fit the designed device column, below the device pop-up.
constexpr const char* kProfileCaptions[] = {"From all aircraft", "From this aircraft"};
constexpr const char* kSaveCaption = "Save picks for:";
constexpr const char* kSaveItems = "all aircraft;this aircraft;";

AssignDialogState& Dialog() { return CurrentUiState().dialog; }

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

void ShowWithText(XPWidgetID widget, const char* text);
void HideWithText(XPWidgetID widget);

std::string ReadSectionValue(const std::string& key, const char* defaultValue) {
  return ReadProfileValue(Dialog().section, key, defaultValue);
}

// The first pick saved for this aircraft takes the unit's other stored values with it: once the
// aircraft's file holds the section, the plug-in's section is no longer read for the unit.
bool CopySectionToAircraft() {
  const std::string from = ProfilePath(ProfileFile::kAllAircraft);
  const std::string to = ProfilePath(ProfileFile::kThisAircraft);
  auto copy = [&](const std::string& key) {
    char value[kIniValueSize];
    if (key.empty() || !ReadIniValueAtPath(from, Dialog().section.c_str(), key.c_str(), value, "")) return true;
    return WriteIniValueAtPath(to, Dialog().section.c_str(), key.c_str(), value);
  };
  for (const FunctionRowWidgets& row : Dialog().functions) if (!copy(row.key)) return false;
  for (const ColourRowWidgets& row : Dialog().colours) if (!copy(row.key)) return false;
  for (const SliderRowWidgets& row : Dialog().sliders) if (!copy(row.key)) return false;
  return true;
}

void ShowProfile() {
  if (AircraftProfilePath().empty() || Dialog().currentUnit < 1 || !Dialog().unitHasRows) {
    HideWithText(Dialog().profileCaption);
    HideWithText(Dialog().saveCaption);
    HideWithText(Dialog().savePopup);
    return;
  }
  ShowWithText(Dialog().profileCaption, kProfileCaptions[static_cast<int>(SectionProfile(Dialog().section))]);
  ShowWithText(Dialog().saveCaption, kSaveCaption);
  ShowWithText(Dialog().savePopup, kSaveItems);
  XPSetWidgetProperty(Dialog().savePopup, kPopupCurrentItemProperty, static_cast<int>(Dialog().saveTo));
}

// Nothing reaches an aircraft's folder unless the pilot chose this aircraft.
void WriteSectionValue(const std::string& key, const char* value) {
  const bool toAircraft = Dialog().saveTo == ProfileFile::kThisAircraft && !AircraftProfilePath().empty();
  if (toAircraft && SectionProfile(Dialog().section) == ProfileFile::kAllAircraft && !CopySectionToAircraft()) return;
  const ProfileFile file = toAircraft ? ProfileFile::kThisAircraft : ProfileFile::kAllAircraft;
  WriteIniValueAtPath(ProfilePath(file), Dialog().section.c_str(), key.c_str(), value);
  ShowProfile();
}

// A unit unplugged while the dialog is open has no module object: reloading it does nothing.
void ReloadCurrentUnit() {
  if (Dialog().currentUnit < 1) return;
  LoadUnitAssignments(Dialog().currentType, static_cast<std::uint32_t>(Dialog().currentUnit - 1));
}

// ---- typing a value ----------------------------------------------------------------------------

constexpr char kReturnKey = 13;
constexpr char kEscapeKey = 27;

void StopTyping() {
  if (Dialog().valueField != nullptr) {
    XPLoseKeyboardFocus(Dialog().valueField);
    XPHideWidget(Dialog().valueField);
  }
  if (Dialog().typingPopup != nullptr) XPShowWidget(Dialog().typingPopup);
  Dialog().typingPopup = nullptr;
  Dialog().typingKey.clear();
}

// The field takes the pop-up's place with the row's value in it, ready for the keyboard.
void StartTyping(XPWidgetID popup, const std::string& key) {
  if (Dialog().valueField == nullptr) return;
  StopTyping();
  int left = 0, top = 0, right = 0, bottom = 0;
  XPGetWidgetGeometry(popup, &left, &top, &right, &bottom);
  XPSetWidgetGeometry(Dialog().valueField, left, top, right, bottom);
  XPSetWidgetDescriptor(Dialog().valueField, ReadSectionValue(key, "").c_str());
  XPHideWidget(popup);
  XPShowWidget(Dialog().valueField);
  XPSetKeyboardFocus(Dialog().valueField);
  Dialog().typingPopup = popup;
  Dialog().typingKey = key;
}

// Return stores what was typed, as a pick stores its item, and shows the unit again; Escape leaves
// the row as it was. Every other key is the field's.
int OnValueFieldKey(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t /*param2*/) {
  if (message != xpMsg_KeyPress || !Dialog().open || Dialog().typingKey.empty()) return 0;
  const auto& key = *reinterpret_cast<const XPKeyState_t*>(param1);
  if ((key.flags & xplm_DownFlag) == 0) return 0;
  if (key.key == kEscapeKey) {
    StopTyping();
    return 1;
  }
  if (key.key != kReturnKey) return 0;
  WriteSectionValue(Dialog().typingKey, WidgetDescriptor(widget).c_str());
  StopTyping();
  ReloadCurrentUnit();
  ShowDevicePanel(Dialog().currentType, Dialog().currentUnit);
  return 1;
}

// ---- callbacks -------------------------------------------------------------------------------------

void SaveItemPicked(XPWidgetID popup, const std::string& key, int index) {
  if (key.empty()) return;
  const std::string item(ItemAt(WidgetDescriptor(popup), index));
  if (IsCustomRowItem(item)) return;  // the value in the file stays as the pilot wrote it
  if (item == kTypeValueItem) {
    StartTyping(popup, key);
    return;
  }
  WriteSectionValue(key, IsNoSelectionItem(item) ? "" : item.c_str());
  ReloadCurrentUnit();
}

void DevicePicked(int index);

int OnItemPicked(XPWidgetMessage message, XPWidgetID /*widget*/, intptr_t param1, intptr_t param2) {
  if (message != kPopupItemPickedMessage || !Dialog().open) return 0;
  XPWidgetID popup = reinterpret_cast<XPWidgetID>(param1);
  const int index = static_cast<int>(param2);
  if (popup == Dialog().devicePopup) {
    DevicePicked(index);
    return 1;
  }
  if (popup == Dialog().savePopup) {
    // The items are in ProfileFile's order.
    Dialog().saveTo = index == static_cast<int>(ProfileFile::kThisAircraft) ? ProfileFile::kThisAircraft
                                                                            : ProfileFile::kAllAircraft;
    return 1;
  }
  for (const FunctionRowWidgets& row : Dialog().functions) {
    if (row.popup == popup) {
      SaveItemPicked(popup, row.key, index);
      return 1;
    }
  }
  for (const ColourRowWidgets& row : Dialog().colours) {
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
  if (message != xpMsg_ScrollBarSliderPositionChanged || !Dialog().open) return 0;
  XPWidgetID slider = reinterpret_cast<XPWidgetID>(param1);
  for (const SliderRowWidgets& row : Dialog().sliders) {
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
  StopTyping();
  for (FunctionRowWidgets& row : Dialog().functions) {
    HideWithText(row.caption);
    HideWithText(row.popup);
    row.key.clear();
  }
  for (ColourRowWidgets& row : Dialog().colours) {
    HideWithText(row.popup);
    row.key.clear();
  }
  for (SliderRowWidgets& row : Dialog().sliders) {
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
  FunctionRowWidgets& row = Dialog().functions[static_cast<std::size_t>(entry.row)];
  ShowWithText(row.caption, entry.caption);
  const std::string value = ReadSectionValue(entry.key, entry.defaultValue);
  const std::string typable = list + kTypeValueItem + ";";
  if (IsCustomBindingValue(value.c_str())) {
    int left = 0;
    int right = 0;
    XPGetWidgetGeometry(row.popup, &left, nullptr, &right, nullptr);
    const CustomRowList custom = WithCustomRowItem(typable, value, PopupTextRoom(right - left));
    ShowWithText(row.popup, custom.list.c_str());
    XPSetWidgetProperty(row.popup, kPopupCurrentItemProperty, custom.selected);
  } else {
    ShowPopupSelection(row.popup, typable, value);
  }
  row.key = entry.key;
}

void FillColourRow(const DialogFunctionRow& entry, const std::string& list) {
  if (entry.row < 0 || entry.row >= kDialogColourRows) return;
  ColourRowWidgets& row = Dialog().colours[static_cast<std::size_t>(entry.row)];
  ShowPopupSelection(row.popup, list, ReadSectionValue(entry.key, entry.defaultValue));
  row.key = entry.key;
}

void FillSliderRow(const DialogSliderRow& entry) {
  if (entry.row < 0 || entry.row >= kDialogSliderRows) return;
  SliderRowWidgets& row = Dialog().sliders[static_cast<std::size_t>(entry.row)];
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
  Dialog().currentDevice = index;
  if (index < 0 || index >= static_cast<int>(Dialog().devices.size())) return;
  const DialogDevice& device = Dialog().devices[static_cast<std::size_t>(index)];
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
  // The profile's captions are no pop-up: they need no room for an arrow.
  const int profileCaption = std::max({TextWidth(kProfileCaptions[0]), TextWidth(kProfileCaptions[1]),
                                       TextWidth(kSaveCaption)});
  widths.device = std::max({WidestItemWidth(deviceText), WidestItemWidth(kSaveItems),
                            profileCaption - PopupWidthFor(0)});
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
  return XPCreateWidget(left, top, right, bottom, 0, text, 0, Dialog().mainWindow, widgetClass);
}

void CreateColourRows(int left, int top, const DialogColumns& columns) {
  for (int i = 0; i < kDialogColourRows; ++i) {
    const int y = top - 40 - kRowPitch * i;
    XPWidgetID popup = CreatePopupList(left + columns.colourLeft, y, left + columns.colourRight, y - 12, 0, "",
                                       Dialog().mainWindow, 1);
    XPAddWidgetCallback(popup, OnItemPicked);
    Dialog().colours[static_cast<std::size_t>(i)] = {popup, {}};
  }
}

void CreateFunctionRows(int left, int top, const DialogColumns& columns) {
  for (int i = 0; i < kDialogFunctionRows; ++i) {
    const int y = top - 40 - kRowPitch * i;
    FunctionRowWidgets& row = Dialog().functions[static_cast<std::size_t>(i)];
    row.caption = CreateChild(left + columns.captionLeft, y, left + columns.captionRight, y - 12, kInitialCaption,
                              xpWidgetClass_Caption);
    row.popup = CreatePopupList(left + columns.functionLeft, y, left + columns.functionRight, y - 12, 0, "",
                                Dialog().mainWindow, 1);
    XPAddWidgetCallback(row.popup, OnItemPicked);
    row.key.clear();
  }
}

// Hidden until a row's "type a value" item is picked; it then lies over that row's pop-up. A value
// is one line of DRAV.INI.
void CreateValueField() {
  Dialog().valueField = XPCreateWidget(0, 0, 0, 0, 0, "", 0, Dialog().mainWindow, xpWidgetClass_TextField);
  XPSetWidgetProperty(Dialog().valueField, xpProperty_TextFieldType, xpTextEntryField);
  XPSetWidgetProperty(Dialog().valueField, xpProperty_MaxCharacters, kIniValueSize - 1);
  XPAddWidgetCallback(Dialog().valueField, OnValueFieldKey);
}

void CreateSliderRows(int left, int top, const DialogColumns& columns) {
  // The value and maximum labels reach "100%"; the minimum ones ("0%", "1") fit the designed 20 px.
  const int labelWidth = std::max(kSliderLabelWidth, TextWidth("100%"));
  for (int j = 0; j < kDialogSliderRows; ++j) {
    const int y = top - 210 - kSliderPitch * j;
    SliderRowWidgets& row = Dialog().sliders[static_cast<std::size_t>(j)];
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

bool IsAssignDialogOpen() { return Dialog().open; }

void OpenAssignFunctionsDialog(int width, int height) {
  if (Dialog().open) return;
  const std::vector<DialogDevice> devices = BuildDialogDeviceList(CurrentDialogUnitCounts());
  const std::string deviceText = DeviceListText(devices, CurrentDeviceLabelContext());
  const DialogColumns columns = LayoutDialogColumns(MeasureDialogTexts(deviceText), width);
  width = columns.windowWidth;
  const int left = (kDesignScreenWidth - width) / 2;
  const int top = kDesignScreenHeight - (kDesignScreenHeight - height) / 2;
  Dialog() = AssignDialogState{};
  Dialog().mainWindow = XPCreateWidget(left, top, left + width, top - height, 1, kDialogTitle, 1, nullptr,
                                      xpWidgetClass_MainWindow);
  if (Dialog().mainWindow == nullptr) return;
  Dialog().open = true;
  XPSetWidgetProperty(Dialog().mainWindow, xpProperty_MainWindowHasCloseBoxes, 1);

  Dialog().devices = devices;
  // The device pop-up is created first: the later ones set the shared scrolling flag.
  Dialog().devicePopup = CreatePopupList(left + columns.deviceLeft, top - 40, left + columns.deviceRight, top - 52, 1,
                                        deviceText.c_str(), Dialog().mainWindow, 0);
  XPAddWidgetCallback(Dialog().devicePopup, OnItemPicked);
  Dialog().profileCaption = CreateChild(left + columns.deviceLeft, top - 60, left + columns.deviceRight, top - 72, "",
                                       xpWidgetClass_Caption);
  Dialog().saveCaption = CreateChild(left + columns.deviceLeft, top - 80, left + columns.deviceRight, top - 92, "",
                                    xpWidgetClass_Caption);
  Dialog().savePopup = CreatePopupList(left + columns.deviceLeft, top - 100, left + columns.deviceRight, top - 112, 0,
                                      kSaveItems, Dialog().mainWindow, 1);
  XPAddWidgetCallback(Dialog().savePopup, OnItemPicked);
  CreateFunctionRows(left, top, columns);
  // After the captions, so that a colour pop-up lies in front of the caption column it sits in.
  CreateColourRows(left, top, columns);
  CreateSliderRows(left, top, columns);
  CreateValueField();
  DevicePicked(0);
  XPAddWidgetCallback(Dialog().mainWindow, OnCloseBox);
}

bool OpenAssignDialog(int width, int height) {
  OpenAssignFunctionsDialog(width, height);
  return Dialog().open;
}

void CloseAssignDialog() {
  if (!Dialog().open) return;
  XPWidgetID mainWindow = Dialog().mainWindow;
  // Cleared first: destroying the widgets must not run the dialog's callbacks on half-gone rows.
  Dialog() = AssignDialogState{};
  XPDestroyWidget(mainWindow, 1);
}

void RefreshAssignDialog() {
  if (Dialog().open) DevicePicked(Dialog().currentDevice);
}

void ShowDevicePanel(std::uint32_t moduleType, std::int32_t unit) {
  if (!Dialog().open) return;
  Dialog().currentType = moduleType;
  Dialog().currentUnit = unit;
  Dialog().section = AssignmentSection(moduleType, static_cast<std::uint32_t>(unit > 0 ? unit - 1 : 0));
  const UnitLists lists(moduleType);
  HideEveryRow();
  const DialogModelRows rows = RowsForModel(moduleType, CurrentDialogRowContext());
  Dialog().saveTo = SectionProfile(Dialog().section);  // a pick goes where the unit's section already is
  Dialog().unitHasRows = !rows.functions.empty() || !rows.sliders.empty();
  ShowProfile();
  for (const DialogFunctionRow& row : rows.functions) FillFunctionRow(row, lists.Get(row.list));
  for (const DialogFunctionRow& row : rows.colours) FillColourRow(row, lists.Get(row.list));
  for (const DialogSliderRow& row : rows.sliders) FillSliderRow(row);
  if (rows.reloadAllWithoutRegistering) LoadTypeAssignments(moduleType, false);
}

bool GetAssignDialogWidgets(AssignDialogWidgets& out) {
  if (!Dialog().open) return false;
  out.mainWindow = Dialog().mainWindow;
  out.devicePopup = Dialog().devicePopup;
  out.profileCaption = Dialog().profileCaption;
  out.savePopup = Dialog().savePopup;
  for (int i = 0; i < kDialogFunctionRows; ++i) {
    out.functionCaption[i] = Dialog().functions[static_cast<std::size_t>(i)].caption;
    out.functionPopup[i] = Dialog().functions[static_cast<std::size_t>(i)].popup;
  }
  for (int i = 0; i < kDialogColourRows; ++i) out.colourPopup[i] = Dialog().colours[static_cast<std::size_t>(i)].popup;
  for (int j = 0; j < kDialogSliderRows; ++j) out.sliders[j] = Dialog().sliders[static_cast<std::size_t>(j)].widgets;
  return true;
}

}  // namespace drav
