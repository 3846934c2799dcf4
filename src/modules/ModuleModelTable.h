// Which models the module manager builds objects for, in which order, and how it counts their units.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "modules/ModuleContainer.h"
#include "hid/ModuleTypes.h"

namespace drav {

struct ModuleModel {
  ModuleType type;
  // The device layer's count of present units of the model.
  std::int32_t (*count)();
  // Builds the model's empty container; nullptr while the model has no class (no container, no
  // units).
  std::unique_ptr<ModuleContainer> (*makeContainer)();
};

// The production table, in the order in which CreateModules sizes the containers.
std::span<const ModuleModel> ProductionModuleModels();

}  // namespace drav
