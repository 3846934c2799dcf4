// What the function layer needs of the panels it drives but does not own: the radio modules that a
// ModuleSelect function aims at, how many units of a model are connected, and the models' brightness
// access. The function layer
// sits below the modules, so this is the only face of them it sees; the module side implements it
// and the plug-in hands its directory over at start.
#pragma once

#include <cstdint>
#include <span>

#include "functions/DisplayBrightness.h"

namespace drav {

// A radio module (GF-45, GF-46, GF-166) as a ModuleSelect function drives it.
class RadioModule {
 public:
  // The function id of what the current mode shows; 0 when nothing is selected.
  virtual std::int32_t GetCurrentFunction() = 0;
  // Makes functionId the current function; PREV and NEXT step through the mode table instead
  // (a model calls StepMode for them).
  virtual void SelectFunction(std::int32_t functionId) = 0;
  // Composes the displays and lights and sends what changed.
  virtual void SetDisplay() = 0;

 protected:
  RadioModule() = default;
  RadioModule(const RadioModule&) = default;
  RadioModule& operator=(const RadioModule&) = default;
  ~RadioModule() = default;
};

class PanelDirectory {
 public:
  // The radio module of a model type and unit; nullptr when the unit is not connected or its
  // object is not a radio.
  virtual RadioModule* FindRadio(std::uint32_t moduleType, std::uint32_t unit) const = 0;
  // Connected units of a model.
  virtual std::int32_t UnitCount(std::uint32_t moduleType) const = 0;
  // The models' brightness getters in the order they are asked for the level, and their setters in
  // the order they are sent it.
  virtual std::span<const BrightnessReader> BrightnessReaders() const = 0;
  virtual std::span<const BrightnessWriter> BrightnessWriters() const = 0;

 protected:
  ~PanelDirectory() = default;
};

// The directory that FindRadioModule and ManagedUnitCount ask: the one handed to the function
// layer's state (FunctionState::panelDirectory). nullptr (before the plug-in starts, and in tests
// that hand none) means no panels: no radio is found and every model has 0 units. Main thread only.
const PanelDirectory* CurrentPanelDirectory();

}  // namespace drav
