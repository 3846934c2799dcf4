// The panel models the device layer knows: product id (vendor 0x09F3) and table capacity per model.
#pragma once

#include <cstdint>
#include <span>

namespace drav {

inline constexpr std::uint16_t kPanelVendorId = 0x09F3;

struct PanelModel {
  std::uint32_t moduleType;
  const char* name;        // as scenarios and the dialog name it, "GF-46"
  std::uint16_t productId;
  int slots;               // units of this model the layer can hold at once
};

// In the order of the product-id tests (which is also the teardown order).
std::span<const PanelModel> PanelModels();
// Null for GF-TPM (16) and numbers outside 1..19: those have no table.
const PanelModel* FindPanelModel(std::uint32_t moduleType);
const PanelModel* FindPanelModelByProductId(std::uint16_t productId);

}  // namespace drav
