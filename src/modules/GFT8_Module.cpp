#include "modules/GFT8_Module.h"

#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr std::int32_t kLandingGear = kFnLANDING_GEAR;
constexpr std::int32_t kApDisengage = kFnAP_DISENGAGE;

const LightBoxModel kGFT8Model{
    kModuleGFT8,
    "GFT8_Module::Register - PrevSwitchVals",
    "GFT8_Module::SetDisplay - Indicators",
    &ReadSwitchByte,
};

}  // namespace

GFT8_Module::GFT8_Module() : LightBoxModule(kGFT8Model) {}

bool GFT8_Module::IsInvertedSwitchFunction(std::int32_t functionId) {
  return functionId == kLandingGear || functionId == kApDisengage;
}

void GFT8_Module::SetSwitch(std::int32_t control, bool switchOn) {
  SwitchFunction* record = ButtonFunction(control);
  if (record == nullptr) return;
  const bool functionOn = IsInvertedSwitchFunction(GetFunctionId(*record)) ? !switchOn : switchOn;
  ExecuteFunction(*record, functionOn ? kActionOn : kActionOff, 0, 0);
}

void GFT8_Module::Register(std::uint16_t unitNumber) {
  LightBoxModule::Register(unitNumber);
  const std::uint8_t switches = PrevSwitchVals();
  for (std::int32_t i = 0; i < kLightBoxButtons; ++i) SetSwitch(i, (switches & (1u << i)) != 0);
}

std::int32_t GFT8_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr) return -1;
  const std::uint8_t switches = static_cast<const GFT8InputRecord*>(record)->switches;
  // The GF-T8 shares the GF-P8's trace label: the two decode the same byte the same way.
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) LogBits16("GFP8_Module::GetButton - BtnState", switches);
  return DetectSwitchChange(switches, value);
}

void GFT8_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GFT8_Module::HandleInput -  Button = %d, Value = %d", control, value);
  }
  SetSwitch(control, value != 0);
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Function1..Function8, one per switch.
constinit const AssignmentKeyGroup kGFT8Keys = CharacterKeys("12345678", nullptr, AssignmentTarget::kRadioTested);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFT8Keys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFT8, "GF-T8", "GFT8", "GFT8_%d", 0x0030, 32,
    {false, kModelQueue, WS::FeatureDrop, 0ms, kGFSwitchByteInitialQuery, false,
     kDecoder<GFT8InputRecord, DecodeSwitchByteInput>, kDecoder<GFT8InputRecord, DecodeSwitchByteFeature>,
     AfterOpen::Nothing, sizeof(GFT8InputRecord)},
    kSwitchPanelPort);

// Binds first, so that Register's switch synchronisation runs the new functions.
void LoadAssignments(GFT8_Module& panel, UnitAssignments& unit) {
  AssignGroup(panel, unit, kGFT8Keys);
  RegisterUnit(panel, unit);
  panel.SetDisplay();
}

const char* const kSwitchCaptions[] = {"Switch 1", "Switch 2", "Switch 3", "Switch 4",
                                       "Switch 5", "Switch 6", "Switch 7", "Switch 8"};

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  AddEmptyDefaultRows(rows.functions, 0, kSwitchCaptions, kGFT8Keys, 0, PickListKind::kToggle);
}

}  // namespace

constexpr ModelDescriptor kGFT8Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFT8_Module>,
    &LoadAs<GFT8_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGFT8>, &WriteUnitBrightness<kModuleGFT8>, false},
    &DialogRows,
};

}  // namespace drav
