#include "config/Assignments.h"

#include "modules/ModuleManager.h"

namespace drav {

namespace {

using UnitLoader = void (*)(GF_Abstract_Module& module, std::uint32_t unit, bool registerUnit);

struct TypeLoader {
  std::uint32_t moduleType;
  UnitLoader load;
};

// One row per model with a module class: each model binds its controls in its own order around
// Register. The models join this table as their classes arrive; a type without a row loads nothing.
constexpr TypeLoader kTypeLoaders[] = {
    {0, nullptr},
};

UnitLoader FindLoader(std::uint32_t moduleType) {
  for (const TypeLoader& row : kTypeLoaders) {
    if (row.moduleType == moduleType) return row.load;
  }
  return nullptr;
}

}  // namespace

void LoadAllAssignments() {
  for (std::uint32_t moduleType : kAssignmentLoadOrder) LoadTypeAssignments(moduleType);
}

int LoadTypeAssignments(std::uint32_t moduleType) {
  const int count = TheModuleManager().UnitCount(moduleType);
  for (int unit = 0; unit < count; ++unit) LoadUnitAssignments(moduleType, static_cast<std::uint32_t>(unit));
  return count;
}

void LoadUnitAssignments(std::uint32_t moduleType, std::uint32_t unit, bool registerUnit) {
  GF_Abstract_Module* module = nullptr;
  if (TheModuleManager().FindModule(moduleType, unit, &module) != 1 || module == nullptr) return;
  if (UnitLoader load = FindLoader(moduleType)) load(*module, unit, registerUnit);
}

}  // namespace drav
