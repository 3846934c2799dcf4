#include "modules/GFMCPPro_Module.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "functions/AvionicAdjust.h"
#include "functions/AvionicDisplay.h"
#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "modules/CommandTables.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "base/OptionalXplmApi.h"
#include "base/Settings.h"
#include "modules/McpDisplaySlot.h"
#include "modules/PanelPower.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"
#include "modules/ModuleState.h"

namespace drav {

namespace {

constexpr const char* kThreeBlank = "   ";
constexpr const char* kSixBlank = "      ";
constexpr std::uint32_t kInputMask = 0x00FFFFFFu;

// Course and heading texts begin with a blank, which the three-digit displays skip; the speed text
// keeps its two leading blanks, so the value sits at the right of its display.
constexpr McpDisplaySlot kDisplays[GFMCPPro_Module::kDialCount] = {
    {1, 1, 3, false, kThreeBlank, 'A'},
    {2, 0, 6, false, kSixBlank, 'B'},
    {3, 1, 3, false, kThreeBlank, 'C'},
    {4, 0, 5, false, kSixBlank, 'D'},
    {5, 0, 5, false, kSixBlank, 'E'},
    {6, 1, 3, false, kThreeBlank, 'F'},
};

// Rows of the x737 MCP commands (the aircraft's own order, not the panel's).
enum X737Row : std::int32_t {
  kNoX737Command = -1,
  kFdA = 0,
  kAthrArm = 1,
  kN1Mode = 2,
  kMcpSpdMode = 3,
  kChangeover = 4,
  kVnav = 5,
  kSpdIntv = 6,
  kLvlChange = 7,
  kHdgSel = 8,
  kLnav = 9,
  kVorLoc = 10,
  kApp = 11,
  kAltHld = 12,
  kAltIntv = 13,
  kVs = 14,
  kCmdA = 15,
  kCmdB = 16,
  kApDisconnect = 17,
  kFdB = 18,
};

// Panel input -> x737 MCP command row. The spare buttons and the knob pushes (9..13) have none.
constexpr std::int32_t kX737RowOfControl[GFMCPPro_Module::kButtonCount] = {
    kVnav,    kLnav,          kCmdA,     kCmdB,      kAthrArm,      kChangeover,   kSpdIntv, kVorLoc,
    kAltIntv, kNoX737Command, kNoX737Command, kNoX737Command, kNoX737Command, kNoX737Command,
    kFdA,     kN1Mode,        kMcpSpdMode, kLvlChange, kHdgSel,     kApp,          kAltHld,  kVs,
    kApDisconnect, kFdB,
};

bool IsLatchingSwitch(std::int32_t control) {
  return control == GFMCPPro_Module::kControlAutothrottleArm || control == GFMCPPro_Module::kControlAltitudeKnob ||
         control == GFMCPPro_Module::kControlFlightDirectorLeft ||
         control == GFMCPPro_Module::kControlFlightDirectorRight;
}

// The latching switches that have an x737 command: on and off follow the switch position.
bool IsX737LatchingSwitch(std::int32_t control) {
  return control == GFMCPPro_Module::kControlAutothrottleArm ||
         control == GFMCPPro_Module::kControlFlightDirectorLeft ||
         control == GFMCPPro_Module::kControlFlightDirectorRight;
}

bool IsButtonKey(std::uint8_t key) { return key < GFMCPPro_Module::kButtonCount; }

std::int32_t DialIndexOfKey(std::uint8_t key) {
  const std::int32_t index = key - GFMCPPro_Module::kFirstDialKey;
  return index >= 0 && index < GFMCPPro_Module::kDialCount ? index : -1;
}

void RunX737(std::int32_t row, bool on) {
  if (row < 0 || row >= kX737McpCommandCount) return;
  const CommandTriple& commands = TheCommandTables().x737Mcp[row];
  RunCommandOnce(on ? commands.on : commands.off);
}

}  // namespace

std::int32_t GFMCPPro_Module::X737CommandIndex(std::int32_t control) {
  return control >= 0 && control < kButtonCount ? kX737RowOfControl[control] : kNoX737Command;
}

GFMCPPro_Module::GFMCPPro_Module() : GF_Abstract_Module(kModuleGFMCPPro) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

std::uint32_t GFMCPPro_Module::SwitchState() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return switchState_;
}

