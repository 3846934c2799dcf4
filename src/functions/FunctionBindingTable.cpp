#include "functions/FunctionBindingTable.h"

#include "functions/AutopilotBindingTable.h"
#include "functions/CommandBindingTable.h"
#include "functions/DatarefBinding.h"
#include "functions/FamilyBindingTable.h"
#include "functions/SimulatorEquivalents.h"
#include "functions/SwitchBindingTable.h"
#include "base/HostState.h"

namespace drav {

namespace {

constexpr std::int32_t kKeyStroke = 0;
constexpr std::int32_t kCommandButton = 1;

void BindDefinition(SwitchFunction& record, FunctionId id, const SwitchBinding& row) {
  if (row.floatValues) {
    BindSwitchFloat(record, id, row.offValue, row.onValue, row.compareMode, row.path, row.valueType, row.offset,
                    row.count);
  } else {
    BindSwitch(record, id, static_cast<std::int32_t>(row.offValue), static_cast<std::int32_t>(row.onValue),
               row.compareMode, row.path, row.valueType, row.offset, row.count);
  }
}

// The row as this simulator can carry it out: the original dataref, or what stands in for it.
void BindFromDefinition(SwitchFunction& record, FunctionId id, const SwitchBinding& row) {
  const SimEquivalent* equivalent = ChooseSimEquivalent(row.path, row.onValue);
  if (equivalent == nullptr) {
    BindDefinition(record, id, row);
    return;
  }
  switch (equivalent->drive) {
    case EquivalentDrive::kDataref: {
      SwitchBinding replaced = row;
      replaced.path = equivalent->path;
      replaced.valueType = equivalent->valueType;
      replaced.offset = 0;
      replaced.count = equivalent->count;
      BindDefinition(record, id, replaced);
      return;
    }
    case EquivalentDrive::kWriteElsewhere:
    case EquivalentDrive::kLightOnly:
      BindDefinition(record, id, row);
      RedirectBindingWrites(record.bindings[0], equivalent->path);
      return;
    case EquivalentDrive::kPressCommand:
    case EquivalentDrive::kToggleCommand:
    case EquivalentDrive::kHoldCommand:
      BindSimulatorCommand(record, id, equivalent->command, static_cast<std::int32_t>(equivalent->drive),
                           equivalent->path != nullptr ? equivalent->path : row.path, equivalent->lightOn,
                           equivalent->lightRule);
      return;
    case EquivalentDrive::kStepCommands:
    case EquivalentDrive::kInvertedFlag:
      // They stand in for a knob's value, never for a switch.
      BindDefinition(record, id, row);
      return;
  }
}

bool BuildFromCommandTable(FunctionId id, SwitchFunction& record) {
  const CommandBindingRow* row = FindCommandBinding(id);
  if (row == nullptr) return false;
  const std::int32_t code = row->code + (id - row->firstId);
  switch (row->build) {
    case CommandBuild::kButton:
      BindKeyOrButton(record, id, kCommandButton, code, row->actOnRelease);
      return true;
    case CommandBuild::kKeyStroke:
      BindKeyOrButton(record, id, kKeyStroke, code, row->actOnRelease);
      return true;
    case CommandBuild::kButtonPair:
      BindKeyOrButtonPair(record, id, kCommandButton, code, row->codeForOn, row->actOnRelease);
      return true;
    case CommandBuild::kHeldButton:
      BindHeldButton(record, id, code);
      return true;
    case CommandBuild::kKeyStrokeWithLight:
      BindSwitch(record, id, 0, 1, kReadEqual, row->lightPath, kIntScalar, 0, 1);
      BindKeyOrButton(record, id, kKeyStroke, code, row->actOnRelease);
      SetStateFromBindings(record, 1);
      return true;
  }
  return false;
}

bool BuildAutopilotVariant(const AutopilotBindingRow& row, SwitchFunction& record) {
  const AutopilotVariant& variant = CurrentHostFlags().x737Mode != 0 ? row.withX737 : row.withoutX737;
  switch (variant.build) {
    case AutopilotBuild::kNothing:
      return false;
    case AutopilotBuild::kSwitch:
      BindSwitch(record, row.id, variant.offValue, variant.onValue, kReadEqual, variant.path, kIntScalar, 0, 1);
      return true;
    case AutopilotBuild::kSwitchPair:
      BindSwitchPair(record, row.id, variant.onValue, kReadEqual, variant.path, variant.onValue, kReadEqual,
                     variant.secondPath);
      return true;
    case AutopilotBuild::kCommandTable:
      return BuildFromCommandTable(row.id, record);
  }
  return false;
}

}  // namespace

// The autopilot table goes first: it is the only one whose rows depend on X737Mode, and one of its
// ids (AP_DISENGAGE) has a command-table row that applies only without X737Mode.
bool BuildSwitchFunction(FunctionId id, SwitchFunction& record) {
  if (const AutopilotBindingRow* row = FindAutopilotBinding(id)) return BuildAutopilotVariant(*row, record);
  if (const SwitchBinding* definition = FindSwitchBinding(id)) {
    BindFromDefinition(record, id, *definition);
    return true;
  }
  SwitchBinding member{};
  if (FindFamilyBinding(id, member)) {
    BindFromDefinition(record, id, member);
    return true;
  }
  return BuildFromCommandTable(id, record);
}

}  // namespace drav
