// The Assign Functions dialog, opened from the plug-in's menu. The host opens it and closes it when
// what it shows goes stale (x737 messages, panels taken over by another plug-in).
#pragma once

#include "XPWidgetDefs.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "config/AircraftProfile.h"
#include "hid/ModuleTypes.h"
#include "ui/DialogDeviceList.h"

namespace drav {

inline constexpr int kDialogFunctionRows = 30;
inline constexpr int kDialogColourRows = 30;
inline constexpr int kDialogSliderRows = 4;

bool IsAssignDialogOpen();
// Opens the dialog at that size unless it is already open. Returns whether a dialog is open after.
bool OpenAssignDialog(int width, int height);
// Destroys the dialog with its widgets, if it is open.
void CloseAssignDialog();

// Fills the open dialog's rows again from DRAV.INI, for the unit it shows (after a reload).
void RefreshAssignDialog();

// The same opening under its documented name: the menu opens the dialog at 650 x 650.
void OpenAssignFunctionsDialog(int width, int height);
// Fills the rows for one unit (counted from 1) of the open dialog; nothing while it is closed.
void ShowDevicePanel(std::uint32_t moduleType, std::int32_t unit);

// The widgets of the open dialog, for the test driver, which acts on them as a pilot would (clicks,
// slider drags) and reads what they show. Null handles when the dialog is closed.
struct AssignDialogSliderWidgets {
  XPWidgetID caption = nullptr;
  XPWidgetID minimumLabel = nullptr;
  XPWidgetID valueLabel = nullptr;
  XPWidgetID maximumLabel = nullptr;
  XPWidgetID slider = nullptr;
};
struct AssignDialogWidgets {
  XPWidgetID mainWindow = nullptr;
  XPWidgetID devicePopup = nullptr;
  XPWidgetID profileCaption = nullptr;  // where the unit's assignments come from
  XPWidgetID savePopup = nullptr;       // where a pick is saved: this aircraft or all aircraft
  XPWidgetID functionCaption[kDialogFunctionRows] = {};
  XPWidgetID functionPopup[kDialogFunctionRows] = {};
  XPWidgetID colourPopup[kDialogColourRows] = {};
  AssignDialogSliderWidgets sliders[kDialogSliderRows] = {};
};
// False (and `out` untouched) while the dialog is closed.
bool GetAssignDialogWidgets(AssignDialogWidgets& out);

// What the open dialog holds (UiState::dialog). Main thread only, like every widget call.
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

struct AssignDialogState {
  bool open = false;
  XPWidgetID mainWindow = nullptr;
  XPWidgetID devicePopup = nullptr;
  XPWidgetID profileCaption = nullptr;
  XPWidgetID saveCaption = nullptr;
  XPWidgetID savePopup = nullptr;
  ProfileFile saveTo = ProfileFile::kAllAircraft;
  bool unitHasRows = false;  // a unit without rows (N/A, DSBLD, the GF-DIO) has nothing to save
  std::vector<DialogDevice> devices;
  int currentDevice = 0;
  std::uint32_t currentType = kModuleNone;
  std::int32_t currentUnit = 0;
  std::string section;
  std::array<FunctionRowWidgets, kDialogFunctionRows> functions;
  std::array<ColourRowWidgets, kDialogColourRows> colours;
  std::array<SliderRowWidgets, kDialogSliderRows> sliders;
  // The field in which a value is typed, laid over the row's pop-up while it is typed.
  XPWidgetID valueField = nullptr;
  XPWidgetID typingPopup = nullptr;
  std::string typingKey;  // empty while nothing is typed
};

}  // namespace drav
