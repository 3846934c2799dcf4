// The module manager: one container of module objects per model, indexed by unit, built when the
// plug-in is enabled and walked for the periodic refresh and for switching the outputs off.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>

#include "modules/GF_Abstract_Module.h"
#include "modules/InputEventQueue.h"
#include "modules/ModuleContainer.h"
#include "modules/ModuleRegistry.h"
#include "hid/ModuleTypes.h"

namespace drav {

class ModuleManager {
 public:
  // models must outlive the manager (the production registry is static; tests pass their own).
  explicit ModuleManager(std::span<const ModelDescriptor* const> models = ProductionModels());

  ModuleManager(const ModuleManager&) = delete;
  ModuleManager& operator=(const ModuleManager&) = delete;

  // Main thread, while no input callback is registered: sizes every model's container to the
  // device layer's count of present units (or, where numbers are kept free for absent units, to one
  // past the highest present unit), in table order. Existing objects keep their state.
  void CreateModules();
  // Main thread, while no input callback runs: the container grows to hold the unit, a newcomer
  // that joined mid-flight; nobody else moves or loses state. False for a type without container.
  bool AddModuleFor(std::uint32_t moduleType, std::uint32_t unit);
  // Main thread, while no input callback runs: every module goes (they point into the function
  // layer's state, which goes at a stop).
  void DestroyModules();

  // The descriptor this manager builds the model's modules from; null for a type it has none for.
  const ModelDescriptor* Descriptor(std::uint32_t moduleType) const;

  // The container's size; 0 for a type without container or outside 1..19.
  std::int32_t UnitCount(std::uint32_t moduleType) const;

  // 1 and *out = the object when it exists, else -1 and *out = nullptr. The address stays valid
  // until the next CreateModules.
  std::int32_t FindModule(std::uint32_t moduleType, std::uint32_t unit, GF_Abstract_Module** out) const;

  // UpdateOutputs / ClearDisplay of every module: types ascending, units ascending.
  void RefreshAll() const;
  void ClearAll() const;

  // The device log's "Device Information:" block (the caller checks DebugDeviceInfo).
  void LogDeviceInformation() const;

  // Input thread: the unit's decoder; -1 when the unit has no object or nothing changed.
  std::int32_t Decode(std::uint32_t moduleType, std::uint32_t unit, const void* record,
                      std::int32_t* value) const;

  // Main thread: hands one event to its module's HandleInput. An event whose module is gone is
  // dropped. Returns whether the module was found.
  bool Dispatch(const InputEvent& event) const;

 private:
  ModuleContainer* ContainerOf(std::uint32_t moduleType) const;
  void SizeContainer(const ModelDescriptor& model);
  template <class Visit>
  void ForEachModule(Visit&& visit) const;

  std::span<const ModelDescriptor* const> models_;
  std::array<std::unique_ptr<ModuleContainer>, kLastModuleType + 1> containers_;
};

// Main thread, every frame: hands every pending event to its module. True when at least one event
// was taken (a dropped one counts), so that the caller refreshes the modules.
bool DrainQueue(InputEventQueue& queue, const ModuleManager& manager);
// The same with the plug-in's manager.
bool DrainQueue(InputEventQueue& queue);

// The plug-in's one manager, built on the production table.
ModuleManager& TheModuleManager();

}  // namespace drav
