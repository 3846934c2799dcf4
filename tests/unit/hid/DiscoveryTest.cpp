// Discovery and hot-plug through the layer's entry points, on virtual units.
#include <gtest/gtest.h>

#include "VirtualPanels.h"

namespace drav {
namespace {

using testing::CallbackRecorder;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kGF46 = 8, kGFMCP = 6, kGFP8 = 2, kGFWCP = 18, kGFDIO = 19, kGFLGT2 = 11;

class DiscoveryTest : public testing::VirtualPanelsTest {};

TEST_F(DiscoveryTest, UnitsAreNumberedInEnumerationOrderPerModel) {
  Plug(kGF46, "/dev/v/radio-a");
  Plug(kGFP8, "/dev/v/switches");
  Plug(kGF46, "/dev/v/radio-b");
  StartLayer();
  EXPECT_EQ(GFDev_GF46_Count(), 2);
  EXPECT_EQ(GFDev_GFP8_Count(), 1);
  EXPECT_EQ(GFDev_UnitPath(kGF46, 0), "/DEV/V/RADIO-A");
  EXPECT_EQ(GFDev_UnitPath(kGF46, 1), "/DEV/V/RADIO-B");
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "/DEV/V/SWITCHES");
  std::int32_t unit = 7;
  EXPECT_EQ(GFDev_FindUnitByPath(kGF46, "/dev/v/RADIO-b", &unit), 0);  // case does not matter
  EXPECT_EQ(unit, 1);
  EXPECT_EQ(GFDev_FindUnitByPath(kGFP8, "/dev/v/radio-b", &unit), 3);
  EXPECT_EQ(unit, -1);
  EXPECT_EQ(GFDev_FindUnitByPath(16, "/dev/v/radio-b", &unit), 3);
}

TEST_F(DiscoveryTest, ForeignDevicesAndUnknownProductsAreIgnored) {
  VirtualUnitSpec keyboard = testing::SpecOf(kGF46);
  keyboard.vendorId = 0x046D;  // another vendor with a product id of ours
  ASSERT_TRUE(Panels().Plug("/dev/v/keyboard", keyboard));
  VirtualUnitSpec unknown = testing::SpecOf(kGF46);
  unknown.productId = 0x0099;
  ASSERT_TRUE(Panels().Plug("/dev/v/unknown", unknown));
  VirtualUnitSpec tpm = testing::SpecOf(16);  // GF-TPM: no product id in the table
  ASSERT_TRUE(Panels().Plug("/dev/v/tpm", tpm));
  StartLayer();
  for (const PanelModel& model : PanelModels()) EXPECT_EQ(GFDev_PresentUnitCount(model.moduleType), 0);

  VirtualUnitSpec late = keyboard;
  ASSERT_TRUE(Panels().Plug("/dev/v/mouse", late));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GF46_Count(), 0);
}

// Two units last seen at one port (behind a hub that reports one location): the serial decides which
// of them came back, whatever path each gets now.
TEST_F(DiscoveryTest, TheSerialDecidesBetweenTwoUnitsOfOnePort) {
  VirtualUnitSpec first = testing::SpecOf(kGFP8, 0x0100, "S1");
  VirtualUnitSpec second = testing::SpecOf(kGFP8, 0x0100, "S2");
  first.location = second.location = "usb-0000:00:14.0-3/input0";
  ASSERT_TRUE(Panels().Plug("/dev/v/n0", first));
  ASSERT_TRUE(Panels().Plug("/dev/v/n1", second));
  StartLayer();
  ASSERT_TRUE(Panels().Unplug("/dev/v/n0"));
  ASSERT_TRUE(Panels().Unplug("/dev/v/n1"));
  GFDev_ProcessDeviceChanges();
  ASSERT_EQ(GFDev_GFP8_Count(), 0);

  ASSERT_TRUE(Panels().Renumber("/dev/v/n1", "/dev/v/n7"));
  ASSERT_TRUE(Panels().Replug("/dev/v/n7"));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 1), "/DEV/V/N7") << "S2 is unit 1 at its new path";
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "/DEV/V/N0");
  // A mouse at S1's old path is nobody the layer knows; its removal leaves unit 1 running.
  VirtualUnitSpec mouse = testing::SpecOf(kGFP8);
  mouse.vendorId = 0x046D;
  ASSERT_TRUE(Panels().Renumber("/dev/v/n0", "/dev/v/n8"));
  ASSERT_TRUE(Panels().Plug("/dev/v/n0", mouse));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GFP8_Count(), 1);
  ASSERT_TRUE(Panels().Unplug("/dev/v/n0"));
  ASSERT_TRUE(Panels().Replug("/dev/v/n8"));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GFP8_Count(), 2);
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "/DEV/V/N8");
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 2), "") << "no newcomer was made";
}