bool GFMCPPro_Module::TakenOver() const { return *takeover_ != 0; }

// GetButton asks from the device input thread while the dataref accessor writes on the main thread.
bool GFMCPPro_Module::TakenOverSeenFromInputThread() const {
  return std::atomic_ref<int>(*takeover_).load(std::memory_order_relaxed) != 0;
}

void GFMCPPro_Module::Register(std::uint16_t unitNumber) {
  if (TakenOver()) return;
  GF_Abstract_Module::Register(unitNumber);

  // Encoder counts are thrown away: only movement after registration is input.
  GFMCPProInputRecord state{};
  Port().TakeInput(state);
  const std::uint32_t switches = state.switches;
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    switchState_ = switches;
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) LogBits16("GFMCPPro_Module::Register - SwitchState", switches & 0xFFFFu);

  Port().SetBrightness(static_cast<std::uint16_t>(GetDisplayBrightnessLevel()));

  if (CurrentHostFlags().x737McpDirect != 0) {
    SyncX737Switches(switches);
    return;
  }
  const bool barDown = (switches & (std::uint32_t{1} << kControlDisengage)) != 0;
  ExecuteFunction(buttonFunctions[kControlDisengage], barDown ? kActionOff : kActionOn, 0, 0);
}

// The aircraft's MCP starts with the panel's switch positions: the bar down disconnects, the
// arm and flight-director switches are on when up.
void GFMCPPro_Module::SyncX737Switches(std::uint32_t switches) {
  const auto isSet = [switches](std::int32_t bit) { return (switches & (std::uint32_t{1} << bit)) != 0; };
  RunX737(kApDisconnect, !isSet(kControlDisengage));
  for (std::int32_t control : {kControlAutothrottleArm, kControlFlightDirectorLeft, kControlFlightDirectorRight}) {
    RunX737(X737CommandIndex(control), isSet(control));
  }
}

std::int32_t GFMCPPro_Module::GetButton(const void* record, std::int32_t* value) {
  if (TakenOverSeenFromInputThread() || record == nullptr || value == nullptr) return -1;
  const auto& input = *static_cast<const GFMCPProInputRecord*>(record);
  const bool logging = CurrentDebugSwitches().DebugGetButtonFunction != 0;
  if (logging) {
    LogFormat(
        "GFMCPPro_Module::GetButton -  Dial A = %d, Dial B = %d, Dial C = %d, Dial D = %d, Dial E = %d, Dial F = %d",
        input.encoders[0], input.encoders[1], input.encoders[2], input.encoders[3], input.encoders[4],
        input.encoders[5]);
  }
  EncoderMove dials[kDialCount];
  for (std::int32_t i = 0; i < kDialCount; ++i) dials[i] = {input.encoders[i], kControlFirstDial + i};
  const std::int32_t dial = FirstEncoderMove(dials, value);
  if (dial != -1) return dial;

  if (logging) LogBits16("GFMCPPro_Module::GetButton - BtnState", input.switches & 0xFFFFu);
  std::lock_guard<std::mutex> lock(decodingLock_);
  const InputBank inputs{input.switches & kInputMask, &switchState_, kButtonCount, 0};
  return DetectBankChange(inputs, value);
}

void GFMCPPro_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (TakenOver()) return;
  if (CurrentHostFlags().x737McpDirect != 0) {
    HandleX737Input(control, value);
  } else {
    HandleOwnInput(control, value);
  }
  SetDisplay();
}

