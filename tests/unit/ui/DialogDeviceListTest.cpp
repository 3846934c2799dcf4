// The dialog's device pop-up: which units it lists, in which order, with which labels.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ui/DialogDeviceList.h"

namespace drav {
namespace {

DialogUnitCounts Counts(std::initializer_list<std::pair<std::uint32_t, std::int32_t>> units) {
  DialogUnitCounts counts{};
  for (auto [type, count] : units) counts[type] = count;
  return counts;
}

TEST(DialogDeviceListOrder, RadiosFirstThenTheFixedModelOrderUnitsAscending) {
  std::vector<DialogDevice> devices =
      BuildDialogDeviceList(Counts({{kModuleGFP8, 1}, {kModuleGF46, 2}, {kModuleGFDIO, 1}, {kModuleGF45, 1},
                                    {kModuleGFWCP, 1}, {kModuleGFMESM, 1}, {kModuleGFMCPPro, 1}}));
  const std::vector<std::pair<std::uint32_t, std::int32_t>> expected = {
      {kModuleGF45, 1},     {kModuleGF46, 1},   {kModuleGF46, 2}, {kModuleGFP8, 1},
      {kModuleGFMCPPro, 1}, {kModuleGFWCP, 1},  {kModuleGFMESM, 1}, {kModuleGFDIO, 1}};
  ASSERT_EQ(devices.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(devices[i].moduleType, expected[i].first) << i;
    EXPECT_EQ(devices[i].unit, expected[i].second) << i;
  }
}

TEST(DialogDeviceListOrder, ModelsWithoutDialogRowsAreNotListed) {
  EXPECT_TRUE(BuildDialogDeviceList(Counts({{kModuleGFATC, 2}, {kModuleGFFMC, 1}, {kModuleGFTPM, 1}})).empty());
}

TEST(DialogDeviceListOrder, SixtyEntriesAtMostAndNegativeCountsIgnored) {
  std::vector<DialogDevice> devices =
      BuildDialogDeviceList(Counts({{kModuleGF45, 32}, {kModuleGF46, 32}, {kModuleGFP8, -3}}));
  ASSERT_EQ(devices.size(), static_cast<std::size_t>(kMaxDialogDevices));
  EXPECT_EQ(devices.back().moduleType, kModuleGF46);
  EXPECT_EQ(devices.back().unit, 28);
}

TEST(DialogDeviceLabels, MixedUnitsWithTheirLabels) {
  DeviceLabelContext context;
  context.xplaneVersion = 12000;
  std::vector<DialogDevice> devices = BuildDialogDeviceList(
      Counts({{kModuleGF46, 1}, {kModuleGFP8, 2}, {kModuleGFEFIS, 1}, {kModuleGFMESM, 1}, {kModuleGFDIO, 1}}));
  EXPECT_EQ(DeviceListText(devices, context),
            "GF-46 Unit 1;GF-P8 Unit 1;GF-P8 Unit 2;GF-EFIS Unit 1;GF-MESM - N/A;GF-DIO - N/A;");
}

TEST(DialogDeviceLabels, TakenOverAndX737UnitsSayWhy) {
  const DialogDevice efis{kModuleGFEFIS, 1};
  const DialogDevice mcpPro{kModuleGFMCPPro, 2};
  DeviceLabelContext context;
  context.xplaneVersion = 12000;
  EXPECT_EQ(DeviceItemText(mcpPro, context), "GF-MCPPro Unit 2");
  context.efisDisabled = true;
  EXPECT_EQ(DeviceItemText(efis, context), "GF-EFIS DSBLD");
  context.mcpProDisabled = true;
  EXPECT_EQ(DeviceItemText(mcpPro, context), "GF-MCPPro DSBLD");
  // The x737 label wins over the take-over one.
  context.x737McpDirect = true;
  EXPECT_EQ(DeviceItemText(mcpPro, context), "GF-MCPPro - N/A");
}

TEST(DialogDeviceLabels, TheMesmIsNotSupportedBeforeVersion900) {
  const DialogDevice mesm{kModuleGFMESM, 1};
  DeviceLabelContext context;
  context.xplaneVersion = 899;
  EXPECT_EQ(DeviceItemText(mesm, context), "GF-MESM - N/S");
  context.xplaneVersion = 900;
  EXPECT_EQ(DeviceItemText(mesm, context), "GF-MESM - N/A");
}

TEST(DialogDeviceLabels, AnEmptyListSaysSoInADisabledItem) {
  EXPECT_EQ(DeviceListText({}, DeviceLabelContext{}), "(No devices found.)");
  EXPECT_STREQ(DialogModelName(kModuleGFFMC), "???");
  EXPECT_STREQ(DialogModelName(0), "???");
  EXPECT_STREQ(DialogModelName(kModuleGFDIO), "GF-DIO");
}

}  // namespace
}  // namespace drav
