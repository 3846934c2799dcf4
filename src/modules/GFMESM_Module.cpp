#include "modules/GFMESM_Module.h"

#include <iterator>

#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "modules/CommandTables.h"
#include "base/Log.h"
#include "base/OptionalXplmApi.h"
#include "base/Settings.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr const char* kMixturePath = "sim/flightmodel/engine/ENGN_mixt";
constexpr int kMixtureElements = 8;

// A start selector's single steps between positions 1..4, each the control offset and value to
// report. Every other change (a jump, an unknown position) is ignored and not stored, so the next
// single step from the old position is still recognised.
struct SelectorStep {
  std::uint8_t from;
  std::uint8_t to;
  std::int32_t controlOffset;
  std::int32_t value;
};
constexpr SelectorStep kStartSelectorSteps[] = {
    {2, 1, 0, 1}, {1, 2, 0, 0}, {2, 3, 1, 1}, {3, 2, 1, 0}, {3, 4, 2, 1}, {4, 3, 2, 0},
};

}  // namespace

std::int32_t GFMESM_Module::DetectStartSelectorStep(std::uint8_t now, std::uint8_t* last, std::int32_t baseControl,
                                                    std::int32_t* value) {
  if (now == *last) return -1;
  for (const SelectorStep& step : kStartSelectorSteps) {
    if (step.from == *last && step.to == now) {
      *last = now;
      *value = step.value;
      return baseControl + step.controlOffset;
    }
  }
  return -1;
}

namespace {

// Rows of the engine start command table, counted from 0.
enum EngineCommandRow : int {
  kStarter1 = 0,
  kStarter2 = 1,
  kIgniterContin1 = 2,
  kIgniterContin2 = 3,
  kMagnetosLeft1 = 6,
  kMagnetosLeft2 = 7,
  kMagnetosBoth1 = 8,
  kMagnetosBoth2 = 9,
  kMagnetosRight1 = 10,
  kMagnetosRight2 = 11,
};

XPLMCommandRef Press(int row) { return TheCommandTables().engineStart[static_cast<std::size_t>(row)].press; }
XPLMCommandRef Release(int row) { return TheCommandTables().engineStart[static_cast<std::size_t>(row)].release; }

// One engine's start selector, as HandleInput sees it.
struct EngineCommands {
  int starter;
  int igniter;
  int mixtureElement;
};
constexpr EngineCommands kEngines[] = {{kStarter1, kIgniterContin1, 0}, {kStarter2, kIgniterContin2, 1}};

// The magneto selector's positions 1..3: the commands for engine 1 and engine 2.
constexpr int kMagnetoCommands[3][2] = {
    {kMagnetosRight1, kMagnetosRight2}, {kMagnetosBoth1, kMagnetosBoth2}, {kMagnetosLeft1, kMagnetosLeft2}};

const char* const kGetButtonLabels[3] = {"GFMESM_Module::GetButton - Selector1", "GFMESM_Module::GetButton - Selector2",
                                         "GFMESM_Module::GetButton - Selector3"};

}  // namespace

GFMESM_Module::GFMESM_Module() : GF_Abstract_Module(kModuleGFMESM) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

GFMESMInputRecord GFMESM_Module::State() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return decoding_;
}

void GFMESM_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);
  GFMESMInputRecord state{};
  Port().TakeInput(state);
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    decoding_ = state;
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) {
    // The engine 2 selector is traced under the magneto selector's label, as it always has been.
    LogBits16("GFMESM_Module::Register - Selector1", state.values[0]);
    LogBits16("GFMESM_Module::Register - Selector2", state.values[1]);
    LogBits16("GFMESM_Module::Register - Selector2", state.values[2]);
  }
  mixture = XPLMFindDataRef(kMixturePath);
}

std::int32_t GFMESM_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const auto& state = *static_cast<const GFMESMInputRecord*>(record);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    for (int i = 0; i < 3; ++i) LogBits16(kGetButtonLabels[i], state.values[i]);
  }
  std::lock_guard<std::mutex> lock(decodingLock_);
  return DecodeLocked(state, value);
}

std::int32_t GFMESM_Module::DecodeLocked(const GFMESMInputRecord& record, std::int32_t* value) {
  *value = 0;
  std::int32_t control = DetectStartSelectorStep(record.values[0], &decoding_.values[0], kMESMEngine1Base, value);
  if (control >= 0) return control;
  if (record.values[1] != decoding_.values[1]) {
    decoding_.values[1] = record.values[1];
    *value = 1;
    return kMESMMagnetoBase + record.values[1];
  }
  return DetectStartSelectorStep(record.values[2], &decoding_.values[2], kMESMEngine2Base, value);
}

