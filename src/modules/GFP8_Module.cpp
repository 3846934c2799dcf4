#include "modules/GFP8_Module.h"

#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

const LightBoxModel kGFP8Model{
    kModuleGFP8,
    "GFP8_Module::Register - PrevSwitchVals",
    "GFP8_Module::SetDisplay - Indicators",
    &ReadSwitchByte,
};

}  // namespace

GFP8_Module::GFP8_Module() : LightBoxModule(kGFP8Model) {}

std::int32_t GFP8_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr) return -1;
  const std::uint8_t switches = static_cast<const GFP8InputRecord*>(record)->switches;
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) LogBits16("GFP8_Module::GetButton - BtnState", switches);
  return DetectSwitchChange(switches, value);
}

void GFP8_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GFP8_Module::HandleInput -  Button = %d, Value = %d", control, value);
  }
  PressButton(control, value);
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

constinit const AssignmentKeyGroup kGFP8Keys = CharacterKeys("12345678", nullptr, AssignmentTarget::kRadioTested);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFP8Keys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFP8, "GF-P8", "GFP8", "GFP8_%d", 0x0020, 32,
    {false, kModelQueue, WS::FeatureDrop, 0ms, kGFSwitchByteInitialQuery, false,
     kDecoder<GFP8InputRecord, DecodeSwitchByteInput>, kDecoder<GFP8InputRecord, DecodeSwitchByteFeature>,
     AfterOpen::Nothing, sizeof(GFP8InputRecord)},
    kSwitchPanelPort);

// Registered before binding: push buttons need no synchronisation.
void LoadAssignments(GFP8_Module& panel, UnitAssignments& unit) {
  RegisterUnit(panel, unit);
  AssignGroup(panel, unit, kGFP8Keys);
  panel.SetDisplay();
}

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  AddEmptyDefaultRows(rows.functions, 0, kButtonCaptions, kGFP8Keys, 0, PickListKind::kButton);
}

}  // namespace

constexpr ModelDescriptor kGFP8Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFP8_Module>,
    &LoadAs<GFP8_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGFP8>, &WriteUnitBrightness<kModuleGFP8>, false},
    &DialogRows,
};

}  // namespace drav
