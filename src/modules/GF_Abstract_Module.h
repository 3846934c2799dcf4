// The interface through which the module manager, the assignment loader, the function layer and
// the dialog reach every panel unit's module object, one class per model underneath.
#pragma once

#include <cstdint>

#include "functions/FunctionCatalogue.h"
#include "functions/PanelDirectory.h"
#include "hid/ModuleTypes.h"
#include "hid/UnitPort.h"

namespace drav {

// The catalogue's PREV and NEXT: for a radio module they do not name a function to show but step
// through its mode table. Kept here, beside the stepping, so that the function layer can use the
// same constants when it lights the button of a mode-select function.
inline constexpr std::int32_t kFunctionPrev = kFnPREV;
inline constexpr std::int32_t kFunctionNext = kFnNEXT;

inline constexpr std::int32_t kModeCount = 8;

// The GF-45's, GF-46's and GF-166's Function1..Function8: the eight modes (index = mode index).
struct AssignmentKeyGroup;
extern const AssignmentKeyGroup kRadioModeKeys;

class GF_Abstract_Module {
 public:
  // The virtual operations, in their fixed order.

  // Binds the object to its unit: stores it and the unit's port, then blanks the unit and forgets
  // what was sent.
  virtual void Register(std::uint16_t unitNumber);
  // Composes displays and lights from the bound functions and sends what changed.
  virtual void SetDisplay() = 0;
  // Input thread: decodes one input record into at most one change. Returns its control id and
  // writes *value, or returns -1 and leaves *value alone.
  virtual std::int32_t GetButton(const void* record, std::int32_t* value) = 0;
  // Blanks all outputs and forgets what was last sent (input-only models reset their input state).
  virtual void ClearDisplay() = 0;
  // Main thread: hands one queued event to the function bound to the control.
  virtual void HandleInput(std::int32_t control, std::int32_t value) = 0;
  // Lets the bound functions re-read the simulator, then SetDisplay.
  virtual void UpdateOutputs() = 0;
  // Binds a function to the control named by key; a key of no control is ignored.
  virtual void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                              std::int32_t param2) = 0;
  // The function id bound to the control named by key; 0 for none or an unknown key.
  virtual std::int32_t GetAssignedFunction(std::uint8_t key) = 0;

  // The modules live by value in the manager's vectors and are never deleted through this base
  // today; the destructor is virtual all the same because the class already has a vtable, so it
  // costs nothing, and it keeps any owner through a base pointer (a test, a future factory) from
  // silently skipping a model's destructor and leaking the function records it holds.
  virtual ~GF_Abstract_Module() = default;

  std::uint16_t unit = 0;  // 0-based unit among the devices of this model

  // Where every device call goes: the port of this model's `unit`.
  const UnitPort& Port() const { return port_; }

  // A module stays where it was made (ModuleContainer.h): read threads decode against it and its
  // function records are pointed at, so it is neither copied nor moved.
  GF_Abstract_Module(const GF_Abstract_Module&) = delete;
  GF_Abstract_Module& operator=(const GF_Abstract_Module&) = delete;

 protected:
  // An object of no model (a test's stand-in): its port answers as for a unit out of range.
  GF_Abstract_Module() = default;
  // An object of one model, bound to unit 0 until Register binds it to its own.
  explicit GF_Abstract_Module(ModuleType type) : port_(type, 0) {}

 private:
  UnitPort port_;
};

// The radio modules (GF-45, GF-46, GF-166): one current function chosen from up to eight modes.
// They are the RadioModule that the function layer's ModuleSelect functions drive.
class GF_Abstract_AvionicDevice : public GF_Abstract_Module, public RadioModule {
 public:
  // Both bases name it; one declaration here keeps the call unambiguous.
  void SetDisplay() override = 0;

  // For PREV and NEXT: steps modeIndex to the previous or next used mode (wrapping; the current
  // mode itself ends the search when it is the only one used), then SelectFunction of that mode's
  // id and SetDisplay. Does nothing more when the current mode is unused. Returns true when
  // functionId was PREV or NEXT, that is when the caller must not treat it as a function to show.
  bool StepMode(std::int32_t functionId);

  // After the mode table has been loaded: moves modeIndex forward from where it is (wrapping) to
  // the first used mode, or to 0 when no mode is used. Returns that mode's function id.
  std::int32_t ChooseCurrentMode();

  std::int32_t modeFunction[kModeCount] = {};  // function id per mode; 0 = mode unused
  std::int32_t modeIndex = 0;                  // current mode, 0..7

 protected:
  GF_Abstract_AvionicDevice() = default;
  explicit GF_Abstract_AvionicDevice(ModuleType type) : GF_Abstract_Module(type) {}

 private:
  std::int32_t CurrentModeFunction() const;

  // A mode may itself hold PREV or NEXT; selecting it from inside a step must not step again, or a
  // table full of NEXT would recurse without end.
  bool stepping_ = false;
};

}  // namespace drav
