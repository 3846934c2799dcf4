#include "modules/GFWCP_Module.h"

#include "functions/FunctionCatalogue.h"
#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "modules/CommandTables.h"
#include "base/OptionalXplmApi.h"
#include "modules/PanelPower.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr std::uint8_t kFirstButtonKey = '1';
constexpr std::uint8_t kDarkColour = 0;

// The annunciator functions whose press clears something in the simulator, with the index of
// their command in the annunciator commands.
struct AnnunciatorButton {
  FunctionId functionId;
  std::size_t command;
};
constexpr AnnunciatorButton kAnnunciatorButtons[] = {
    {kFnWCP_MASTER_WARNING, 0},  // clear master warning
    {kFnWCP_MASTER_CAUTION, 1},  // clear master caution
    {kFnWCP_MASTER_ACCEPT, 2},   // clear master accept
};

std::int32_t ButtonIndexOfKey(std::uint8_t key) {
  const std::int32_t index = static_cast<std::int32_t>(key) - kFirstButtonKey;
  return index >= 0 && index < kGFWCPButtons ? index : -1;
}

}  // namespace

GFWCP_Module::GFWCP_Module() : GF_Abstract_Module(kModuleGFWCP) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

void GFWCP_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);
  // A unit that cannot be read counts as all buttons up.
  GFWCPInputRecord state{};
  Port().TakeInput(state);
  std::lock_guard<std::mutex> lock(decodingLock_);
  prevSwitchVals_ = state.switches;
}

std::uint8_t GFWCP_Module::PrevSwitchVals() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return static_cast<std::uint8_t>(prevSwitchVals_);
}

std::int32_t GFWCP_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const std::uint8_t switches = static_cast<const GFWCPInputRecord*>(record)->switches;
  std::lock_guard<std::mutex> lock(decodingLock_);
  return DetectBankChange(InputBank{switches, &prevSwitchVals_, kGFWCPButtons, 0}, value);
}

void GFWCP_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (value != 1 || control < 0 || control >= kGFWCPButtons) return;
  const FunctionId bound = GetFunctionId(buttonFunctions[control]);
  for (const AnnunciatorButton& button : kAnnunciatorButtons) {
    if (button.functionId == bound) RunCommandOnce(TheCommandTables().annunciators[button.command]);
  }
}

std::uint32_t GFWCP_Module::LightMask() const {
  std::uint32_t mask = 0;
  for (std::int32_t i = 0; i < kGFWCPButtons; ++i) {
    if (GetFunctionState(buttonFunctions[i]) == 1) mask |= 1u << i;
  }
  return mask;
}

void GFWCP_Module::SendLights(std::uint32_t mask) {
  for (std::int32_t i = 0; i < kGFWCPButtons; ++i) {
    const std::uint8_t colour = (mask & (1u << i)) != 0 ? colours[i] : kDarkColour;
    Port().SetIndicatorColour(static_cast<std::uint8_t>(i + 1), colour);
  }
}

void GFWCP_Module::SetDisplay() {
  const bool powered = HasPanelPower(false);
  const std::uint32_t mask = powered ? LightMask() : 0;
  indicators_.Update(powered, mask, [this](std::uint32_t bits) { SendLights(bits); },
                     "GFWCP_Module::SetDisplay - Indicators");
}

void GFWCP_Module::ClearDisplay() {
  indicators_.Clear([this](std::uint32_t bits) { SendLights(bits); });
}

void GFWCP_Module::UpdateOutputs() {
  for (SwitchFunction& record : buttonFunctions) {
    if (GetFunctionId(record) != 0) RefreshFunctionState(record);
  }
  SetDisplay();
}

void GFWCP_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                  std::int32_t param2) {
  const std::int32_t index = ButtonIndexOfKey(key);
  if (index < 0) return;
  SwitchFunction& record = buttonFunctions[index];
  ClearFunction(record);
  CreateFunction(functionId, nullptr, record, param1, param2);
}

std::int32_t GFWCP_Module::GetAssignedFunction(std::uint8_t key) {
  const std::int32_t index = ButtonIndexOfKey(key);
  return index < 0 ? 0 : GetFunctionId(buttonFunctions[index]);
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Function1..Function6, then the six button colours Colour1..Colour6.
constinit const AssignmentKeyGroup kGFWCPKeys = CharacterKeys("123456", nullptr, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFWCPColourKeys = {"Colour", "123456", 0, 0, 0, nullptr, "BLACK", AssignmentTarget::kNone};
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFWCPKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
// Its colour report addresses one of six lights: the light is part of the report's key.
constexpr PanelModel kPanelRow = Model(kModuleGFWCP, "GF-WCP", "GFWCP", "GFWCP_%d", 0x002C, 32,
    {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFSwitchByteInitialQuery, false,
     kDecoder<GFWCPInputRecord, DecodeSwitchByteInput>, kDecoder<GFWCPInputRecord, DecodeSwitchByteFeature>,
     AfterOpen::WCPLightsOff, sizeof(GFWCPInputRecord), 2},
    {.setIndicatorColour = &SendGFWCPColour,
     .setBrightness = &SetGFWCPBrightness,
     .readBrightness = &ReadGFWCPBrightness});

// The six buttons, then the colour that each light shows when lit.
void LoadAssignments(GFWCP_Module& panel, UnitAssignments& unit) {
  RegisterUnit(panel, unit);
  AssignGroup(panel, unit, kGFWCPKeys);
  for (int index = 0; index < KeyCount(kGFWCPColourKeys) && index < kGFWCPButtons; ++index) {
    panel.colours[index] = static_cast<std::uint8_t>(unit.ReadColour(kGFWCPColourKeys, index));
  }
  panel.SetDisplay();
}

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  AddEmptyDefaultRows(rows.functions, 0, std::span(kButtonCaptions).first(6), kGFWCPKeys, 0, PickListKind::kWcp);
  // An empty colour selects "BLACK", the first item.
  AddEmptyDefaultRows(rows.colours, 0, std::span(kButtonCaptions).first(6), kGFWCPColourKeys, 0,
                      PickListKind::kColour);
}

}  // namespace

constexpr ModelDescriptor kGFWCPDescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFWCP_Module>,
    &LoadAs<GFWCP_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGFWCP>, &WriteUnitBrightness<kModuleGFWCP>, false},
    &DialogRows,
};

}  // namespace drav
