// The stand-ins X-Plane 12 offers, one row per original name (or per use of it, where one dataref
// served several functions with different values). Every name here is checked against X-Plane
// 12.1's own lists of datarefs and commands.
#include "functions/SimulatorEquivalents.h"

#include <XPLMDataAccess.h>

#include <array>
#include <iterator>
#include <string_view>

#include "functions/DatarefBinding.h"
#include "functions/SwitchBindingTable.h"
#include "base/HostState.h"
#include "base/OptionalXplmApi.h"

namespace drav {

namespace {

constexpr int kFirstVersionWithEquivalents = 12000;

using D = EquivalentDrive;
constexpr float kAny = kAnyOnValue;
constexpr std::int32_t kEq = kReadEqual;
constexpr std::int32_t kAtLeast = kReadAtLeast;
constexpr const char* kHsiSource = "sim/cockpit2/radios/actuators/HSI_source_select_pilot";

// Columns: original, its on value, drive, dataref, value type, elements, light on value, light
// rule, command.
//
// The approach selector chose which receiver the autopilot flies; X-Plane 12 takes that from the
// pilot's HSI source (0 NAV 1, 1 NAV 2), which its commands select. Heading mode 14 was GPS
// steering, a mode X-Plane 12 toggles with one command and reports as armed (1) or captured (2).
// The warning lights read the simulator's annunciators, which X-Plane 12 computes itself: the
// no-smoking and seat-belt signs follow their switches, so a press sets the switch; the GPWS and
// gear warnings have nothing a plug-in may set, and the lamp test is the simulator's own command.
constexpr SimEquivalent kSimEquivalents[] = {
    {"sim/cockpit/autopilot/approach_selector", 20, D::kPressCommand, kHsiSource, kIntScalar, 1, 0, kEq,
     "sim/autopilot/hsi_select_nav_1"},
    {"sim/cockpit/autopilot/approach_selector", 21, D::kPressCommand, kHsiSource, kIntScalar, 1, 1, kEq,
     "sim/autopilot/hsi_select_nav_2"},
    {"sim/cockpit/autopilot/heading_mode", 14, D::kToggleCommand, "sim/cockpit2/autopilot/gpss_status", kIntScalar,
     1, 1, kAtLeast, "sim/autopilot/gpss"},
    {"sim/cockpit/warnings/annunciator_test_pressed", kAny, D::kHoldCommand, nullptr, kIntScalar, 1, 1, kEq,
     "sim/annunciator/test_all_annunciators"},
    {"sim/cockpit2/annunciators/GPWS", kAny, D::kLightOnly, nullptr, kIntScalar, 1, 0, kEq, nullptr},
    {"sim/cockpit2/annunciators/gear_warning", kAny, D::kLightOnly, nullptr, kIntScalar, 1, 0, kEq, nullptr},
    {"sim/cockpit2/annunciators/no_smoking", kAny, D::kWriteElsewhere, "sim/cockpit2/switches/no_smoking",
     kIntScalar, 1, 0, kEq, nullptr},
    {"sim/cockpit2/annunciators/fasten_seatbelt", kAny, D::kWriteElsewhere, "sim/cockpit2/switches/fasten_seat_belts",
     kIntScalar, 1, 0, kEq, nullptr},
    {"sim/cockpit/switches/EFIFS_shows_weather", kAny, D::kDataref, "sim/cockpit/switches/EFIS_shows_weather",
     kIntScalar, 1, 0, kEq, nullptr},
    // One switch for the aircraft becomes the per-engine switch of every engine X-Plane 12 has.
    {"sim/cockpit/switches/anti_ice_auto_ignite", kAny, D::kDataref, "sim/cockpit2/engine/actuators/auto_ignite_on",
     kIntArray, 16, 0, kEq, nullptr},
    // The navigation display's map (1) or HSI (0) mode, which X-Plane 12 keeps the other way round.
    {"sim/cockpit/switches/EFIS_map_mode", kAny, D::kInvertedFlag, "sim/cockpit2/EFIS/map_mode_is_HSI", kIntScalar, 1,
     0, kEq, nullptr},
    // X-Plane 12 keeps no rotor trim value a plug-in can set, only the commands that trim it.
    {"sim/flightmodel/controls/rot_trim", kAny, D::kStepCommands, nullptr, kFloatScalar, 1, 0, kEq,
     "sim/flight_controls/gyro_rotor_trim_up", "sim/flight_controls/gyro_rotor_trim_down"},
    {"sim/weather/speed_sound_ms", kAny, D::kDataref, "sim/weather/aircraft/speed_sound_ms", kFloatScalar, 1, 0, kEq,
     nullptr},
};

constexpr auto kOriginalNames = [] {
  std::array<std::string_view, std::size(kSimEquivalents)> names{};
  for (std::size_t row = 0; row < names.size(); ++row) names[row] = kSimEquivalents[row].original;
  return names;
}();

bool IsCommandDrive(EquivalentDrive drive) {
  return drive == D::kPressCommand || drive == D::kToggleCommand || drive == D::kHoldCommand ||
         drive == D::kStepCommands;
}

bool SimulatorHasEquivalent(const SimEquivalent& row) {
  if (IsCommandDrive(row.drive)) return FindOptionalCommand(row.command) != nullptr;
  if (row.drive == D::kLightOnly) return true;
  return XPLMFindDataRef(row.path) != nullptr;
}

// An older simulator keeps the original where it has it, and lets a plug-in write it where the
// function writes.
bool OriginalServes(const char* original, bool written) {
  const XPLMDataRef handle = XPLMFindDataRef(original);
  return handle != nullptr && (!written || XPLMCanWriteDataRef(handle) != 0);
}

const SimEquivalent* Choose(const char* original, float originalOn, bool written) {
  const SimEquivalent* row = FindSimEquivalent(original, originalOn);
  if (row == nullptr || !SimulatorHasEquivalent(*row)) return nullptr;
  if (CurrentSimulatorVersions().xplaneVersion >= kFirstVersionWithEquivalents) return row;
  return OriginalServes(original, written) ? nullptr : row;
}

}  // namespace

std::span<const SimEquivalent> SimEquivalents() { return kSimEquivalents; }

const SimEquivalent* FindSimEquivalent(const char* original, float originalOn) {
  if (original == nullptr) return nullptr;
  // Every binding of an aircraft load asks: the lengths, known to the compiler, turn most rows
  // away without comparing a character.
  const std::string_view name(original);
  for (std::size_t row = 0; row < std::size(kSimEquivalents); ++row) {
    if (kOriginalNames[row] != name) continue;
    const SimEquivalent& found = kSimEquivalents[row];
    if (found.originalOn == kAnyOnValue || found.originalOn == originalOn) return &found;
  }
  return nullptr;
}

const SimEquivalent* ChooseSimEquivalent(const char* original, float originalOn) {
  return Choose(original, originalOn, true);
}

const char* ChooseDatarefPath(const char* original) {
  const SimEquivalent* row = Choose(original, kAnyOnValue, false);
  return row != nullptr && row->drive == D::kDataref ? row->path : original;
}

}  // namespace drav
