#include "hid/DeviceTables.h"

#include <cctype>

namespace drav {

bool DevicePathsEqual(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i]))) {
      return false;
    }
  }
  return true;
}

DeviceTables::DeviceTables(const PanelModelTable& models) : models_(models) {
  for (const PanelModel* model : models_.WithTables()) tables_[model->moduleType].resize(model->slots);
}

DeviceTables::~DeviceTables() { DestroyAll(); }

std::vector<std::unique_ptr<DeviceObject>>* DeviceTables::Table(std::uint32_t moduleType) {
  if (moduleType >= kModuleTypeLimit || tables_[moduleType].empty()) return nullptr;
  return &tables_[moduleType];
}

const std::vector<std::unique_ptr<DeviceObject>>* DeviceTables::Table(std::uint32_t moduleType) const {
  if (moduleType >= kModuleTypeLimit || tables_[moduleType].empty()) return nullptr;
  return &tables_[moduleType];
}

DeviceObject* DeviceTables::At(std::uint32_t moduleType, std::int32_t unit) const {
  const auto* table = Table(moduleType);
  if (table == nullptr || unit < 0 || unit >= static_cast<std::int32_t>(table->size())) return nullptr;
  return (*table)[unit].get();
}

std::int32_t DeviceTables::Slots(std::uint32_t moduleType) const {
  const auto* table = Table(moduleType);
  return table == nullptr ? 0 : static_cast<std::int32_t>(table->size());
}

std::optional<DeviceTables::Location> DeviceTables::FindByPath(std::string_view path) const {
  for (const PanelModel* model : models_.WithTables()) {
    const std::int32_t unit = FindUnitByPath(model->moduleType, path);
    if (unit >= 0) return Location{model, unit, At(model->moduleType, unit)};
  }
  return std::nullopt;
}

std::int32_t DeviceTables::FindUnitByPath(std::uint32_t moduleType, std::string_view path) const {
  const auto* table = Table(moduleType);
  if (table == nullptr) return -1;
  // An absent unit still remembers the path it left, which the system may have given to the unit now
  // present there: that one is meant.
  std::int32_t absent = -1;
  for (std::size_t slot = 0; slot < table->size(); ++slot) {
    const DeviceObject* object = (*table)[slot].get();
    if (object == nullptr || !DevicePathsEqual(object->Path(), path)) continue;
    if (object->Present()) return static_cast<std::int32_t>(slot);
    if (absent < 0) absent = static_cast<std::int32_t>(slot);
  }
  return absent;
}

std::int32_t DeviceTables::FirstEmptySlot(std::uint32_t moduleType) const {
  const auto* table = Table(moduleType);
  if (table == nullptr) return -1;
  for (std::size_t slot = 0; slot < table->size(); ++slot) {
    if ((*table)[slot] == nullptr) return static_cast<std::int32_t>(slot);
  }
  return -1;
}

DeviceObject* DeviceTables::Place(std::uint32_t moduleType, std::int32_t unit, std::unique_ptr<DeviceObject> object) {
  auto* table = Table(moduleType);
  if (table == nullptr || unit < 0 || unit >= static_cast<std::int32_t>(table->size()) ||
      (*table)[unit] != nullptr) {
    return nullptr;
  }
  (*table)[unit] = std::move(object);
  return (*table)[unit].get();
}

std::int32_t DeviceTables::PresentCount(std::uint32_t moduleType) const {
  const auto* table = Table(moduleType);
  if (table == nullptr) return 0;
  std::int32_t count = 0;
  for (const std::unique_ptr<DeviceObject>& object : *table) {
    if (object != nullptr && object->Present()) ++count;
  }
  return count;
}

void DeviceTables::DestroyAll() {
  for (const PanelModel* model : models_.WithTables()) {
    for (std::unique_ptr<DeviceObject>& slot : tables_[model->moduleType]) {
      std::unique_ptr<DeviceObject> object = std::move(slot);
      object.reset();
    }
  }
}

}  // namespace drav
