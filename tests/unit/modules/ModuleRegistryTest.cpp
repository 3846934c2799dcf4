// The device layer's rows are gathered from the model files: a model left out of the registry, or a
// copied model file that still names another model's number or product id, would leave a number
// without a row, or two models one panel could be taken for.
#include "modules/ModuleRegistry.h"

#include <gtest/gtest.h>

#include <set>

namespace drav {
namespace {

TEST(ModuleRegistryTest, EveryModelNumberHasOneRowOfItsOwnAndAProductIdNoOtherHas) {
  std::set<const PanelModel*> rows;
  std::set<std::uint16_t> productIds;
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    const PanelModel* row = RegisteredPanelModel(type);
    ASSERT_NE(row, nullptr) << "model " << type;
    EXPECT_EQ(row->moduleType, type);
    EXPECT_TRUE(rows.insert(row).second) << row->name;
    if (row->slots > 0) {
      EXPECT_TRUE(productIds.insert(row->productId).second) << row->name;
    }
  }
  EXPECT_EQ(PanelModels().size(), productIds.size());  // every model with slots has its tables
}

TEST(ModuleRegistryTest, ANumberWithoutARowAnswersNone) {
  for (std::uint32_t type : {0u, kLastModuleType + 1, 0xFFFFFFFFu}) {
    EXPECT_STREQ(ModelName(type), "NONE");
    EXPECT_STREQ(ModelWord(type), "Unknown");
    EXPECT_STREQ(SectionFormat(type), "NONE");
    EXPECT_EQ(FindPanelModel(type), nullptr);
  }
}

TEST(ModuleRegistryTest, TheLayersTableSkipsGapsRepeatsAndModelsWithoutSlots) {
  const PanelModel* p8 = RegisteredPanelModel(kModuleGFP8);
  const PanelModel* tpm = RegisteredPanelModel(kModuleGFTPM);
  const PanelModel* rows[] = {nullptr, p8, tpm, &kNoPanelModel, RegisteredPanelModel(kModuleGFT8), p8};
  const PanelModelTable table(rows);
  ASSERT_EQ(table.WithTables().size(), 2u);
  EXPECT_EQ(table.WithTables()[0], p8);
  EXPECT_EQ(table.WithTable(kModuleGFTPM), nullptr);
  EXPECT_STREQ(table.Row(kModuleGFTPM).name, "GF-TPM");
  EXPECT_STREQ(table.Row(kModuleGF45).name, "NONE");  // handed no row
  EXPECT_EQ(table.ByProductId(p8->productId), p8);
  EXPECT_EQ(table.ByProductId(0), nullptr);
}

}  // namespace
}  // namespace drav