TEST_F(DiscoveryTest, UnplugKeepsTheSlotAndReplugRestartsTheSameUnit) {
  const std::string first = Plug(kGF46, "/dev/v/radio-a");
  const std::string second = Plug(kGF46, "/dev/v/radio-b");
  StartLayer();
  ASSERT_TRUE(Panels().Unplug(first));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GF46_Count(), 1);
  EXPECT_EQ(GFDev_UnitPath(kGF46, 0), "/DEV/V/RADIO-A");  // absent, slot kept
  EXPECT_EQ(GFDev_UnitPath(kGF46, 1), "/DEV/V/RADIO-B");
  EXPECT_EQ(GFDev_GF46_SetDisplay1(0, "ABCD"), 3);

  ASSERT_TRUE(Panels().Replug(first));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GF46_Count(), 2);
  EXPECT_EQ(GFDev_UnitPath(kGF46, 0), "/DEV/V/RADIO-A");
  EXPECT_EQ(GFDev_UnitPath(kGF46, 2), "");  // no second object was made

  // The restarted unit reads and writes again, under its old number.
  SendInputAndWait(kGF46, 0, first, {0, 0x02, 0x00, 0x10});
  auto records = CallbackRecorder::Instance().Records();
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0].unit, 0);
  EXPECT_EQ(GFDev_GF46_SetBrightness(0, 9), 0);
  ASSERT_TRUE(OutputIdle());
  ASSERT_EQ(Panels().Sent(first).size(), 1u);
  EXPECT_EQ(Panels().Sent(first)[0].bytes, (Bytes{6, 9}));
}

TEST_F(DiscoveryTest, NewcomerTakesTheFirstEmptySlotNotAnAbsentUnits) {
  const std::string first = Plug(kGF46, "/dev/v/radio-a");
  Plug(kGF46, "/dev/v/radio-b");
  StartLayer();
  ASSERT_TRUE(Panels().Unplug(first));
  GFDev_ProcessDeviceChanges();
  Plug(kGF46, "/dev/v/radio-c");
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_UnitPath(kGF46, 2), "/DEV/V/RADIO-C");
  EXPECT_EQ(GFDev_GF46_Count(), 2);
}

TEST_F(DiscoveryTest, FullTableRefusesAnotherUnitAtEnumerationAndArrival) {
  for (int i = 0; i < 5; ++i) Plug(kGFMCP, "/dev/v/mcp" + std::to_string(i));
  StartLayer();
  EXPECT_EQ(GFDev_GFMCP_Count(), 4);
  EXPECT_EQ(GFDev_FindUnitByPath(kGFMCP, "/dev/v/mcp4", nullptr), 3);

  ASSERT_TRUE(Panels().Unplug("/dev/v/mcp1"));
  GFDev_ProcessDeviceChanges();
  Plug(kGFMCP, "/dev/v/mcp5");  // four are known, one of them absent
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GFMCP_Count(), 3);
  EXPECT_EQ(GFDev_FindUnitByPath(kGFMCP, "/dev/v/mcp5", nullptr), 3);
  EXPECT_EQ(GFDev_UnitPath(kGFMCP, 1), "/DEV/V/MCP1");
}

TEST_F(DiscoveryTest, StartingTwiceLeavesOneObjectPerUnit) {
  Plug(kGF46, "/dev/v/radio-a");
  Plug(kGFP8, "/dev/v/switches");
  StartLayer();
  StartLayer();
  EXPECT_EQ(GFDev_GF46_Count(), 1);
  EXPECT_EQ(GFDev_GFP8_Count(), 1);
  EXPECT_EQ(GFDev_UnitPath(kGF46, 1), "");
}

TEST_F(DiscoveryTest, NoticesAreIgnoredWhileStoppedAndTablesEmptyAfterStop) {
  Plug(kGF46, "/dev/v/radio-a");
  GFDev_ProcessDeviceChanges();  // never started: nothing happens
  EXPECT_EQ(GFDev_GF46_Count(), 0);
  StartLayer();
  EXPECT_EQ(GFDev_GF46_Count(), 1);
  GFDev_Stop();
  EXPECT_EQ(GFDev_GF46_Count(), 0);
  EXPECT_EQ(GFDev_UnitPath(kGF46, 0), "");
  Plug(kGF46, "/dev/v/radio-b");
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GF46_Count(), 0);
}

