#include "modules/ModuleManager.h"

#include <algorithm>

#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"
#include "base/Log.h"
#include "modules/ModuleRegistry.h"
#include "modules/ModuleState.h"

namespace drav {

namespace {

std::int32_t UnitCountFromDevices(const ModelDescriptor& model) {
  const std::int32_t present = model.count != nullptr ? model.count() : GFDev_PresentUnitCount(model.Type());
  const std::int32_t count = std::max(present, GFDev_UnitSpan(model.Type()));
  // The device tables have at most 32 slots; a larger answer is not believed.
  return std::clamp<std::int32_t>(count, 0, kMaxUnitsPerModel);
}

void LogUnit(std::uint32_t moduleType, std::uint32_t unit) {
  const char* word = ModelWord(moduleType);
  const std::int32_t unitNumber = static_cast<std::int32_t>(unit);

  GFDevInfo info{};
  GFDev_GetDeviceInfo(moduleType, unitNumber, &info);
  LogFormat("Device = %s Unit %d", word, unitNumber + 1);
  LogFormat("Firmware Version = %.4X", static_cast<unsigned>(info.version));

  if (moduleType == kModuleGFDIO) {
    GFDevInfoEx infoEx{};
    infoEx.size = kGFDevInfoExSize;
    GFDev_GetDeviceInfoEx(moduleType, unitNumber, &infoEx);
    LogFormat("Output Report Length = %d", static_cast<int>(infoEx.outputReportLength));
  }
}

}  // namespace

ModuleManager::ModuleManager(std::span<const ModelDescriptor* const> models) : models_(models) {}

void ModuleManager::CreateModules() {
  for (const ModelDescriptor* model : models_) SizeContainer(*model);
}

void ModuleManager::SizeContainer(const ModelDescriptor& model) {
  if (!IsKnownModuleType(model.Type()) || model.makeContainer == nullptr) return;
  const std::int32_t count = UnitCountFromDevices(model);
  std::unique_ptr<ModuleContainer>& container = containers_[model.Type()];
  if (!container) container = model.makeContainer();
  if (container) container->Resize(count);
}

const ModelDescriptor* ModuleManager::Descriptor(std::uint32_t moduleType) const {
  const auto model = std::find_if(models_.begin(), models_.end(),
                                  [&](const ModelDescriptor* entry) { return entry->Type() == moduleType; });
  return model != models_.end() ? *model : nullptr;
}

bool ModuleManager::AddModuleFor(std::uint32_t moduleType, std::uint32_t unit) {
  const ModelDescriptor* model = Descriptor(moduleType);
  if (model == nullptr || model->makeContainer == nullptr || unit >= static_cast<std::uint32_t>(kMaxUnitsPerModel)) return false;
  std::unique_ptr<ModuleContainer>& container = containers_[moduleType];
  if (!container) container = model->makeContainer();
  if (!container) return false;
  if (container->Size() <= static_cast<std::int32_t>(unit)) container->Resize(static_cast<std::int32_t>(unit) + 1);
  return true;
}

ModuleContainer* ModuleManager::ContainerOf(std::uint32_t moduleType) const {
  return IsKnownModuleType(moduleType) ? containers_[moduleType].get() : nullptr;
}

std::int32_t ModuleManager::UnitCount(std::uint32_t moduleType) const {
  const ModuleContainer* container = ContainerOf(moduleType);
  return container != nullptr ? container->Size() : 0;
}

std::int32_t ModuleManager::FindModule(std::uint32_t moduleType, std::uint32_t unit,
                                       GF_Abstract_Module** out) const {
  GF_Abstract_Module* module = nullptr;
  ModuleContainer* container = ContainerOf(moduleType);
  if (container != nullptr && unit < static_cast<std::uint32_t>(container->Size())) {
    module = container->At(static_cast<std::int32_t>(unit));
  }
  if (out != nullptr) *out = module;
  return module != nullptr ? 1 : -1;
}

template <class Visit>
void ModuleManager::ForEachModule(Visit&& visit) const {
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    const std::uint32_t count = static_cast<std::uint32_t>(UnitCount(type));
    for (std::uint32_t unit = 0; unit < count; ++unit) {
      GF_Abstract_Module* module = nullptr;
      if (FindModule(type, unit, &module) != 1) break;
      visit(type, unit, *module);
    }
  }
}

void ModuleManager::RefreshAll() const {
  ForEachModule([](std::uint32_t, std::uint32_t, GF_Abstract_Module& module) { module.UpdateOutputs(); });
}

void ModuleManager::ClearAll() const {
  ForEachModule([](std::uint32_t, std::uint32_t, GF_Abstract_Module& module) { module.ClearDisplay(); });
}

void ModuleManager::LogDeviceInformation() const {
  LogLine("Device Information:");
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    const std::int32_t count = UnitCount(type);
    if (count <= 0) continue;
    LogFormat("Number of %s Devices = %d", ModelWord(type), count);
    for (std::uint32_t unit = 0; unit < static_cast<std::uint32_t>(count); ++unit) {
      if (FindModule(type, unit, nullptr) != 1) break;
      LogUnit(type, unit);
    }
  }
}

std::int32_t ModuleManager::Decode(std::uint32_t moduleType, std::uint32_t unit, const void* record,
                                   std::int32_t* value) const {
  ModuleContainer* container = ContainerOf(moduleType);
  if (container == nullptr || unit >= static_cast<std::uint32_t>(container->Size())) return -1;
  return container->Decode(static_cast<std::int32_t>(unit), record, value);
}

bool ModuleManager::Dispatch(const InputEvent& event) const {
  GF_Abstract_Module* module = nullptr;
  if (FindModule(event.moduleType, event.unit, &module) != 1) return false;
  module->HandleInput(event.control, event.value);
  return true;
}

bool DrainQueue(InputEventQueue& queue, const ModuleManager& manager) {
  return DrainQueue(queue, [&manager](const InputEvent& event) { manager.Dispatch(event); });
}

bool DrainQueue(InputEventQueue& queue) { return DrainQueue(queue, TheModuleManager()); }

ModuleManager& TheModuleManager() { return CurrentModuleState().manager; }

}  // namespace drav
