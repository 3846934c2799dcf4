// Discovery and hot-plug through the layer's entry points, on virtual units.
#include <gtest/gtest.h>

#include "VirtualPanels.h"
#include "hid/DeviceObject.h"
#include "plugin/PluginContext.h"

namespace drav {
namespace {

using testing::CallbackRecorder;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kGF46 = 8, kGFMCP = 6, kGFP8 = 2, kGFWCP = 18, kGFDIO = 19, kGFLGT2 = 11, kGF166 = 5;

class DiscoveryTest : public testing::VirtualPanelsTest {};

// The layer's state belongs to the plug-in's context: a context made inside another (a plug-in
// started within a test) begins with no units and the short feature-read wait, and gives the outer
// one's layer back as it found it, still handing its units' input to its callback.
TEST_F(DiscoveryTest, AContextHasADeviceLayerOfItsOwn) {
  const std::string path = Plug(kGFP8, "/dev/v/p8");
  StartLayer();
  ASSERT_EQ(GFDev_GFP8_Count(), 1);
  const std::chrono::milliseconds outerWait = FeatureReadWait();
  {
    PluginContext inner;
    EXPECT_EQ(GFDev_GFP8_Count(), 0);
    EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "");
    EXPECT_EQ(FeatureReadWait(), std::chrono::milliseconds(3));
    SetFeatureReadWait(std::chrono::seconds(5));
  }
  EXPECT_EQ(GFDev_GFP8_Count(), 1);
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "/DEV/V/P8");
  EXPECT_EQ(FeatureReadWait(), outerWait);
  SendInputAndWait(kGFP8, 0, path, {0, 0x01});
  EXPECT_EQ(CallbackRecorder::Instance().Count(), 1u);
}

// The kernel never announces a device at a path that is still there. The stand-in holds to that, so a
// scenario that plugs or replugs a unit still present is told so instead of passing on a second
// arrival that no real machine would send.
TEST_F(DiscoveryTest, APresentUnitCannotArriveAgain) {
  Plug(kGFP8, "/dev/v/p8");
  StartLayer();
  EXPECT_FALSE(Panels().Plug("/dev/v/p8", testing::SpecOf(kGFWCP))) << "a second unit at a path in use";
  EXPECT_FALSE(Panels().Replug("/dev/v/p8")) << "an arrival of a unit that never left";
  EXPECT_FALSE(Panels().Replug("/dev/v/never-plugged"));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GFP8_Count(), 1);
  EXPECT_EQ(GFDev_GFWCP_Count(), 0);

  ASSERT_TRUE(Panels().Unplug("/dev/v/p8"));
  EXPECT_TRUE(Panels().Replug("/dev/v/p8"));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GFP8_Count(), 1);
}

// Where the system gives no location, a unit that reports its serial is known by it, not by the path
// it was last seen at: another unit plugged in where an absent one was takes a number of its own.
TEST_F(DiscoveryTest, AnotherSerialAtTheSamePathIsAnotherUnit) {
  Plug(kGF166, "/dev/v/radio", 0x0100, "A1");
  StartLayer();
  ASSERT_TRUE(Panels().Unplug("/dev/v/radio"));
  GFDev_ProcessDeviceChanges();
  Plug(kGF166, "/dev/v/radio", 0x0100, "B2");
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GF166_Count(), 1);
  EXPECT_EQ(GFDev_UnitPath(kGF166, 1), "/DEV/V/RADIO") << "the newcomer takes the next slot";
}

}  // namespace
}  // namespace drav
