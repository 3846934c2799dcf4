#include "modules/ModulePanelDirectory.h"

#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleManager.h"

namespace drav {

RadioModule* ModulePanelDirectory::FindRadio(std::uint32_t moduleType, std::uint32_t unit) const {
  GF_Abstract_Module* module = nullptr;
  if (manager_.FindModule(moduleType, unit, &module) != 1) return nullptr;
  // A checked cast: a model table that put something else under a radio's type must not be
  // treated as a radio.
  return dynamic_cast<GF_Abstract_AvionicDevice*>(module);
}

std::int32_t ModulePanelDirectory::UnitCount(std::uint32_t moduleType) const { return manager_.UnitCount(moduleType); }

}  // namespace drav
