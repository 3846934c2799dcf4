#include "hid/ModelTable.h"

#include <array>

namespace drav {

namespace {

constexpr std::array<PanelModel, 18> kPanelModels = {{
    {1, "GF-45", 0x0010, 16},
    {8, "GF-46", 0x0018, 16},
    {2, "GF-P8", 0x0020, 32},
    {7, "GF-RP48", 0x0028, 32},
    {18, "GF-WCP", 0x002C, 32},
    {3, "GF-T8", 0x0030, 32},
    {4, "GF-LGT", 0x0040, 16},
    {11, "GF-LGT2", 0x0048, 8},
    {5, "GF-166", 0x0050, 16},
    {6, "GF-MCP", 0x0060, 4},
    {12, "GF-MCPPro", 0x0064, 4},
    {13, "GF-EFIS", 0x0300, 4},
    {10, "GF-ATC", 0x0070, 8},
    {14, "GF-SECM", 0x0038, 8},
    {17, "GF-MESM", 0x003C, 8},
    {15, "GF-FMC", 0x0074, 4},
    {9, "GF-TQ6", 0x0200, 4},
    {19, "GF-DIO", 0x002D, 4},
}};

}  // namespace

std::span<const PanelModel> PanelModels() { return kPanelModels; }

const PanelModel* FindPanelModel(std::uint32_t moduleType) {
  for (const PanelModel& model : kPanelModels) {
    if (model.moduleType == moduleType) return &model;
  }
  return nullptr;
}

const PanelModel* FindPanelModelByProductId(std::uint16_t productId) {
  for (const PanelModel& model : kPanelModels) {
    if (model.productId == productId) return &model;
  }
  return nullptr;
}

}  // namespace drav
