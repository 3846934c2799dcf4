#include "modules/GFTQ6_Module.h"

#include <algorithm>

#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

GFTQ6_Module::GFTQ6_Module() : GF_Abstract_Module(kModuleGFTQ6) {
  for (LeverFunction& lever : levers) InitLever(lever);
}

LeverFunction* GFTQ6_Module::LeverOf(LeverFunction (&all)[kTQ6LeverCount], std::uint8_t key) {
  if (key < 'A' || key >= 'A' + kTQ6LeverCount) return nullptr;
  return &all[key - 'A'];
}

std::int32_t GFTQ6_Module::GetButton(const void* record, std::int32_t* /*value*/) {
  if (record == nullptr) return -1;
  const auto& input = *static_cast<const GFTQ6InputRecord*>(record);
  {
    std::lock_guard<std::mutex> lock(recordLock_);
    std::copy(std::begin(input.levers), std::end(input.levers), leverPositions_);
    leverSwitches_ = input.switches;
  }
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    LogFormat("GFTQ6_Module::GetButton -  Lever A = %d, Lever B = %d, Lever C = %d, Lever D = %d, Lever E = %d, "
              "Lever F = %d",
              input.levers[0], input.levers[1], input.levers[2], input.levers[3], input.levers[4], input.levers[5]);
    LogBits16("GFTQ6_Module::GetButton - SwitchState", input.switches);
  }
  return 0;  // every record is one event: HandleInput moves all levers
}

void GFTQ6_Module::LastRecord(std::uint8_t (&positions)[kTQ6LeverCount], std::uint8_t* switches) const {
  std::lock_guard<std::mutex> lock(recordLock_);
  std::copy(std::begin(leverPositions_), std::end(leverPositions_), positions);
  *switches = leverSwitches_;
}

void GFTQ6_Module::HandleInput(std::int32_t /*control*/, std::int32_t /*value*/) {
  std::uint8_t positions[kTQ6LeverCount];
  std::uint8_t switches = 0;
  LastRecord(positions, &switches);  // the levers move outside the lock: they write datarefs
  for (int i = 0; i < kTQ6LeverCount; ++i) {
    MoveLever(levers[i], positions[i], switches & (1u << i));
  }
}

void GFTQ6_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t /*param1*/,
                                  std::int32_t /*param2*/) {
  if (LeverFunction* lever = LeverOf(levers, key)) BindLever(*lever, functionId);
}

std::int32_t GFTQ6_Module::GetAssignedFunction(std::uint8_t key) {
  const LeverFunction* lever = LeverOf(levers, key);
  return lever != nullptr ? GetLeverFunctionId(*lever) : 0;
}

void GFTQ6_Module::SetLeverReversers(float reversePoint, float betaPoint, float reverserPower) {
  for (LeverFunction& lever : levers) SetLeverReverser(lever, reversePoint, betaPoint, reverserPower);
}

void GFTQ6_Module::SetFlapNullZones(float flapNullZone) {
  for (LeverFunction& lever : levers) SetFlapNullZone(lever, flapNullZone);
}

void GFTQ6_Module::ReloadLevers() {
  for (LeverFunction& lever : levers) RebindLever(lever);
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// The six levers, then the reverse point, beta point and reverser power, and the flap null zone.
constinit const AssignmentKeyGroup kGFTQ6LeverKeys = CharacterKeys("ABCDEF", nullptr, AssignmentTarget::kNone);
constinit const CalibrationKey kGFTQ6LeverCalibration[3] = {
    {"THROTTLE_REVERSE", "-1.0"}, {"THROTTLE_BETA", "-1.0"}, {"REVERSER_POWER", "1.0"}};
constinit const CalibrationKey kGFTQ6FlapNullZone = {"FLAP_NULL_ZONE", "1.0"};
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFTQ6LeverKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
// The lever unit reports continuously; the pause keeps it to about 20 reports a second.
constexpr PanelModel kPanelRow = Model(kModuleGFTQ6, "GF-TQ6", "GFTQ6", "GFTQ6_%d", 0x0200, 4,
    {false, 0, WS::None, 50ms, kNoInitialQuery, false,
     kDecoder<GFTQ6InputRecord, DecodeGFTQ6Input>, nullptr, AfterOpen::Nothing, sizeof(GFTQ6InputRecord)});

// The levers are bound after Register, then every lever gets the unit's reverse, beta,
// reverser-power and flap settings.
void LoadAssignments(GFTQ6_Module& quadrant, UnitAssignments& unit) {
  RegisterUnit(quadrant, unit);
  AssignGroup(quadrant, unit, kGFTQ6LeverKeys);
  // Read one by one: each read may trace, and the trace keeps the keys' order.
  const float reversePoint = unit.ReadReal(kGFTQ6LeverCalibration[0]);
  const float betaPoint = unit.ReadReal(kGFTQ6LeverCalibration[1]);
  const float reverserPower = unit.ReadReal(kGFTQ6LeverCalibration[2]);
  quadrant.SetLeverReversers(reversePoint, betaPoint, reverserPower);
  quadrant.SetFlapNullZones(unit.ReadReal(kGFTQ6FlapNullZone));
  quadrant.SetDisplay();
}

const char* const kLeverCaptions[] = {"Lever A", "Lever B", "Lever C", "Lever D", "Lever E", "Lever F"};

// The dialog's defaults are not the loader's: with the key absent the unit runs with -1.0, -1.0, 1.0
// and 1.0, but the dialog offers 0, 0, 60 and 100 as starting points.
const DialogSliderRow kGFTQ6Sliders[] = {
    {0, "Thrust Rev Point", "THROTTLE_REVERSE", "0.0", 0, 100, true, false},
    {1, "Prop Beta Point", "THROTTLE_BETA", "0.0", 0, 100, true, false},
    {2, "Thrust Rev Max", "REVERSER_POWER", "0.60", 0, 100, true, false},
    {3, "Flap Null Zone", "FLAP_NULL_ZONE", "1.0", 0, 100, true, false},
};

// The levers take the new aircraft's engine and control limits.
void ReloadLevers(GFTQ6_Module& quadrant) { quadrant.ReloadLevers(); }

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  AddEmptyDefaultRows(rows.functions, 0, kLeverCaptions, kGFTQ6LeverKeys, 0, PickListKind::kLever);
  AddSliders(rows, kGFTQ6Sliders);
}

}  // namespace

constexpr ModelDescriptor kGFTQ6Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFTQ6_Module>,
    &LoadAs<GFTQ6_Module, LoadAssignments>,
    kFunctionKeys,
    {},  // no brightness report
    &DialogRows,
    nullptr,  // the plain unit label
    &RunAs<GFTQ6_Module, ReloadLevers>,
};

}  // namespace drav
