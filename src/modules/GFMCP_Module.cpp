#include "modules/GFMCP_Module.h"

#include <cstdio>
#include <cstring>
#include <iterator>

#include "functions/AvionicAdjust.h"
#include "functions/AvionicDisplay.h"
#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/McpDisplaySlot.h"
#include "modules/PanelPower.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr const char* kThreeBlank = "   ";
constexpr const char* kSixBlank = "      ";

// Course and heading texts begin with a blank and the speed text with two, which the three-digit
// displays skip; the two six-digit displays show the whole text one digit in from the left edge.
constexpr McpDisplaySlot kDisplays[GFMCP_Module::kDialCount] = {
    {1, 1, 3, false, kThreeBlank, 'A'},
    {2, 1, 3, false, kThreeBlank, 'B'},
    {3, 2, 4, false, kThreeBlank, 'C'},
    {4, 0, kWholeText, true, kSixBlank, 'D'},
    {5, 0, kWholeText, true, kSixBlank, 'E'},
};

std::int32_t ButtonIndexOfKey(std::uint8_t key) {
  return key >= '1' && key <= '9' ? key - '1' : -1;
}

std::int32_t DialIndexOfKey(std::uint8_t key) {
  return key >= 'A' && key <= 'E' ? key - 'A' : -1;
}

}  // namespace

GFMCP_Module::GFMCP_Module() : GF_Abstract_Module(kModuleGFMCP) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

std::uint8_t GFMCP_Module::SwitchVals1_8() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return static_cast<std::uint8_t>(switchVals1_8_);
}

std::uint8_t GFMCP_Module::SwitchVals9_16() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return static_cast<std::uint8_t>(switchVals9_16_);
}

// The bar is down (bit set) when the autopilot is to be disconnected: its function runs inverted.
void GFMCP_Module::SetDisengageBar(bool barDown) {
  ExecuteFunction(buttonFunctions[kControlDisengage], barDown ? kActionOff : kActionOn, 0, 0);
}

void GFMCP_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);

  // Encoder counts are thrown away: only movement after registration is input.
  GFMCPInputRecord state{};
  Port().TakeInput(state);
  const std::uint8_t bank1 = state.buttons1;
  const std::uint8_t bank2 = state.buttons2;
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    switchVals1_8_ = bank1;
    switchVals9_16_ = bank2;
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) {
    LogBits16("GFMCP_Module::Register - SwitchVals1_8", bank1);
    LogBits16("GFMCP_Module::Register - SwitchVals9_16", bank2);
  }
  SetDisengageBar((bank2 & 0x01) != 0);
}

std::int32_t GFMCP_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const auto& input = *static_cast<const GFMCPInputRecord*>(record);
  const bool logging = CurrentDebugSwitches().DebugGetButtonFunction != 0;
  if (logging) {
    LogFormat("GFMCP_Module::GetButton -  Dial A = %d, Dial B = %d, Dial C = %d, Dial D = %d, Dial E = %d",
              input.encoders[0], input.encoders[1], input.encoders[2], input.encoders[3], input.encoders[4]);
  }
  EncoderMove dials[kDialCount];
  for (std::int32_t i = 0; i < kDialCount; ++i) dials[i] = {input.encoders[i], kControlFirstDial + i};
  const std::int32_t dial = FirstEncoderMove(dials, value);
  if (dial != -1) return dial;

  if (logging) LogBits16("GFMCP_Module::GetButton - BtnState1_8", input.buttons1);
  std::lock_guard<std::mutex> lock(decodingLock_);
  const InputBank buttons{input.buttons1, &switchVals1_8_, kLitButtonCount, 0};
  const std::int32_t button = DetectBankChange(buttons, value);
  if (button != -1) return button;

  if (logging) LogBits16("GFMCP_Module::GetButton - BtnState9_16", input.buttons2);
  // Only bit 0 of the second bank (the bar) is wired.
  const InputBank bar{input.buttons2, &switchVals9_16_, 1, kControlDisengage};
  return DetectBankChange(bar, value);
}

void GFMCP_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (control >= 0 && control < kLitButtonCount) {
    ExecuteFunction(buttonFunctions[control], value != 0 ? kActionToggle : kActionRelease, 0, 0);
  } else if (control == kControlDisengage) {
    SetDisengageBar(value == 1);
  } else if (control >= kControlFirstDial && control < kControlFirstDial + kDialCount) {
    AvionicFunction* dial = dialFunctions[control - kControlFirstDial];
    if (dial != nullptr) AdjustAvionicFunction(dial, 0, value, 0);
  }
}

void GFMCP_Module::UpdateOutputs() {
  // The dials are bound from A on; the first gap ends the bound ones.
  for (AvionicFunction* dial : dialFunctions) {
    if (dial == nullptr) break;
    if (GetAvionicFunctionId(*dial) != kNada) FormatAvionicDisplay(*dial);
  }
  for (SwitchFunction& record : buttonFunctions) {
    if (GetFunctionId(record) != kNada) RefreshFunctionState(record);
  }
  SetDisplay();
}

void GFMCP_Module::SetDisplay() {
  const bool powered = HasPanelPower(true);
  SendLights(powered);
  SendDisplays(powered);
}

void GFMCP_Module::SendLights(bool powered) {
  std::uint32_t mask = 0;
  for (std::int32_t i = 0; i < kLitButtonCount; ++i) {
    if (GetFunctionState(buttonFunctions[i]) == 1) mask |= std::uint32_t{1} << i;
  }
  lights_.Update(
      powered, mask, [this](std::uint32_t sent) { Port().SetIndicators(sent); }, "GFMCP_Module::SetDisplay - Indicators");
}

