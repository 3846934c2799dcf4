// The module manager as the function layer's panel directory: radios found by model and unit,
// units counted per model.
#pragma once

#include "functions/PanelDirectory.h"

namespace drav {

class ModuleManager;

class ModulePanelDirectory final : public PanelDirectory {
 public:
  explicit ModulePanelDirectory(const ModuleManager& manager) : manager_(manager) {}

  RadioModule* FindRadio(std::uint32_t moduleType, std::uint32_t unit) const override;
  std::int32_t UnitCount(std::uint32_t moduleType) const override;

 private:
  const ModuleManager& manager_;
};

}  // namespace drav
