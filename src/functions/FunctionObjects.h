// The function objects: what a control does when it is used, and the state that lights it.
#pragma once

#include <XPLMDataAccess.h>
#include <XPLMUtilities.h>

#include <cstdint>

#include "functions/DatarefBinding.h"
#include "functions/FunctionCatalogue.h"

namespace drav {

struct CustomValueBinding;

enum FunctionKind : std::int32_t {
  kNoKind = 0,
  kModuleSelect = 1,
  kSimCommand = 2,
  kDatarefSwitch = 3,
  kSimulatorCommand = 4,  // a named simulator command standing in for a dataref the simulator dropped
  kCustomBinding = 5,     // a command or dataref named in DRAV.INI itself (CustomBindings.h)
};

enum FunctionAction : std::int32_t {
  kActionOff = 0,
  kActionOn = 1,
  kActionToggle = 2,   // a button pressed
  kActionRelease = 3,  // a button let go
  kActionSet = 4,      // the state comes from the value argument
};

// Radio module kinds a ModuleSelect aims at.
enum RadioModuleKind : std::int32_t { kRadioGF45 = 0, kRadioGF46 = 1, kRadioGF166 = 2 };

struct SwitchFunction {
  std::int32_t kind = kNoKind;
  FunctionId targetFunction = 0;
  std::int32_t targetModuleKind = 0;
  std::int32_t targetUnit = 0;
  std::int32_t isCommand = 0;
  std::int32_t isPair = 0;
  std::int32_t keys[2] = {0, 0};
  std::int32_t buttons[2] = {0, 0};
  DatarefBinding bindings[2];
  std::int32_t bindingCount = 0;
  std::int32_t enabled = 0;
  std::int32_t stateFromBindings = 0;
  std::int32_t actOnRelease = 0;
  std::int32_t holdCommand = 0;
  std::int32_t state = 0;
  FunctionId functionId = 0;
  XPLMCommandRef command = nullptr;  // kSimulatorCommand: null when the simulator lacks it
  std::int32_t commandDrive = 0;     // kSimulatorCommand: the EquivalentDrive that runs it
  // kCustomBinding: the CustomAction, the second command (off, or none), whether bindings[1] is the
  // light, and whether the held command has begun and not yet ended.
  std::int32_t customAction = 0;
  XPLMCommandRef offCommand = nullptr;
  std::int32_t customLight = 0;
  std::int32_t commandHeld = 0;
};

inline constexpr int kAvionicTextSize = 10;  // at most 9 characters and the terminating zero

struct AvionicFunction {
  char text[kAvionicTextSize] = {};
  char tag[kAvionicTextSize] = {};
  XPLMDataRef dataref = nullptr;
  FunctionId functionId = 0;
  DatarefBinding auxBinding;
  std::int32_t format = 0;
  bool isFloat = false;
  // A trim the simulator no longer keeps as a dataref: the commands that step it (null otherwise).
  XPLMCommandRef stepUp = nullptr;
  XPLMCommandRef stepDown = nullptr;
  // The dataref is an on/off flag that means the opposite of the value shown and set.
  bool invertedFlag = false;
  // A value named in DRAV.INI itself: how it is stepped and shown (null for the catalogue's).
  const CustomValueBinding* custom = nullptr;
};

inline constexpr int kMultiFunctionSlots = 6;

struct MultiFunctionList {
  AvionicFunction* functions[kMultiFunctionSlots] = {};
  FunctionId listId = 0;
  std::int32_t currentIndex = -1;  // outside 0..5 until the first build
};

// The factory: builds the function object of id. avionicOut is the address of a module's avionic
// pointer, or null for a control that holds a SwitchFunction; unit and moduleKind aim a ModuleSelect.
void CreateFunction(FunctionId id, AvionicFunction** avionicOut, SwitchFunction& record, std::int32_t unit,
                    std::int32_t moduleKind);
void ExecuteFunction(SwitchFunction& record, std::int32_t action, std::int32_t value, std::int32_t forceOn);
void RefreshFunctionState(SwitchFunction& record);
inline std::int32_t GetFunctionState(const SwitchFunction& record) { return record.state; }
inline FunctionId GetFunctionId(const SwitchFunction& record) { return record.functionId; }
inline FunctionId GetAvionicFunctionId(const AvionicFunction& function) { return function.functionId; }
void ClearFunction(SwitchFunction& record);
void BuildMultiFunctionList(MultiFunctionList& list, FunctionId id);

// The shared avionic object of an id (one per id from the plug-in's start to its stop), or nullptr
// for an id that has none.
AvionicFunction* SharedAvionicFunction(FunctionId id);

// Builders used by the factory.
void BindSwitch(SwitchFunction& record, FunctionId id, std::int32_t offValue, std::int32_t onValue,
                std::int32_t compareMode, const char* path, std::int32_t valueType, std::int32_t offset,
                std::int32_t count);
void BindSwitchFloat(SwitchFunction& record, FunctionId id, float offValue, float onValue, std::int32_t compareMode,
                     const char* path, std::int32_t valueType, std::int32_t offset, std::int32_t count);
void BindSwitchPair(SwitchFunction& record, FunctionId id, std::int32_t onValue1, std::int32_t compareMode1,
                    const char* path1, std::int32_t onValue2, std::int32_t compareMode2, const char* path2);
void BindKeyOrButton(SwitchFunction& record, FunctionId id, std::int32_t isCommand, std::int32_t code,
                     std::int32_t actOnRelease);
void BindKeyOrButtonPair(SwitchFunction& record, FunctionId id, std::int32_t isCommand, std::int32_t codeForOff,
                         std::int32_t codeForOn, std::int32_t actOnRelease);
void BindHeldButton(SwitchFunction& record, FunctionId id, std::int32_t button);
// A command drive of the simulator equivalents (press, toggle or hold) with the dataref that lights
// it, read as an int scalar with the given on value and read rule.
void BindSimulatorCommand(SwitchFunction& record, FunctionId id, const char* command, std::int32_t drive,
                          const char* lightPath, float lightOn, std::int32_t lightRule);
void MakeModuleSelect(SwitchFunction& record, FunctionId id, std::int32_t unit, std::int32_t moduleKind);
void SetStateFromBindings(SwitchFunction& record, std::int32_t flag);
void CreateAvionicFunction(AvionicFunction& object, const char* tag, std::int32_t format, FunctionId id,
                           const char* path);

}  // namespace drav