void GFMCP_Module::SendDisplays(bool powered) {
  SendMcpDisplays(Port(), powered, kDisplays, dialFunctions, lastText, DisplayLoggingEnabled(),
                  "GFMCP_Module::SetDisplay");
}

void GFMCP_Module::ClearDisplay() {
  lights_.Clear([this](std::uint32_t sent) { Port().SetIndicators(sent); });
  BlankMcpDisplays(Port(), kDisplays, lastText);
}

void GFMCP_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                  std::int32_t param2) {
  if (const std::int32_t button = ButtonIndexOfKey(key); button != -1) {
    SwitchFunction& record = buttonFunctions[button];
    ClearFunction(record);
    CreateFunction(functionId, nullptr, record, param1, param2);
    return;
  }
  if (const std::int32_t dial = DialIndexOfKey(key); dial != -1) {
    // A dial loaded with something that is not a display function ends up unbound, not with the
    // function it had before.
    dialFunctions[dial] = nullptr;
    SwitchFunction unused;
    ClearFunction(unused);
    CreateFunction(functionId, &dialFunctions[dial], unused, param1, param2);
  }
}

std::int32_t GFMCP_Module::GetAssignedFunction(std::uint8_t key) {
  if (const std::int32_t button = ButtonIndexOfKey(key); button != -1) return GetFunctionId(buttonFunctions[button]);
  if (const std::int32_t dial = DialIndexOfKey(key); dial != -1) {
    return dialFunctions[dial] != nullptr ? GetAvionicFunctionId(*dialFunctions[dial]) : kNada;
  }
  return kNada;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// The nine buttons, then the five knobs A..E.
const char* const kMCPButtonDefaults[] = {"AP_LNAV",         "AP_HDG_HOLD",    "AP_AUTOTHROTTLE",
                                          "AP_IAS_MACH_SEL", "AP_ALT_HOLD",    "AP_APPR_HOLD",
                                          "AP_BC_HOLD",      "AP_MASTER",      "AP_DISENGAGE"};
const char* const kMCPKnobDefaults[] = {"AP_NAV_COURSE_ADJ", "AP_HEADING_ADJ", "AP_SPEED_ADJ",
                                        "AP_VERT_SPEED_ADJ", "AP_ALTITUDE_ADJ"};
static_assert(std::size(kMCPButtonDefaults) == 9 && std::size(kMCPKnobDefaults) == 5);
constinit const AssignmentKeyGroup kGFMCPButtonKeys =
    CharacterKeys("123456789", kMCPButtonDefaults, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFMCPKnobKeys = CharacterKeys("ABCDE", kMCPKnobDefaults, AssignmentTarget::kNone);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFMCPButtonKeys, &kGFMCPKnobKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFMCP, "GF-MCP", "GFMCP", "GFMCP_%d", 0x0060, 4,
    {false, kModelQueue, WS::FeatureRetry, 0ms, kGFMCPInitialQuery, false,
     kDecoder<GFMCPInputRecord, DecodeGFMCPInput>, kDecoder<GFMCPInputRecord, DecodeGFMCPFeature>,
     AfterOpen::Nothing, sizeof(GFMCPInputRecord)},
    {.setDisplay = &SendDisplay<EncodeGFMCPDisplay>,
     .setIndicators = &SendIndicators<EncodeIndicatorBits<kGFMCPIndicatorReport>>,
     .setBrightness = &SendBrightness<kGFMCPBrightnessReport>,
     .readBrightness = &ReadBrightnessReport<kGFMCPBrightnessReport>});

// Registered first: Register brings the disengage function to where the bar is (it was bound by
// the previous load; the first load finds it unbound).
void LoadAssignments(GFMCP_Module& panel, UnitAssignments& unit) {
  RegisterUnit(panel, unit);
  AssignGroup(panel, unit, kGFMCPButtonKeys);
  AssignGroup(panel, unit, kGFMCPKnobKeys);
  panel.SetDisplay();
}

// Buttons and knobs alternate down the panel as they do on the hardware.
const KeyedRow kGFMCPRows[] = {
    {"NAV HOLD button", &kGFMCPButtonKeys, 0, PickListKind::kButton},
    {"CRS display/knob", &kGFMCPKnobKeys, 0, PickListKind::kAvionic},
    {"HDG HOLD button", &kGFMCPButtonKeys, 1, PickListKind::kButton},
    {"HDG display/knob", &kGFMCPKnobKeys, 1, PickListKind::kAvionic},
    {"IAS HOLD button", &kGFMCPButtonKeys, 2, PickListKind::kButton},
    {"IAS display/knob", &kGFMCPKnobKeys, 2, PickListKind::kAvionic},
    {"SEL button", &kGFMCPButtonKeys, 3, PickListKind::kButton},
    {"V/S display/knob", &kGFMCPKnobKeys, 3, PickListKind::kAvionic},
    {"ALT HOLD Button", &kGFMCPButtonKeys, 4, PickListKind::kButton},
    {"ALT display/knob", &kGFMCPKnobKeys, 4, PickListKind::kAvionic},
    {"APPR button", &kGFMCPButtonKeys, 5, PickListKind::kButton},
    {"B/C button", &kGFMCPButtonKeys, 6, PickListKind::kButton},
    {"A/P CMD button", &kGFMCPButtonKeys, 7, PickListKind::kButton},
    {"DISENGAGE bar", &kGFMCPButtonKeys, 8, PickListKind::kButton},
};

void DialogRows(DialogModelRows& rows, const DialogRowContext&) { AddKeyedRows(rows, kGFMCPRows); }

}  // namespace

constexpr ModelDescriptor kGFMCPDescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFMCP_Module>,
    &LoadAs<GFMCP_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGFMCP>, &WriteUnitBrightness<kModuleGFMCP>, false},
    &DialogRows,
};

}  // namespace drav