void GFMESM_Module::ClearDisplay() {
  std::lock_guard<std::mutex> lock(decodingLock_);
  decoding_ = GFMESMInputRecord{};
}

// The starter alone does not light an engine that is starved: the mixture goes to full with it.
void GFMESM_Module::SetMixtureFull(int engine) {
  if (mixture == nullptr) return;
  float mixtures[kMixtureElements] = {};
  XPLMGetDatavf(mixture, mixtures, 0, kMixtureElements);
  mixtures[engine] = 1.0f;
  XPLMSetDatavf(mixture, mixtures, 0, kMixtureElements);
}

void GFMESM_Module::HandleInput(std::int32_t control, std::int32_t value) {
  for (int engine = 0; engine < 2; ++engine) {
    const EngineCommands& commands = kEngines[engine];
    const std::int32_t step = control - (engine == 0 ? kMESMEngine1Base : kMESMEngine2Base);
    if (step < 0 || step > 2) continue;
    if (step == 2) {
      // Leaving the last position keeps the igniter on as well.
      RunCommandOnce(Press(commands.igniter));
      return;
    }
    RunCommandOnce(value != 0 ? Press(commands.igniter) : Release(commands.igniter));
    if (step == 0) {
      if (value != 0) {
        BeginCommand(Press(commands.starter));
        SetMixtureFull(commands.mixtureElement);
      } else {
        EndCommand(Release(commands.starter));
      }
    }
    return;
  }
  const std::int32_t magnetoPosition = control - kMESMMagnetoBase;
  if (magnetoPosition < 1 || magnetoPosition > 3 || value == 0) return;
  for (int row : kMagnetoCommands[magnetoPosition - 1]) RunCommandOnce(Press(row));
}

void GFMESM_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                   std::int32_t param2) {
  if (key >= kMESMFunctionSlots) return;
  SwitchFunction& record = buttonFunctions[key];
  ClearFunction(record);
  CreateFunction(functionId, nullptr, record, param1, param2);
}

std::int32_t GFMESM_Module::GetAssignedFunction(std::uint8_t key) {
  return key < kMESMFunctionSlots ? GetFunctionId(buttonFunctions[key]) : 0;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Function01..Function11 (controls 0..10).
const char* const kMESMDefaults[] = {"ENG_1_START",          "NADA",          "ENG_1_AUTO_IGNITE_ON",
                                     "ENG_1_IGNITER",        "ENG_ALL_MAGNETO_LEFT", "ENG_ALL_MAGNETO",
                                     "ENG_ALL_MAGNETO_RIGHT", "ENG_2_START",   "NADA",
                                     "ENG_2_AUTO_IGNITE_ON", "ENG_2_IGNITER"};
static_assert(std::size(kMESMDefaults) == 11);
constinit const AssignmentKeyGroup kGFMESMKeys =
    NumberedKeys("Function", 1, kKeyNumberMinusOne, kMESMDefaults, AssignmentTarget::kRadioTested);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFMESMKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFMESM, "GF-MESM", "GFMESM", "GFMESM_%d", 0x003C, 8,
    {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFMESMInitialQuery, false,
     kDecoder<GFMESMInputRecord, DecodeGFMESMInput>, kDecoder<GFMESMInputRecord, DecodeGFMESMFeature>,
     AfterOpen::Nothing, sizeof(GFMESMInputRecord)});

// Binds first: Register puts the simulator where the panel's switches are, through the new
// bindings.
void LoadAssignments(GFMESM_Module& panel, UnitAssignments& unit) {
  AssignGroup(panel, unit, kGFMESMKeys);
  RegisterUnit(panel, unit);
}

// The X-Plane version from which the GF-MESM is supported but still has nothing to assign here.
constexpr int kMesmSupportedVersion = 900;

const char* DeviceLabel(const DeviceLabelContext& context) {
  return context.xplaneVersion < kMesmSupportedVersion ? "%s - N/S" : kNotAssignableLabelFormat;
}

}  // namespace

constexpr ModelDescriptor kGFMESMDescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFMESM_Module>,
    &LoadAs<GFMESM_Module, LoadAssignments>,
    kFunctionKeys,
    {},  // no brightness report
    nullptr,  // no dialog rows
    &DeviceLabel,
};

}  // namespace drav