void GFMCPPro_Module::HandleX737Input(std::int32_t control, std::int32_t value) {
  if (control >= kControlFirstDial) {
    AdjustDial(control, value);
    return;
  }
  const std::int32_t row = X737CommandIndex(control);
  if (row == kNoX737Command) return;
  if (IsX737LatchingSwitch(control)) {
    RunX737(row, value == 1);
  } else if (control == kControlDisengage) {
    RunX737(row, value == 0);  // bar up engages, as in Register
  } else if (value == 1) {
    RunCommandOnce(TheCommandTables().x737Mcp[row].toggle);
  }
}

void GFMCPPro_Module::HandleOwnInput(std::int32_t control, std::int32_t value) {
  if (control >= kControlFirstDial) {
    AdjustDial(control, value);
    return;
  }
  if (control < 0 || control >= kButtonCount) return;
  SwitchFunction& record = buttonFunctions[control];
  if (control == kControlDisengage) {
    ExecuteFunction(record, value == 1 ? kActionOff : kActionOn, 0, 0);
  } else if (IsLatchingSwitch(control)) {
    ExecuteFunction(record, value == 1 ? kActionOn : kActionOff, 0, 0);
  } else {
    ExecuteFunction(record, value != 0 ? kActionToggle : kActionRelease, 0, 0);
  }
}

void GFMCPPro_Module::AdjustDial(std::int32_t control, std::int32_t value) {
  const std::int32_t index = control - kControlFirstDial;
  if (index < 0 || index >= kDialCount) return;
  if (dialFunctions[index] != nullptr) AdjustAvionicFunction(dialFunctions[index], 0, value, 0);
}

void GFMCPPro_Module::UpdateOutputs() {
  for (AvionicFunction* dial : dialFunctions) {
    if (dial == nullptr) break;
    if (GetAvionicFunctionId(*dial) != kNada) FormatAvionicDisplay(*dial);
  }
  for (SwitchFunction& record : buttonFunctions) {
    if (GetFunctionId(record) != kNada) RefreshFunctionState(record);
  }
  SetDisplay();
}

// Returns true while another plug-in holds the panel. The first unit to see the panel handed
// back forgets what it sent, so that it sends everything again.
bool GFMCPPro_Module::TrackTakeover() {
  std::int32_t& seen = CurrentModuleState().seenMcpProTakeover;
  if (*takeover_ != seen) {
    seen = *takeover_;
    if (seen == 0) {
      lights_.Clear([](std::uint32_t) {});  // forgotten, not sent: the mask below goes out whole
      for (McpLastText& text : lastText) text[0] = '\0';
    }
  }
  return TakenOver();
}

void GFMCPPro_Module::SetDisplay() {
  if (TrackTakeover()) return;
  const bool powered = HasPanelPower(true);
  SendLights(powered);
  SendDisplays(powered);
}

void GFMCPPro_Module::SendLights(bool powered) {
  std::uint32_t mask = 0;
  for (std::int32_t i = 0; i < kButtonCount; ++i) {
    if (GetFunctionState(buttonFunctions[i]) == 1) mask |= std::uint32_t{1} << i;
  }
  lights_.Update(
      powered, mask, [this](std::uint32_t sent) { Port().SetIndicators(sent); },
      "GFMCPPro_Module::SetDisplay - Indicators");
}

void GFMCPPro_Module::SendDisplays(bool powered) {
  SendMcpDisplays(Port(), powered, kDisplays, dialFunctions, lastText, DisplayLoggingEnabled(),
                  "GFMCPPro_Module::SetDisplay");
}

void GFMCPPro_Module::ClearDisplay() {
  if (TakenOver()) return;
  lights_.Clear([this](std::uint32_t sent) { Port().SetIndicators(sent); });
  BlankMcpDisplays(Port(), kDisplays, lastText);
}

