// The function objects: the factory that builds one from a function id, the builders it uses, the
// executor that turns a control's input into simulator actions, and the refresh that lights it.
// Everything here runs on the simulator's thread.
#include "functions/FunctionObjects.h"

#include <XPLMUtilities.h>

#include <algorithm>
#include <span>
#include <vector>

#include "functions/AvionicDisplay.h"
#include "functions/AvionicFunctionTable.h"
#include "functions/CustomBindings.h"
#include "functions/FunctionBindingTable.h"
#include "functions/FunctionState.h"
#include "functions/PanelDirectory.h"
#include "functions/RadioTargets.h"
#include "functions/SimulatorEquivalents.h"
#include "base/HostState.h"
#include "base/OptionalXplmApi.h"

namespace drav {

namespace {

constexpr std::int32_t kMaxBindings = 2;

// A multi-function list asks for its avionic objects with a scratch record and no real target.
constexpr std::int32_t kNoTargetUnit = -1;
constexpr std::int32_t kListModuleKind = kRadioGF166;

constexpr FunctionId kFuncInstSlots[] = {kFnDISP_BRIGHTNESS, kFnALTIMETER, kFnAP_HEADING_ADJ, kFnOBS1, kFnOBS2,
                                         kFnADF1_CARD};
constexpr FunctionId kFuncApSlots[] = {kFnAP_NAV_COURSE_ADJ, kFnAP_HEADING_ADJ, kFnAP_SPEED_ADJ, kFnAP_ALTITUDE_ADJ,
                                       kFnAP_VERT_SPEED_ADJ};

std::int32_t BindingsInUse(const SwitchFunction& record) {
  return std::clamp(record.bindingCount, std::int32_t{0}, kMaxBindings);
}

// The toggles and the multi-function lists select on a radio module even where a display pointer
// is offered: they are never shown themselves.
bool IsAlwaysModuleSelect(FunctionId id) {
  return id == kNav1Nav2Toggle || id == kCom1Com2Toggle || id == kFuncInst || id == kFuncAp;
}

void CopyTag(char (&destination)[kAvionicTextSize], const char* tag) {
  std::int32_t length = 0;
  if (tag != nullptr) {
    while (length < kAvionicTextSize - 1 && tag[length] != '\0') {
      destination[length] = tag[length];
      ++length;
    }
  }
  std::fill(destination + length, destination + kAvionicTextSize, '\0');
}

// ---- execution --------------------------------------------------------------------------------

bool IsKnownAction(std::int32_t action) { return action >= kActionOff && action <= kActionSet; }

// Applies the action to the record's state; false when the event is to be ignored.
//
// `Set` stores any non-zero value as 1: selectors report their position number (2, 10, ...) to
// mean "this position is selected", and the state also indexes the two codes of a command pair,
// where only 0 and 1 name one.
bool ApplyAction(SwitchFunction& record, std::int32_t action, std::int32_t value) {
  switch (action) {
    case kActionOff:
      record.state = 0;
      return true;
    case kActionOn:
      record.state = 1;
      return true;
    case kActionToggle:
      record.state = record.state == 0 ? 1 : 0;
      return true;
    case kActionRelease:
      if (record.actOnRelease == 0 && record.holdCommand == 0) return false;
      record.state = 0;
      return true;
    case kActionSet:
      record.state = value != 0 ? 1 : 0;
      return true;
    default:
      return false;
  }
}

void SelectOnRadio(const SwitchFunction& record) {
  RadioModule* radio = FindRadioModule(record.targetModuleKind, record.targetUnit);
  if (radio == nullptr) return;
  if (record.targetFunction == kCom1Com2Toggle || record.targetFunction == kNav1Nav2Toggle) {
    const FunctionId other =
        ToggleCounterpart(record.targetFunction, radio->GetCurrentFunction(), record.targetModuleKind);
    if (other != kNada) radio->SelectFunction(other);
  } else {
    radio->SelectFunction(record.targetFunction);
  }
  radio->SetDisplay();
}

void PressAndRelease(std::int32_t button) {
  XPLMCommandButtonPress(button);
  XPLMCommandButtonRelease(button);
}

void RunCommand(const SwitchFunction& record) {
  const std::int32_t code = record.isPair != 0 && record.state != 0 ? 1 : 0;
  if (record.isCommand != 1) {
    XPLMCommandKeyStroke(record.keys[code]);
  } else if (record.isPair != 0 || record.holdCommand == 0) {
    PressAndRelease(record.buttons[code]);
  } else if (record.state == 1) {
    XPLMCommandButtonPress(record.buttons[0]);
  } else {
    XPLMCommandButtonRelease(record.buttons[0]);
  }
}

// A press selects; a toggle runs when the simulator's mode is not what the action asks for (so a
// switch that reports its position again changes nothing); a held command lasts while the state is 1.
void RunSimulatorCommand(SwitchFunction& record, std::int32_t litBefore) {
  switch (static_cast<EquivalentDrive>(record.commandDrive)) {
    case EquivalentDrive::kPressCommand:
      if (record.state == 1) RunCommandOnce(record.command);
      return;
    case EquivalentDrive::kToggleCommand:
      if (record.state != litBefore) RunCommandOnce(record.command);
      return;
    case EquivalentDrive::kHoldCommand:
      if (record.state == 1) {
        BeginCommand(record.command);
      } else {
        EndCommand(record.command);
      }
      return;
    default:
      return;
  }
}

void ExecuteSimulatorCommand(SwitchFunction& record, std::int32_t action, std::int32_t value) {
  const bool isHold = record.commandDrive == static_cast<std::int32_t>(EquivalentDrive::kHoldCommand);
  // A held command follows the presses alone (a press holds it, whatever the light shows); the
  // others start from what the simulator shows now.
  const std::int32_t litBefore = isHold ? 0 : ReadBinding(record.bindings[0]);
  record.state = litBefore;
  if (ApplyAction(record, action, value)) RunSimulatorCommand(record, litBefore);
}

void WriteBindings(SwitchFunction& record, std::int32_t forceOn) {
  for (std::int32_t i = 0; i < BindingsInUse(record); ++i) {
    record.bindings[i].state = record.state;
    WriteBinding(record.bindings[i], forceOn);
  }
}

// ---- refresh ----------------------------------------------------------------------------------

void RefreshModuleSelect(SwitchFunction& record) {
  RadioModule* radio = FindRadioModule(record.targetModuleKind, record.targetUnit);
  if (radio == nullptr) return;
  const FunctionId current = radio->GetCurrentFunction();
  const bool isToggle = record.targetFunction == kCom1Com2Toggle || record.targetFunction == kNav1Nav2Toggle;
  // The GF-166 lights a toggle while the second radio is shown. A GF-45 or GF-46 compares the
  // toggle itself with its current function, which is never a toggle, so its light stays dark.
  const bool lit = isToggle && record.targetModuleKind == kRadioGF166
                       ? IsSecondRadioFunction(record.targetFunction, current)
                       : current == record.targetFunction;
  record.state = lit ? 1 : 0;
}

// Lit only while every binding reads on: two bindings light as the AND of both.
void RefreshFromBindings(SwitchFunction& record) {
  record.state = 1;
  for (std::int32_t i = 0; i < BindingsInUse(record); ++i) {
    if (ReadBinding(record.bindings[i]) == 0) {
      record.state = 0;
      return;
    }
  }
}

// ---- the factory ------------------------------------------------------------------------------

// What this simulator keeps the value as: the path to bind, with the object told whether that is an
// inverted flag or whether the value is stepped by command instead.
const char* ApplyAvionicEquivalent(AvionicFunction& object, const char* path) {
  const SimEquivalent* equivalent = ChooseSimEquivalent(path, kAnyOnValue);
  const EquivalentDrive drive = equivalent != nullptr ? equivalent->drive : EquivalentDrive::kDataref;
  const bool stepped = drive == EquivalentDrive::kStepCommands;
  object.stepUp = stepped ? FindOptionalCommand(equivalent->command) : nullptr;
  object.stepDown = stepped ? FindOptionalCommand(equivalent->downCommand) : nullptr;
  object.invertedFlag = drive == EquivalentDrive::kInvertedFlag;
  const bool replaced = equivalent != nullptr && (drive == EquivalentDrive::kDataref || object.invertedFlag);
  return replaced ? equivalent->path : path;
}

// Re-initialises id's shared object from its row, with X737Mode as it is now.
AvionicFunction* BuildSharedAvionic(const AvionicFunctionRow& row) {
  AvionicFunction* object = SharedAvionicFunction(row.id);
  if (object == nullptr) return nullptr;
  const bool x737 = CurrentHostFlags().x737Mode != 0;
  const char* path = x737 && row.x737Path != nullptr ? row.x737Path : row.path;
  const char* auxPath = x737 ? row.auxX737Path : row.auxPath;
  // The companion first: the speed display reads it to choose between knots and Mach.
  if (auxPath != nullptr) InitBinding(object->auxBinding, 1.0f, 0.0f, kCompareEqual, auxPath, kIntScalar, 0, 1);
  CreateAvionicFunction(*object, row.tag, row.format, row.id, ApplyAvionicEquivalent(*object, path));
  return object;
}

}  // namespace

// ---- builders ---------------------------------------------------------------------------------

void BindSwitch(SwitchFunction& record, FunctionId id, std::int32_t offValue, std::int32_t onValue,
                std::int32_t compareMode, const char* path, std::int32_t valueType, std::int32_t offset,
                std::int32_t count) {
  BindSwitchFloat(record, id, static_cast<float>(offValue), static_cast<float>(onValue), compareMode, path,
                  valueType, offset, count);
}

void BindSwitchFloat(SwitchFunction& record, FunctionId id, float offValue, float onValue, std::int32_t compareMode,
                     const char* path, std::int32_t valueType, std::int32_t offset, std::int32_t count) {
  InitBinding(record.bindings[0], onValue, offValue, static_cast<float>(compareMode), path, valueType, offset, count);
  record.kind = kDatarefSwitch;
  record.bindingCount = 1;
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.functionId = id;
  RefreshFunctionState(record);
}

void BindSwitchPair(SwitchFunction& record, FunctionId id, std::int32_t onValue1, std::int32_t compareMode1,
                    const char* path1, std::int32_t onValue2, std::int32_t compareMode2, const char* path2) {
  InitBinding(record.bindings[0], static_cast<float>(onValue1), 0.0f, static_cast<float>(compareMode1), path1,
              kIntScalar, 0, 1);
  InitBinding(record.bindings[1], static_cast<float>(onValue2), 0.0f, static_cast<float>(compareMode2), path2,
              kIntScalar, 0, 1);
  record.kind = kDatarefSwitch;
  record.bindingCount = 2;
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.functionId = id;
  RefreshFunctionState(record);
}

void BindKeyOrButton(SwitchFunction& record, FunctionId id, std::int32_t isCommand, std::int32_t code,
                     std::int32_t actOnRelease) {
  record.kind = kSimCommand;
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.functionId = id;
  record.isCommand = isCommand;
  record.isPair = 0;
  record.actOnRelease = actOnRelease;
  if (isCommand == 1) {
    record.buttons[0] = code;
  } else {
    record.keys[0] = code;
  }
  RefreshFunctionState(record);
}

void BindKeyOrButtonPair(SwitchFunction& record, FunctionId id, std::int32_t isCommand, std::int32_t codeForOff,
                         std::int32_t codeForOn, std::int32_t actOnRelease) {
  record.kind = kSimCommand;
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.functionId = id;
  record.isCommand = isCommand;
  record.isPair = 1;
  record.actOnRelease = actOnRelease;
  std::int32_t(&codes)[2] = isCommand == 1 ? record.buttons : record.keys;
  codes[0] = codeForOff;
  codes[1] = codeForOn;
  RefreshFunctionState(record);
}

void BindHeldButton(SwitchFunction& record, FunctionId id, std::int32_t button) {
  record.kind = kSimCommand;
  record.isCommand = 1;
  record.isPair = 0;
  record.buttons[0] = button;
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.actOnRelease = 0;
  record.holdCommand = 1;
  record.state = 0;
  record.functionId = id;
}

void BindSimulatorCommand(SwitchFunction& record, FunctionId id, const char* command, std::int32_t drive,
                          const char* lightPath, float lightOn, std::int32_t lightRule) {
  InitBinding(record.bindings[0], lightOn, 0.0f, static_cast<float>(lightRule), lightPath, kIntScalar, 0, 1);
  RedirectBindingWrites(record.bindings[0], nullptr);
  record.kind = kSimulatorCommand;
  record.command = FindOptionalCommand(command);
  record.commandDrive = drive;
  record.bindingCount = 1;
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.actOnRelease = 0;
  record.holdCommand = drive == static_cast<std::int32_t>(EquivalentDrive::kHoldCommand) ? 1 : 0;
  record.state = 0;
  record.functionId = id;
  RefreshFunctionState(record);
}

void MakeModuleSelect(SwitchFunction& record, FunctionId id, std::int32_t unit, std::int32_t moduleKind) {
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.kind = kModuleSelect;
  record.functionId = id;
  record.targetFunction = id;
  record.targetUnit = unit;
  record.targetModuleKind = moduleKind;
  RefreshFunctionState(record);
}

void SetStateFromBindings(SwitchFunction& record, std::int32_t flag) { record.stateFromBindings = flag; }

void CreateAvionicFunction(AvionicFunction& object, const char* tag, std::int32_t format, FunctionId id,
                           const char* path) {
  CopyTag(object.tag, tag);
  object.format = format;
  object.functionId = id;
  // An empty path names a value that is not a dataref (the panels' display brightness).
  object.dataref = path != nullptr && path[0] != '\0' ? XPLMFindDataRef(path) : nullptr;
  object.isFloat = IsFloatDataref(object.dataref);
  FormatAvionicDisplay(object);
}

// ---- the shared avionic objects ---------------------------------------------------------------

AvionicFunction* SharedAvionicFunction(FunctionId id) {
  const std::int32_t index = AvionicFunctionRowIndex(id);
  return index < 0 ? nullptr : &CurrentFunctionState().sharedAvionicObjects[static_cast<std::size_t>(index)];
}

// ---- the factory, the executor, the refresh ---------------------------------------------------

void CreateFunction(FunctionId id, AvionicFunction** avionicOut, SwitchFunction& record, std::int32_t unit,
                    std::int32_t moduleKind) {
  // Not a function id at all: a negative value must not become a ModuleSelect target.
  if (id < kNada) return;
  if (IsCustomFunction(id)) {
    BuildCustomFunction(id, avionicOut, record);
    return;
  }
  const FunctionGroup group = GetFunctionGroup(id);
  // A button bound to an avionic function selects that function on a radio module. One bound to
  // NADA gets a selection of nothing, which its function id 0 keeps from ever running.
  if ((id == kNada || group == FunctionGroup::kAvionic) && avionicOut == nullptr) {
    MakeModuleSelect(record, id, unit, moduleKind);
    return;
  }
  if (id == kNada) {
    *avionicOut = nullptr;
    return;
  }
  // The levers belong to the throttle quadrant's own handling; the bounds and ids outside the
  // catalogue are nothing.
  if (group != FunctionGroup::kAvionic && group != FunctionGroup::kSwitch) return;
  if (IsAlwaysModuleSelect(id)) {
    MakeModuleSelect(record, id, unit, moduleKind);
    return;
  }
  if (const AvionicFunctionRow* row = FindAvionicFunctionRow(id)) {
    // Without a display pointer to fill (an avionic id above the group bound bound to a button),
    // there is nothing to build.
    if (avionicOut != nullptr) *avionicOut = BuildSharedAvionic(*row);
    return;
  }
  // Switch ids build from the tables; the ones without object leave the record as ClearFunction
  // left it.
  BuildSwitchFunction(id, record);
}

void ExecuteFunction(SwitchFunction& record, std::int32_t action, std::int32_t value, std::int32_t forceOn) {
  if (record.functionId == kNada || record.enabled == 0 || !IsKnownAction(action)) return;
  switch (record.kind) {
    case kModuleSelect:
      // A selection happens on the press; the state is the radio's business and follows at refresh.
      if (action != kActionRelease) SelectOnRadio(record);
      return;
    case kSimCommand:
      if (ApplyAction(record, action, value)) RunCommand(record);
      return;
    case kDatarefSwitch:
      if (ApplyAction(record, action, value)) WriteBindings(record, forceOn);
      return;
    case kSimulatorCommand:
      ExecuteSimulatorCommand(record, action, value);
      return;
    case kCustomBinding:
      ExecuteCustomBinding(record, action, value, forceOn);
      return;
    default:
      return;
  }
}

void RefreshFunctionState(SwitchFunction& record) {
  if (record.functionId == kNada) return;
  switch (record.kind) {
    case kModuleSelect:
      RefreshModuleSelect(record);
      return;
    case kSimCommand:
      // Otherwise the state stays what the last execution left.
      if (record.stateFromBindings != 1 || record.enabled == 0) return;
      RefreshFromBindings(record);
      return;
    case kDatarefSwitch:
    case kSimulatorCommand:
      if (record.enabled == 0) return;
      RefreshFromBindings(record);
      return;
    case kCustomBinding:
      RefreshCustomBinding(record);
      return;
    default:
      return;
  }
}

void ClearFunction(SwitchFunction& record) {
  // A command held down by the control must not stay down once the control is bound elsewhere.
  if (record.kind == kCustomBinding && record.commandHeld != 0) EndCommand(record.command);
  record.commandHeld = 0;
  record.state = 0;
  record.actOnRelease = 0;
  record.holdCommand = 0;
  record.functionId = kNada;
}

void BuildMultiFunctionList(MultiFunctionList& list, FunctionId id) {
  list.listId = id;
  if (list.currentIndex < 0 || list.currentIndex >= kMultiFunctionSlots) {
    // The instrument list opens on the altimeter, the second slot.
    list.currentIndex = id == kFuncInst ? 1 : 0;
  }
  std::span<const FunctionId> slots;
  if (id == kFuncInst) slots = kFuncInstSlots;
  if (id == kFuncAp) slots = kFuncApSlots;
  SwitchFunction scratch;
  for (std::size_t slot = 0; slot < slots.size(); ++slot) {
    CreateFunction(slots[slot], &list.functions[slot], scratch, kNoTargetUnit, kListModuleKind);
  }
}

}  // namespace drav
