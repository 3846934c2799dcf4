// The module manager as the function layer's panel directory: radios found by model and unit,
// units counted per model, brightness access from the models' descriptors in the registry's orders.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "functions/PanelDirectory.h"
#include "hid/ModuleTypes.h"

namespace drav {

class ModuleManager;

class ModulePanelDirectory final : public PanelDirectory {
 public:
  // The brightness orders are taken from the manager's descriptors once, here.
  explicit ModulePanelDirectory(const ModuleManager& manager);

  RadioModule* FindRadio(std::uint32_t moduleType, std::uint32_t unit) const override;
  std::int32_t UnitCount(std::uint32_t moduleType) const override;
  std::span<const BrightnessReader> BrightnessReaders() const override;
  std::span<const BrightnessWriter> BrightnessWriters() const override;

 private:
  const ModuleManager& manager_;
  std::array<BrightnessReader, kLastModuleType + 1> readers_{};
  std::size_t readerCount_ = 0;
  std::array<BrightnessWriter, kLastModuleType + 1> writers_{};
  std::size_t writerCount_ = 0;
};

}  // namespace drav
