#include "modules/GFRadioModule.h"

#include <algorithm>
#include <cstdio>

#include "functions/AvionicAdjust.h"
#include "functions/AvionicDisplay.h"
#include "functions/RadioTargets.h"
#include "base/Log.h"
#include "modules/ModuleState.h"
#include "modules/PanelPower.h"

namespace drav {

namespace {

constexpr FunctionId kFunctionTransponder = kFnXPDR;
constexpr int kAlphaDisplay = 1;
constexpr int kNumericDisplay = 2;

// Where a list opens when it has no valid position yet: the instrument list on the altimeter.
struct RadioListShape {
  FunctionId listId;
  std::int32_t length;
  std::int32_t startIndex;
};

constexpr RadioListShape kRadioListShapes[] = {
    {kFuncInst, 6, 1},
    {kFuncAp, 5, 0},
};

const RadioListShape* FindListShape(FunctionId listId) {
  for (const RadioListShape& shape : kRadioListShapes) {
    if (shape.listId == listId) return &shape;
  }
  return nullptr;
}

// Ids that select no function get no function: the factory only touches the pointer for
// functions that have an avionic object, so it starts out null.
AvionicFunction* CreateSingleFunction(FunctionId functionId) {
  AvionicFunction* function = nullptr;
  SwitchFunction scratch;
  ClearFunction(scratch);
  CreateFunction(functionId, &function, scratch, -1, 2);
  return function;
}

AvionicFunction* CurrentEntry(const MultiFunctionList& list) {
  const std::int32_t index = list.currentIndex;
  if (index < 0 || index >= RadioFunctionListLength(list.listId)) return nullptr;
  return list.functions[index];
}

}  // namespace

MultiFunctionList* SharedRadioFunctionList(FunctionId listId) {
  SharedRadioFunctionLists& lists = CurrentModuleState().radioLists;
  if (listId == kFuncInst) return &lists.instruments;
  if (listId == kFuncAp) return &lists.autopilot;
  return nullptr;
}

std::int32_t RadioFunctionListLength(FunctionId listId) {
  const RadioListShape* shape = FindListShape(listId);
  return shape != nullptr ? shape->length : 0;
}

GFRadioModule::GFRadioModule(const RadioModelTraits& traits)
    : GF_Abstract_AvionicDevice(traits.moduleType), source(traits.singleSource), traits_(&traits) {}

bool GFRadioModule::HasSelection() const { return ShowsList() ? list != nullptr : single != nullptr; }

AvionicFunction* GFRadioModule::InputTarget() const {
  if (!ShowsList()) return single;
  return list != nullptr ? CurrentEntry(*list) : nullptr;
}

// ---- selection ---------------------------------------------------------------------------------

void GFRadioModule::AssignFunction(std::uint8_t, std::int32_t functionId, std::int32_t, std::int32_t) {
  SelectFunction(functionId);
}

std::int32_t GFRadioModule::GetAssignedFunction(std::uint8_t) { return GetCurrentFunction(); }

std::int32_t GFRadioModule::GetCurrentFunction() {
  if (ShowsList()) return list != nullptr ? list->listId : 0;
  return single != nullptr ? GetAvionicFunctionId(*single) : 0;
}

void GFRadioModule::SelectFunction(std::int32_t functionId) {
  if (StepMode(functionId)) return;

  const RadioListShape* shape = FindListShape(functionId);
  if (shape != nullptr) {
    source = traits_->listSource;
    list = SharedRadioFunctionList(functionId);
    BuildMultiFunctionList(*list, functionId);
    // The lists differ in length: a position valid in the longer one is not in the shorter.
    if (list->currentIndex < 0 || list->currentIndex >= shape->length) list->currentIndex = shape->startIndex;
    return;
  }
  source = traits_->singleSource;
  single = CreateSingleFunction(functionId);
}

// ---- encoders ----------------------------------------------------------------------------------

void GFRadioModule::TurnOuterRing(std::int32_t steps) {
  if (ShowsList()) {
    MoveListIndex(steps);
    return;
  }
  AdjustAvionicFunction(single, steps, 0, traits_->moduleType);
}

void GFRadioModule::TurnInnerRing(std::int32_t steps) {
  AdjustAvionicFunction(InputTarget(), 0, steps, traits_->moduleType);
}

// The walk stops at either end instead of wrapping; the entry it lands on is read at once so
// that the next SetDisplay shows a current value.
void GFRadioModule::MoveListIndex(std::int32_t steps) {
  if (list == nullptr) return;
  const std::int64_t last = RadioFunctionListLength(list->listId) - 1;
  if (last < 0) return;
  const std::int64_t moved = std::int64_t{list->currentIndex} + steps;
  list->currentIndex = static_cast<std::int32_t>(std::clamp<std::int64_t>(moved, 0, last));
  AvionicFunction* entry = CurrentEntry(*list);
  if (entry != nullptr) FormatAvionicDisplay(*entry);
}

// ---- outputs -----------------------------------------------------------------------------------

// Nothing selected, nothing to refresh: not even the power blanking runs for such a unit.
void GFRadioModule::UpdateOutputs() {
  AvionicFunction* shown = InputTarget();
  if (shown == nullptr || GetAvionicFunctionId(*shown) == 0) return;
  FormatAvionicDisplay(*shown);
  SetDisplay();
}

void GFRadioModule::SetDisplay() {
  if (!HasPanelPower(true)) {
    SendBlanks();
    return;
  }
  if (!HasSelection()) return;
  const AvionicFunction* shown = InputTarget();
  if (shown == nullptr) return;
  ShowAlpha(*shown);
  ShowNumeric(*shown);
}

void GFRadioModule::ClearDisplay() { SendBlanks(); }

// The device's answer is ignored: a text sent to an unplugged unit counts as sent.
void GFRadioModule::SendBlanks() {
  Port().SetDisplay(kAlphaDisplay, traits_->alphaBlank);
  Port().SetDisplay(kNumericDisplay, traits_->numericBlank);
  lastAlpha.Forget();
  lastValue.Forget();
}

void GFRadioModule::ShowAlpha(const AvionicFunction& function) {
  const char* line = ShowsList() ? traits_->alphaListLine : traits_->alphaSingleLine;
  lastAlpha.Update(
      true, function.tag, traits_->alphaBlank, [this](const char* text) { Port().SetDisplay(kAlphaDisplay, text); },
      [line](const char* text) { LogFormat(line, text); });
}

void GFRadioModule::ShowNumeric(const AvionicFunction& function) {
  const bool leadingSpace =
      traits_->transponderLeadingSpace && !ShowsList() && GetAvionicFunctionId(function) == kFunctionTransponder;
  const char* line = ShowsList() ? traits_->numericListLine : traits_->numericSingleLine;
  // What is sent may carry the leading space; what is remembered is the function's own text, so
  // the comparison is between like and like.
  char sent[kAvionicTextSize + 1] = {};
  auto compose = [&](const char* text) -> const char* {
    if (!leadingSpace) return text;
    std::snprintf(sent, sizeof sent, " %s", text);
    return sent;
  };
  lastValue.Update(
      true, function.text, traits_->numericBlank,
      [&](const char* text) { Port().SetDisplay(kNumericDisplay, compose(text)); },
      [&](const char* text) { LogFormat(line, compose(text)); });
}

}  // namespace drav
