// The panel models the modules know, one descriptor each. Every model's descriptor stands at the
// end of its own <Model>_Module.cpp: its row in the device layer's model table, how its units are
// counted, the factory of its module container and the hook that loads a unit's assignments. The
// registry lists them; the orders that behaviour fixes stand beside it as short lists.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "hid/ModelTable.h"
#include "hid/UnitPort.h"
#include "modules/AssignmentKeys.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleContainer.h"

namespace drav {

// A unit's key, read from its section and resolved: the function it names and the unit and kind of
// radio the function acts on ((-1, -1) when it acts on none).
struct AssignedKey {
  std::int32_t functionId;
  std::int32_t targetUnit;
  std::int32_t targetKind;
};

// What a model's load hook reads from its unit's section of DRAV.INI, values already parsed. The
// configuration layer implements it; each hook decides the order of the reads and of Register,
// which the models need differently.
class UnitAssignments {
 public:
  // The unit being loaded, and whether the load binds the module to it again (the dialog reloads
  // the GF-DIO without registering it, so that the input bank it holds survives).
  virtual std::uint16_t Unit() const = 0;
  virtual bool Registering() const = 0;
  // Key `index` of the group (each read may trace, in the order the hook asks).
  virtual AssignedKey Read(const AssignmentKeyGroup& group, int index) = 0;
  // A key's value as a function id only (the radios' mode table).
  virtual std::int32_t ReadFunctionId(const AssignmentKeyGroup& group, int index) = 0;
  // A key's value as a colour or a switch type (its index in the dialog's list).
  virtual int ReadColour(const AssignmentKeyGroup& group, int index) = 0;
  virtual int ReadSwitchType(const AssignmentKeyGroup& group, int index) = 0;
  // The calibration numbers, defaults applied.
  virtual int ReadWheelGain(const CalibrationKey& key) = 0;
  virtual float ReadReal(const CalibrationKey& key) = 0;

 protected:
  ~UnitAssignments() = default;
};

// Register for the unit being loaded.
void RegisterUnit(GF_Abstract_Module& module, const UnitAssignments& unit);
// Every key of the group, in order, through the module's AssignFunction.
void AssignGroup(GF_Abstract_Module& module, UnitAssignments& unit, const AssignmentKeyGroup& group);

// The radios' Function1..Function8 go straight into the mode table (function ids only), then the
// current mode is the first used one from where the unit was (it survives reloads).
void LoadRadioModes(GF_Abstract_AvionicDevice& radio, UnitAssignments& unit);
// The GF-45's and GF-46's hook: the radio is registered first, then its modes are loaded.
void LoadRadioAssignments(GF_Abstract_AvionicDevice& radio, UnitAssignments& unit);

using LoadAssignmentsHook = void (*)(GF_Abstract_Module& module, UnitAssignments& unit);

// A hook written for one model class (or a base of it), run only on the objects of that model's own
// factory.
template <class T, auto Load>
void LoadAs(GF_Abstract_Module& module, UnitAssignments& unit) {
  Load(static_cast<T&>(module), unit);
}
template <class T, auto Run>
void RunAs(GF_Abstract_Module& module) {
  Run(static_cast<T&>(module));
}

// A model's brightness report through the device layer, as the shared display brightness uses it.
struct ModelBrightness {
  // *level written only on success (result 0); null: the model cannot tell its level.
  std::int32_t (*read)(std::int32_t unit, std::int32_t* level);
  std::int32_t (*write)(std::int32_t unit, std::int32_t value);  // null: no brightness report
  bool reversedScale;  // the unit receives 15 - level
};

// A model's brightness through the port of the unit asked for (the shared display brightness
// addresses units by number). The level is one int for all models; the devices keep its low bits.
template <ModuleType Type>
std::int32_t ReadUnitBrightness(std::int32_t unit, std::int32_t* level) {
  return UnitPort(Type, unit).GetBrightness(level);
}
template <ModuleType Type>
std::int32_t WriteUnitBrightness(std::int32_t unit, std::int32_t value) {
  return UnitPort(Type, unit).SetBrightness(value);
}

struct ModelDescriptor {
  const PanelModel* hid;  // the model's row in the device layer's table
  // The count of present units of the model; null: the device layer's count for its type.
  std::int32_t (*count)();
  // Builds the model's empty container.
  std::unique_ptr<ModuleContainer> (*makeContainer)();
  // Loads one unit's assignments into a module made by makeContainer; null: nothing to load.
  LoadAssignmentsHook loadAssignments;
  // The key groups of the unit's section whose values are function names (not colours or switch
  // types), every variant once.
  std::span<const AssignmentKeyGroup* const> functionKeys{};
  ModelBrightness brightness{};
  // What the Assign Functions dialog shows for a unit of the model; null: nothing.
  DialogRowsHook dialogRows = nullptr;
  // The label format in the dialog's device list; null: kUnitLabelFormat.
  DeviceLabelHook deviceLabel = nullptr;
  // Run on every unit's module when the user's aircraft has been loaded; null: nothing to do.
  void (*aircraftLoaded)(GF_Abstract_Module& module) = nullptr;

  ModuleType Type() const { return hid->moduleType; }
};

// The production descriptors, in the order in which CreateModules sizes the containers.
std::span<const ModelDescriptor* const> ProductionModels();
// The production descriptor of a model; null for a model without module class.
const ModelDescriptor* FindProductionModel(std::uint32_t moduleType);
// Every production model's function key groups, each group once (the radios share their modes), in
// the order of the descriptors.
std::vector<const AssignmentKeyGroup*> AllFunctionKeyGroups();

// The row of a model number, from its descriptor or among the panels without module; null for a
// number that has none.
const PanelModel* RegisteredPanelModel(std::uint32_t moduleType);
// The three facts every floor asks of a model number: the name shown to the pilot ("GF-45"), the
// device log's word ("GF45"; "Unknown" for a model without module) and the unit's configuration
// section ("GF45_%d", unit counted from 1). A number without a row answers "NONE", "Unknown" and
// "NONE", so callers need no range check of their own.
const char* ModelName(std::uint32_t type);
const char* ModelWord(std::uint32_t type);
const char* SectionFormat(std::uint32_t type);
// Every row in the order in which a unit's product id is tested against the models, as the plug-in's
// context hands them to the device layer.
std::array<const PanelModel*, kLastModuleType> PanelModelsInLookupOrder();

// The orders that behaviour fixes, short lists beside the registry (ModuleRegistry.cpp): the order
// in which every unit's assignments are loaded (radios first, the GF-DIO last), the Assign Functions
// dialog's device list, the panels asked for the shared display brightness (the first model with a
// unit answers, its unit 0) and the panels sent the level (every unit of each).
std::span<const ModuleType> AssignmentLoadOrder();
std::span<const ModuleType> DialogDeviceOrder();
std::span<const ModuleType> BrightnessReadModels();
std::span<const ModuleType> BrightnessWriteModels();

}  // namespace drav
