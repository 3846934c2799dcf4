#include "modules/ModulePanelDirectory.h"

#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleRegistry.h"

namespace drav {

ModulePanelDirectory::ModulePanelDirectory(const ModuleManager& manager) : manager_(manager) {
  for (ModuleType type : BrightnessReadModels()) {
    const ModelDescriptor* model = manager_.Descriptor(type);
    if (model == nullptr || model->brightness.read == nullptr) continue;
    readers_[readerCount_++] = {type, model->brightness.read};
  }
  for (ModuleType type : BrightnessWriteModels()) {
    const ModelDescriptor* model = manager_.Descriptor(type);
    if (model == nullptr || model->brightness.write == nullptr) continue;
    writers_[writerCount_++] = {type, model->brightness.write, model->brightness.reversedScale};
  }
}

std::span<const BrightnessReader> ModulePanelDirectory::BrightnessReaders() const {
  return std::span(readers_).first(readerCount_);
}

std::span<const BrightnessWriter> ModulePanelDirectory::BrightnessWriters() const {
  return std::span(writers_).first(writerCount_);
}

RadioModule* ModulePanelDirectory::FindRadio(std::uint32_t moduleType, std::uint32_t unit) const {
  GF_Abstract_Module* module = nullptr;
  if (manager_.FindModule(moduleType, unit, &module) != 1) return nullptr;
  // A checked cast: a model table that put something else under a radio's type must not be
  // treated as a radio.
  return dynamic_cast<GF_Abstract_AvionicDevice*>(module);
}

std::int32_t ModulePanelDirectory::UnitCount(std::uint32_t moduleType) const { return manager_.UnitCount(moduleType); }

}  // namespace drav
