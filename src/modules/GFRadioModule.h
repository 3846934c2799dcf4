// What the GF-45 and GF-46 radio stacks share: one avionic function (or one of the two shared
// multi-function lists) shown at a time, its tag on the four-character display and its value on the
// numeric one, with the dual encoder changing that value. The two models differ in their input
// records, their numeric display's width and a few details, which a small table per model holds.
#pragma once

#include <cstdint>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleMechanics.h"
#include "hid/ModuleTypes.h"

namespace drav {

// The facts that tell one radio model from the other. Both show the alphanumeric text on their
// display 1 and the numeric one on display 2.
struct RadioModelTraits {
  ModuleType moduleType;       // passed to AdjustAvionicFunction: the models' knob layouts differ
  std::int32_t singleSource;   // the value of `source` while one function is shown
  std::int32_t listSource;     // ... and while a multi-function list is
  const char* alphaBlank;      // four spaces
  const char* numericBlank;    // one space per digit of the numeric display
  // The six-digit display shows the four-digit squawk one place in from the left.
  bool transponderLeadingSpace;
  // The SetDisplay trace lines (printf formats with one %s).
  const char* alphaSingleLine;
  const char* alphaListLine;
  const char* numericSingleLine;
  const char* numericListLine;
};

// The two lists behind FUNC_INST and FUNC_AP, one of each for the whole plug-in: every unit in
// the same list mode shows and moves the same entry. nullptr for any other id. Main thread only.
MultiFunctionList* SharedRadioFunctionList(FunctionId listId);
// How many entries the list of listId has (6 for FUNC_INST, 5 for FUNC_AP; 0 for other ids).
std::int32_t RadioFunctionListLength(FunctionId listId);

// Where the two lists live: in the plug-in's module state, from its start to its stop.
struct SharedRadioFunctionLists {
  MultiFunctionList instruments;
  MultiFunctionList autopilot;
};

class GFRadioModule : public GF_Abstract_AvionicDevice {
 public:
  void SetDisplay() override;
  void ClearDisplay() override;
  void UpdateOutputs() override;
  // A radio has no per-control bindings: whatever is assigned becomes what it shows.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                      std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;
  std::int32_t GetCurrentFunction() override;
  void SelectFunction(std::int32_t functionId) override;

  AvionicFunction* single = nullptr;  // shown while source is the single source
  MultiFunctionList* list = nullptr;  // shown while source is the list source
  std::int32_t source = 0;
  DisplayTextCache lastAlpha;  // text last sent to the alphanumeric display
  DisplayTextCache lastValue;  // text last sent to the numeric display (the XPDR space not included)

 protected:
  explicit GFRadioModule(const RadioModelTraits& traits);

  const RadioModelTraits& Traits() const { return *traits_; }
  bool ShowsList() const { return source == traits_->listSource; }
  // Whether the current source has something to show (and to receive the encoders).
  bool HasSelection() const;
  // The function that the encoders change: single, or the list's current entry.
  AvionicFunction* InputTarget() const;

  // Dial 1 (the outer ring): the value's coarse part, or in a list the walk through its entries.
  void TurnOuterRing(std::int32_t steps);
  // Dial 2 (the inner ring): the value's fine part.
  void TurnInnerRing(std::int32_t steps);

 private:
  void MoveListIndex(std::int32_t steps);
  void SendBlanks();
  void ShowAlpha(const AvionicFunction& function);
  void ShowNumeric(const AvionicFunction& function);

  const RadioModelTraits* traits_;  // static per model
};

}  // namespace drav