TEST_F(DiscoveryTest, OverlongPathIsRefused) {
  const std::string longPath = "/dev/v/" + std::string(260, 'x');
  Plug(kGF46, longPath);
  StartLayer();
  EXPECT_EQ(GFDev_GF46_Count(), 0);
  Panels().Unplug(longPath);
  Panels().Replug(longPath);
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GF46_Count(), 0);
}

TEST_F(DiscoveryTest, UnitThatCannotBeOpenedIsSkipped) {
  const std::string path = Plug(kGF46, "/dev/v/radio-a");
  Panels().SetFault(path, VirtualFault::Open, true);
  StartLayer();
  EXPECT_EQ(GFDev_GF46_Count(), 0);
}

TEST_F(DiscoveryTest, UnitsOpenedAfterEntrySendTheirFirstOutputs) {
  const std::string wcp = Plug(kGFWCP, "/dev/v/wcp");
  const std::string dio = Plug(kGFDIO, "/dev/v/dio");
  Panels().SetFeatureAnswer(wcp, 4, {4, 0x5A});
  Panels().SetFeatureAnswer(dio, 4, {4, 1, 2, 3, 4, 5, 6, 7});
  StartLayer();
  ASSERT_TRUE(OutputIdle());
  auto wcpSent = Panels().Sent(wcp);
  ASSERT_EQ(wcpSent.size(), 12u);  // brightness 15 on six lights, then six lights off
  for (std::size_t i = 0; i < 12; ++i) {
    EXPECT_EQ(wcpSent[i].kind, VirtualSentReport::Kind::Output);
    EXPECT_EQ(wcpSent[i].bytes, (Bytes{2, static_cast<std::uint8_t>(i % 6 + 1), 0, 0, 0}));
  }
  auto dioSent = Panels().Sent(dio);
  ASSERT_EQ(dioSent.size(), 1u);
  EXPECT_EQ(dioSent[0].bytes, (Bytes{2, 0, 0, 0, 0, 0, 0, 0}));  // the device's output length

  std::uint8_t switches = 0;
  EXPECT_EQ(GFDev_GFWCP_GetSwitches(0, &switches), 0);
  EXPECT_EQ(switches, 0x5A);
  std::uint8_t states[7] = {};
  EXPECT_EQ(GFDev_GFDIO_GetState(0, &states[0], &states[1], &states[2], &states[3], &states[4], &states[5],
                                 &states[6]),
            0);
  EXPECT_EQ(states[6], 7);

  // Replugged, these units are restarted without repeating their first outputs.
  Panels().ClearSent();
  Panels().Unplug(wcp);
  GFDev_ProcessDeviceChanges();
  Panels().Replug(wcp);
  GFDev_ProcessDeviceChanges();
  ASSERT_TRUE(OutputIdle());
  EXPECT_TRUE(Panels().Sent(wcp).empty());
  EXPECT_EQ(GFDev_GFWCP_Count(), 1);
}

TEST_F(DiscoveryTest, ExtendedInfoReportsSerialAndOutputLengthWhereTheModelHasThem) {
  Plug(kGFLGT2, "/dev/v/lgt2", 0x0123);
  Plug(12, "/dev/v/mcppro", 0x0200, "MCP-77");
  StartLayer();
  GFDevInfoEx info{};
  info.size = kGFDevInfoExSize;
  info.outputReportLength = 0xBEEF;
  EXPECT_EQ(GFDev_GetDeviceInfoEx(kGFLGT2, 0, &info), 0);
  EXPECT_STREQ(info.path, "/DEV/V/LGT2");
  EXPECT_EQ(std::uint16_t{info.version}, 0x0123);
  EXPECT_STREQ(info.serial, "");
  EXPECT_EQ(std::uint16_t{info.outputReportLength}, 8);  // packed: compare a copy

  info.outputReportLength = 0xBEEF;
  EXPECT_EQ(GFDev_GetDeviceInfoEx(12, 0, &info), 0);
  EXPECT_STREQ(info.serial, "MCP-77");
  EXPECT_EQ(std::uint16_t{info.outputReportLength}, 0xBEEF);  // left as the caller had it
}

}  // namespace
}  // namespace drav