void GFMCPPro_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                     std::int32_t param2) {
  if (TakenOver()) return;
  if (IsButtonKey(key)) {
    SwitchFunction& record = buttonFunctions[key];
    ClearFunction(record);
    CreateFunction(functionId, nullptr, record, param1, param2);
    return;
  }
  if (const std::int32_t dial = DialIndexOfKey(key); dial != -1) {
    // A dial loaded with something that is not a display function ends up unbound.
    dialFunctions[dial] = nullptr;
    SwitchFunction unused;
    ClearFunction(unused);
    CreateFunction(functionId, &dialFunctions[dial], unused, param1, param2);
  }
}

std::int32_t GFMCPPro_Module::GetAssignedFunction(std::uint8_t key) {
  if (TakenOver()) return kNada;
  if (IsButtonKey(key)) return GetFunctionId(buttonFunctions[key]);
  if (const std::int32_t dial = DialIndexOfKey(key); dial != -1) {
    return dialFunctions[dial] != nullptr ? GetAvionicFunctionId(*dialFunctions[dial]) : kNada;
  }
  return kNada;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Function01..Function24 (controls 0..23) with and without the x737's own autopilot.
const char* const kMCPProButtonDefaultsX737[] = {
    "AP_VNAV",     "AP_LNAV",      "AP_CMD_A",    "AP_CMD_B",      "AP_AUTOTHROTTLE", "AP_IAS_MACH_SEL",
    "AP_SPDINV",   "AP_VORLOC",    "AP_ALTINV",   "NADA",          "NADA",            "NADA",
    "NADA",        "NADA",         "AP_FLIGHT_DIR", "AP_THRUST_N1", "AP_IAS_HOLD",   "AP_FLCH",
    "AP_HDG_HOLD", "AP_APPR_HOLD", "AP_ALT_HOLD", "AP_VS_HOLD",    "AP_DISENGAGE",    "AP_RIGHT_FLIGHT_DIR"};
const char* const kMCPProButtonDefaults[] = {
    "AP_VNAV",     "AP_LNAV",      "AP_MASTER",   "AP_MASTER",     "AP_AUTOTHROTTLE", "AP_IAS_MACH_SEL",
    "NADA",        "AP_LNAV",      "NADA",        "NADA",          "NADA",            "NADA",
    "NADA",        "MCPPRO_ALT_KNOB", "AP_FLIGHT_DIR", "NADA",     "AP_IAS_HOLD",     "AP_FLCH",
    "AP_HDG_HOLD", "AP_APPR_HOLD", "AP_ALT_HOLD", "AP_VS_HOLD",    "AP_DISENGAGE",    "AP_FLIGHT_DIR"};
// Function25..Function30 (controls 25..30).
const char* const kMCPProKnobDefaultsX737[] = {"OBS1",           "AP_SPEED_ADJ",      "AP_HEADING_ADJ",
                                               "AP_ALTITUDE_ADJ", "AP_VERT_SPEED_ADJ", "OBS2"};
const char* const kMCPProKnobDefaults[] = {"AP_NAV_COURSE_ADJ", "AP_SPEED_ADJ",      "AP_HEADING_ADJ",
                                           "AP_ALTITUDE_ADJ",   "AP_VERT_SPEED_ADJ", "AP_NAV_COURSE_ADJ"};
static_assert(std::size(kMCPProButtonDefaults) == 24 && std::size(kMCPProButtonDefaultsX737) == 24);
static_assert(std::size(kMCPProKnobDefaults) == 6 && std::size(kMCPProKnobDefaultsX737) == 6);

constinit const AssignmentKeyGroup kMCPProButtonKeys =
    NumberedKeys("Function", 1, kKeyNumberMinusOne, kMCPProButtonDefaults, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kMCPProButtonKeysX737 =
    NumberedKeys("Function", 1, kKeyNumberMinusOne, kMCPProButtonDefaultsX737, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kMCPProKnobKeys =
    NumberedKeys("Function", 25, kKeyNumberItself, kMCPProKnobDefaults, AssignmentTarget::kNone);
constinit const AssignmentKeyGroup kMCPProKnobKeysX737 =
    NumberedKeys("Function", 25, kKeyNumberItself, kMCPProKnobDefaultsX737, AssignmentTarget::kNone);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kMCPProButtonKeys, &kMCPProButtonKeysX737, &kMCPProKnobKeys,
                                                       &kMCPProKnobKeysX737};

// The defaults follow the x737 mode the loader sees.
const AssignmentKeyGroup& GFMCPProButtonKeys(int x737Mode) {
  return x737Mode == 1 ? kMCPProButtonKeysX737 : kMCPProButtonKeys;
}
const AssignmentKeyGroup& GFMCPProKnobKeys(int x737Mode) {
  return x737Mode == 1 ? kMCPProKnobKeysX737 : kMCPProKnobKeys;
}

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFMCPPro, "GF-MCPPro", "GFMCPPro", "GFMCPPro_%d", 0x0064, 4,
    {false, kModelQueue, WS::ByDeviceVersion, 0ms, kGFMCPProInitialQuery, true,
     kDecoder<GFMCPProInputRecord, DecodeGFMCPProInput>, kDecoder<GFMCPProInputRecord, DecodeGFMCPProFeature>,
     AfterOpen::Nothing, sizeof(GFMCPProInputRecord)},
    {.setDisplay = &SendDisplay<EncodeGFMCPProDisplay>,
     .setIndicators = &SendGFMCPProIndicators,
     .setBrightness = &SendBrightness<kGFMCPProBrightnessReport>,
     .readBrightness = &ReadBrightnessReport<kGFMCPProBrightnessReport>});

// Registered first, as the GF-MCP; the defaults follow the x737 mode at the time of loading.
void LoadAssignments(GFMCPPro_Module& panel, UnitAssignments& unit) {
  RegisterUnit(panel, unit);
  AssignGroup(panel, unit, GFMCPProButtonKeys(CurrentHostFlags().x737Mode));
  AssignGroup(panel, unit, GFMCPProKnobKeys(CurrentHostFlags().x737Mode));
  panel.SetDisplay();
}

const char* const kGFMCPProCaptions[] = {
    "VNAV button",      "LNAV button",      "CMD A button",     "CMD B button",      "A/T Arm Switch",
    "IAS/MACH button",  "SPD INTV button",  "VORLOC button",    "ALT INTV button",   "CWS A button",
    "CWS B button",     "SPD knob",         "HDG knob",         "ALT knob",          "F/D (left) switch",
    "N1 HOLD button",   "IAS HOLD button",  "FLCH button",      "HDG HOLD button",   "APPR HOLD button",
    "ALT HOLD button",  "VS HOLD button",   "DISENGAGE bar",    "F/D (right) switch", "CRS display/knob",
    "IAS display/knob", "HDG display/knob", "ALT display/knob", "V/S display/knob",  "CRS display/knob",
};

void DialogRows(DialogModelRows& rows, const DialogRowContext& context) {
  // In x737 mode the aircraft drives the panel itself; while disabled another plug-in does.
  if (context.x737Mode || context.mcpProDisabled) return;
  const GroupList groups[] = {{&GFMCPProButtonKeys(0), PickListKind::kButton},
                              {&GFMCPProKnobKeys(0), PickListKind::kAvionic}};
  AddGroupRows(rows, kGFMCPProCaptions, groups);
}

const char* DeviceLabel(const DeviceLabelContext& context) {
  if (context.x737McpDirect) return kNotAssignableLabelFormat;
  return context.mcpProDisabled ? kDisabledLabelFormat : kUnitLabelFormat;
}

}  // namespace

constexpr ModelDescriptor kGFMCPProDescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFMCPPro_Module>,
    &LoadAs<GFMCPPro_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGFMCPPro>, &WriteUnitBrightness<kModuleGFMCPPro>, false},
    &DialogRows,
    &DeviceLabel,
};

}  // namespace drav
