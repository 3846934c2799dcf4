#include "functions/CustomBindings.h"

#include <XPLMDataAccess.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "base/Numbers.h"
#include "functions/AvionicDisplay.h"
#include "functions/DatarefBinding.h"
#include "base/OptionalXplmApi.h"
#include "functions/FunctionState.h"

namespace drav {

namespace {

// A fast spin of a knob must not queue an absurd number of commands or writes from one report.
constexpr std::int32_t kMaxDetentsPerTurn = 64;
constexpr std::int32_t kOuterKnobDetents = 10;

CustomBindingTable& Table() { return CurrentFunctionState().customBindings; }

CustomBindingEntry* EntryOf(FunctionId id) {
  if (!IsCustomFunction(id)) return nullptr;
  const auto index = static_cast<std::size_t>(id - kFirstCustomFunction);
  CustomBindingTable& table = Table();
  return index < table.entries.size() ? &table.entries[index] : nullptr;
}

// ---- names to handles ------------------------------------------------------------------------------

XPLMDataRef FindNamedDataref(const CustomDatarefName& name) {
  return name.path.empty() ? nullptr : XPLMFindDataRef(name.path.c_str());
}

bool HasFloatAccess(XPLMDataRef dataref, std::int32_t index) {
  const XPLMDataTypeID types = XPLMGetDataRefTypes(dataref);
  return index >= 0 ? (types & xplmType_FloatArray) != 0 : (types & xplmType_Float) != 0;
}

CustomDatarefHandle FindHandle(const CustomDatarefName& name) {
  CustomDatarefHandle handle;
  handle.dataref = FindNamedDataref(name);
  handle.index = name.index;
  handle.isFloat = handle.dataref != nullptr && HasFloatAccess(handle.dataref, name.index);
  handle.isDouble = handle.dataref != nullptr && !handle.isFloat && name.index < 0 &&
                    (XPLMGetDataRefTypes(handle.dataref) & xplmType_Double) != 0;
  return handle;
}

// A switch's dataref through the bindings every function uses: one element of an array, or the
// scalar, compared with `value` by the rule.
void InitNamedBinding(DatarefBinding& binding, const CustomDatarefName& name, float value, float offValue,
                      float compareMode) {
  const CustomDatarefHandle handle = FindHandle(name);
  const bool isArray = name.index >= 0;
  const std::int32_t valueType = isArray ? (handle.isFloat ? kFloatArray : kIntArray)
                                         : (handle.isFloat ? kFloatScalar : kIntScalar);
  InitBinding(binding, value, offValue, compareMode, handle.dataref != nullptr ? name.path.c_str() : nullptr,
              valueType, std::max(name.index, std::int32_t{0}), 1);
}

float CompareModeOf(CustomCompare compare) {
  constexpr float kModes[] = {kCompareEqual, kCompareNotEqual, kCompareLess, kCompareGreater};
  return kModes[static_cast<std::size_t>(compare)];
}

// ---- value access ----------------------------------------------------------------------------------

float ReadHandle(const CustomDatarefHandle& handle) {
  if (handle.dataref == nullptr) return 0.0f;
  if (handle.isDouble) return static_cast<float>(XPLMGetDatad(handle.dataref));
  if (handle.index < 0) {
    return handle.isFloat ? XPLMGetDataf(handle.dataref) : static_cast<float>(XPLMGetDatai(handle.dataref));
  }
  if (handle.isFloat) {
    float value = 0.0f;
    return XPLMGetDatavf(handle.dataref, &value, handle.index, 1) == 1 ? value : 0.0f;
  }
  int value = 0;
  return XPLMGetDatavi(handle.dataref, &value, handle.index, 1) == 1 ? static_cast<float>(value) : 0.0f;
}

int NearestInt(float value) {
  constexpr float kIntLimit = 2147483520.0f;  // the largest float below 2^31
  return static_cast<int>(std::lround(std::clamp(value, -kIntLimit, kIntLimit)));
}

void WriteHandle(const CustomDatarefHandle& handle, float value) {
  if (handle.dataref == nullptr || !std::isfinite(value)) return;
  if (handle.isDouble) {
    XPLMSetDatad(handle.dataref, value);
    return;
  }
  if (handle.index < 0) {
    if (handle.isFloat) {
      XPLMSetDataf(handle.dataref, value);
    } else {
      XPLMSetDatai(handle.dataref, NearestInt(value));
    }
    return;
  }
  if (handle.isFloat) {
    XPLMSetDatavf(handle.dataref, &value, handle.index, 1);
  } else {
    int whole = NearestInt(value);
    XPLMSetDatavi(handle.dataref, &whole, handle.index, 1);
  }
}

// One detent: past a limit the value stops there, or continues at the other end when it wraps.
float StepOnce(const CustomBindingSpec& spec, float value, float delta) {
  const float next = value + delta;
  if (!spec.limited) return next;
  if (next > spec.maximum) return spec.wrap ? spec.minimum : spec.maximum;
  if (next < spec.minimum) return spec.wrap ? spec.maximum : spec.minimum;
  return next;
}

void StepDataref(const CustomValueBinding& binding, std::int32_t detents) {
  if (binding.stepped.dataref == nullptr) return;
  const float delta = detents > 0 ? binding.spec.delta : -binding.spec.delta;
  float value = ReadHandle(binding.stepped);
  for (std::int32_t i = 0; i < std::abs(detents); ++i) value = StepOnce(binding.spec, value, delta);
  WriteHandle(binding.stepped, value);
}

void TurnCommands(const CustomValueBinding& binding, std::int32_t detents) {
  const XPLMCommandRef command = detents > 0 ? binding.up : binding.down;
  for (std::int32_t i = 0; i < std::abs(detents); ++i) RunCommandOnce(command);
}

// printf's zero flag, after the locale-proof formatting: "  -5.0" becomes "-005.0".
void PadWithZeros(char* line) {
  std::size_t blanks = 0;
  while (line[blanks] == ' ') ++blanks;
  if (blanks == 0) return;
  if (line[blanks] == '-') {
    line[0] = '-';
    std::fill(line + 1, line + blanks + 1, '0');
  } else {
    std::fill(line, line + blanks, '0');
  }
}

// ---- switches --------------------------------------------------------------------------------------

CustomAction ActionOf(const SwitchFunction& record) { return static_cast<CustomAction>(record.customAction); }

bool Alternates(CustomAction action) {
  return action == CustomAction::kCommandPair || action == CustomAction::kToggleDataref;
}

// Where the control's on/off stands before a press flips it: a toggled dataref as the simulator
// holds it now, anything else as it was last shown.
std::int32_t CurrentState(SwitchFunction& record) {
  if (ActionOf(record) == CustomAction::kToggleDataref && record.bindings[0].dataref != nullptr) {
    return ReadBinding(record.bindings[0]);
  }
  return record.state;
}

// The state an input asks for, or -1 when it asks nothing of this binding (letting go of a button
// that alternates).
std::int32_t WishedState(SwitchFunction& record, std::int32_t action, std::int32_t value) {
  const bool alternates = Alternates(ActionOf(record));
  switch (action) {
    case kActionOff: return 0;
    case kActionOn: return 1;
    case kActionSet: return value != 0 ? 1 : 0;
    case kActionToggle: return alternates ? (CurrentState(record) == 0 ? 1 : 0) : 1;
    case kActionRelease: return alternates ? -1 : 0;
    default: return -1;
  }
}

void HoldCommand(SwitchFunction& record, std::int32_t wish) {
  if (wish == 1 && record.commandHeld == 0) {
    BeginCommand(record.command);
    record.commandHeld = 1;
  } else if (wish == 0 && record.commandHeld != 0) {
    EndCommand(record.command);
    record.commandHeld = 0;
  }
}

void RunWish(SwitchFunction& record, std::int32_t wish) {
  switch (ActionOf(record)) {
    case CustomAction::kCommandOnce:
      if (wish == 1) RunCommandOnce(record.command);
      return;
    case CustomAction::kCommandPair:
      RunCommandOnce(wish == 1 ? record.command : record.offCommand);
      return;
    case CustomAction::kCommandHold:
      HoldCommand(record, wish);
      return;
    case CustomAction::kSetDataref:
    case CustomAction::kToggleDataref:
      record.bindings[0].state = wish;
      WriteBinding(record.bindings[0], 0);
      return;
    default:
      return;
  }
}

bool WritesDataref(CustomAction action) {
  return action == CustomAction::kSetDataref || action == CustomAction::kToggleDataref;
}

void BuildSwitch(const CustomBindingSpec& spec, FunctionId id, SwitchFunction& record) {
  const bool writes = WritesDataref(spec.action);
  if (writes) InitNamedBinding(record.bindings[0], spec.dataref, spec.onValue, spec.offValue, kCompareEqual);
  if (spec.hasLight) {
    InitNamedBinding(record.bindings[1], spec.light, spec.lightValue, 0.0f, CompareModeOf(spec.compare));
  }
  const bool commands = !writes && spec.action != CustomAction::kNone;
  record.kind = kCustomBinding;
  record.customAction = static_cast<std::int32_t>(spec.action);
  record.command = commands ? FindOptionalCommand(spec.commands[0].c_str()) : nullptr;
  record.offCommand =
      spec.action == CustomAction::kCommandPair ? FindOptionalCommand(spec.commands[1].c_str()) : nullptr;
  record.customLight = spec.hasLight ? 1 : 0;
  record.commandHeld = 0;
  record.bindingCount = (writes ? 1 : 0) + (spec.hasLight ? 1 : 0);
  record.enabled = 1;
  record.stateFromBindings = 0;
  record.state = 0;
  record.functionId = id;
  RefreshCustomBinding(record);
}

AvionicFunction* BuildValue(CustomBindingEntry& entry, FunctionId id) {
  CustomValueBinding& binding = entry.value;
  const CustomBindingSpec& spec = binding.spec;
  binding.stepped = spec.action == CustomAction::kStepDataref ? FindHandle(spec.dataref) : CustomDatarefHandle{};
  binding.shown = spec.hasShow ? FindHandle(spec.shown) : binding.stepped;
  const bool turns = spec.action == CustomAction::kTurnCommands;
  binding.up = turns ? FindOptionalCommand(spec.commands[0].c_str()) : nullptr;
  binding.down = turns ? FindOptionalCommand(spec.commands[1].c_str()) : nullptr;
  AvionicFunction& object = entry.avionic;
  object = AvionicFunction{};
  object.functionId = id;
  object.dataref = binding.shown.dataref;
  object.isFloat = binding.shown.isFloat;
  object.custom = &binding;
  FormatCustomValue(object);
  return &object;
}

void ReportMissingDataref(const CustomDatarefName& name, MissingNameReport report, void* context, int* count) {
  if (name.path.empty() || FindNamedDataref(name) != nullptr) return;
  report(context, "dataref", name.path.c_str());
  ++*count;
}

void ReportMissingCommand(const std::string& name, MissingNameReport report, void* context, int* count) {
  if (name.empty() || FindOptionalCommand(name.c_str()) != nullptr) return;
  report(context, "command", name.c_str());
  ++*count;
}

}  // namespace

FunctionId InternCustomBinding(const char* value) {
  CustomBindingSpec spec;
  if (!ParseCustomBinding(value, &spec)) return kNada;
  CustomBindingTable& table = Table();
  const auto found = table.ids.find(value);
  if (found != table.ids.end()) return found->second;
  if (table.entries.size() >= static_cast<std::size_t>(kMaxCustomBindings)) return kNada;
  const FunctionId id = kFirstCustomFunction + static_cast<FunctionId>(table.entries.size());
  CustomBindingEntry& entry = table.entries.emplace_back();
  entry.text = value;
  entry.value.spec = std::move(spec);
  table.ids.emplace(entry.text, id);
  return id;
}

const char* CustomBindingText(FunctionId id) {
  const CustomBindingEntry* entry = EntryOf(id);
  return entry != nullptr ? entry->text.c_str() : "";
}

const CustomBindingSpec* CustomBindingOf(FunctionId id) {
  const CustomBindingEntry* entry = EntryOf(id);
  return entry != nullptr ? &entry->value.spec : nullptr;
}

int ReportMissingCustomNames(FunctionId id, MissingNameReport report, void* context) {
  const CustomBindingSpec* spec = CustomBindingOf(id);
  if (spec == nullptr || report == nullptr) return 0;
  int count = 0;
  for (const std::string& command : spec->commands) ReportMissingCommand(command, report, context, &count);
  for (const CustomDatarefName* name : {&spec->dataref, &spec->light, &spec->shown}) {
    ReportMissingDataref(*name, report, context, &count);
  }
  return count;
}

void BuildCustomFunction(FunctionId id, AvionicFunction** avionicOut, SwitchFunction& record) {
  CustomBindingEntry* entry = EntryOf(id);
  if (entry == nullptr) return;
  const bool valueControl = entry->value.spec.IsValueControl();
  if (avionicOut != nullptr) {
    *avionicOut = valueControl ? BuildValue(*entry, id) : nullptr;
    return;
  }
  // An encoder's or a display's value on a button: the button does nothing.
  if (!valueControl) BuildSwitch(entry->value.spec, id, record);
}

void ExecuteCustomBinding(SwitchFunction& record, std::int32_t action, std::int32_t value, std::int32_t forceOn) {
  if (ActionOf(record) == CustomAction::kNone) return;  // a light alone: pressing it changes nothing
  const std::int32_t wish = forceOn != 0 && action == kActionSet ? 1 : WishedState(record, action, value);
  if (wish < 0) return;
  RunWish(record, wish);
  record.state = wish;
}

void RefreshCustomBinding(SwitchFunction& record) {
  if (record.customLight != 0) {
    record.state = ReadBinding(record.bindings[1]);
  } else if (WritesDataref(ActionOf(record))) {
    record.state = ReadBinding(record.bindings[0]);
  }
  // A command without a light shows what the control last asked for.
}

void AdjustCustomValue(AvionicFunction& function, std::int32_t outerSteps, std::int32_t innerSteps) {
  if (function.custom == nullptr) return;
  const std::int64_t wanted = static_cast<std::int64_t>(outerSteps) * kOuterKnobDetents + innerSteps;
  const auto detents = static_cast<std::int32_t>(std::clamp<std::int64_t>(wanted, -kMaxDetentsPerTurn, kMaxDetentsPerTurn));
  if (detents == 0) return;
  const CustomValueBinding& binding = *function.custom;
  if (binding.spec.action == CustomAction::kStepDataref) StepDataref(binding, detents);
  if (binding.spec.action == CustomAction::kTurnCommands) TurnCommands(binding, detents);
  FormatCustomValue(function);
}

void FormatCustomValue(AvionicFunction& function) {
  if (function.custom == nullptr) return;
  const CustomValueBinding& binding = *function.custom;
  if (binding.shown.dataref == nullptr) {
    function.text[0] = '\0';
    return;
  }
  const float value = ReadHandle(binding.shown);
  const CustomDisplayFormat& format = binding.spec.format;
  char line[64];
  FormatFixed(line, sizeof line, std::isfinite(value) ? value : 0.0f, format.width, format.decimals);
  if (format.zeroPadded) PadWithZeros(line);
  std::strncpy(function.text, line, kAvionicTextSize - 1);
  function.text[kAvionicTextSize - 1] = '\0';
}

}  // namespace drav
