#include "hid/ModelTable.h"

#include "hid/HidState.h"

namespace drav {

namespace {

const PanelModelTable& Models() { return CurrentHidState().models; }

}  // namespace

PanelModelTable::PanelModelTable(std::span<const PanelModel* const> rowsInLookupOrder) {
  for (const PanelModel* row : rowsInLookupOrder) {
    if (row == nullptr || !IsKnownModuleType(row->moduleType) || byType_[row->moduleType] != nullptr) continue;
    byType_[row->moduleType] = row;
    if (row->slots > 0) withTables_[tableCount_++] = row;
  }
}

const PanelModel& PanelModelTable::Row(std::uint32_t moduleType) const {
  const PanelModel* row = IsKnownModuleType(moduleType) ? byType_[moduleType] : nullptr;
  return row != nullptr ? *row : kNoPanelModel;
}

const PanelModel* PanelModelTable::WithTable(std::uint32_t moduleType) const {
  const PanelModel& model = Row(moduleType);
  return model.slots > 0 ? &model : nullptr;
}

const PanelModel* PanelModelTable::ByProductId(std::uint16_t productId) const {
  for (const PanelModel* model : WithTables()) {
    if (model->productId == productId) return model;
  }
  return nullptr;
}

bool IsKnownModuleType(std::uint32_t type) { return type >= kFirstModuleType && type <= kLastModuleType; }

std::span<const PanelModel* const> PanelModels() { return Models().WithTables(); }
const PanelModel* FindPanelModel(std::uint32_t moduleType) { return Models().WithTable(moduleType); }
const PanelModel* FindPanelModelByProductId(std::uint16_t productId) { return Models().ByProductId(productId); }

const DeviceClass* FindDeviceClass(std::uint32_t moduleType) {
  const PanelModel* model = FindPanelModel(moduleType);
  return model != nullptr ? &model->deviceClass : nullptr;
}

}  // namespace drav
