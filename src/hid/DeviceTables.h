// The layer's tables: per model, a fixed number of slots, each empty or holding the device object of
// one unit (present or unplugged). A unit's number is its slot index. Slots are filled only while
// the layer runs and emptied only when it stops, so a unit that comes back finds its old slot.
//
// Main thread only, like everything that reads or changes the tables; the device objects' threads
// never touch them.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "hid/DeviceObject.h"
#include "hid/ModelTable.h"

namespace drav {

bool DevicePathsEqual(std::string_view a, std::string_view b);  // ignoring case

class DeviceTables {
 public:
  // One table per model with slots, from the rows the layer was handed.
  explicit DeviceTables(const PanelModelTable& models);
  ~DeviceTables();

  // The object in a slot; null for an empty slot, a unit out of range or a model without a table.
  DeviceObject* At(std::uint32_t moduleType, std::int32_t unit) const;
  std::int32_t Slots(std::uint32_t moduleType) const;

  struct Location {
    const PanelModel* model;
    std::int32_t unit;
    DeviceObject* object;
  };
  // The first slot holding this path, walking the models in their lookup order.
  std::optional<Location> FindByPath(std::string_view path) const;
  // The unit of the model holding this path, or -1.
  std::int32_t FindUnitByPath(std::uint32_t moduleType, std::string_view path) const;
  // The first empty slot of the model, or -1 when its table is full.
  std::int32_t FirstEmptySlot(std::uint32_t moduleType) const;
  // Enters the object in an empty slot and returns it.
  DeviceObject* Place(std::uint32_t moduleType, std::int32_t unit, std::unique_ptr<DeviceObject> object);

  std::int32_t PresentCount(std::uint32_t moduleType) const;
  // Every object, for the quiescence checks.
  template <typename Visit>
  void ForEach(Visit&& visit) const {
    for (const PanelModel* model : models_.WithTables()) {
      for (const std::unique_ptr<DeviceObject>& object : tables_[model->moduleType]) {
        if (object != nullptr) visit(*object);
      }
    }
  }
  // Empties every slot, in teardown order; each slot is emptied before its object is destroyed.
  void DestroyAll();

 private:
  static constexpr std::size_t kModuleTypeLimit = kLastModuleType + 1;
  std::vector<std::unique_ptr<DeviceObject>>* Table(std::uint32_t moduleType);
  const std::vector<std::unique_ptr<DeviceObject>>* Table(std::uint32_t moduleType) const;

  const PanelModelTable& models_;
  std::array<std::vector<std::unique_ptr<DeviceObject>>, kModuleTypeLimit> tables_;
};

// The one set of tables of the layer (DeviceLayer.cpp).
DeviceTables& TheDeviceTables();

}  // namespace drav
