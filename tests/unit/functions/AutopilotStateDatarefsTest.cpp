// The state-flag datarefs: one per named bit of the state word; a write toggles that bit, except
// that the auto-throttle bit is left alone when it already is as written.
#include <XPLMDataAccess.h>

#include <string>
#include <vector>

#include "CustomDatarefsFixture.h"

namespace drav {
namespace {

using Texts = std::vector<std::string>;
using testing::kStateWord;

const std::vector<std::string> kStatePaths = {
    "drav/autopilot_state/auto_throttle_engage",
    "drav/autopilot_state/heading_hold_engage",
    "drav/autopilot_state/wing_leveler_engage",
    "drav/autopilot_state/airspeed_hold_with_pitch_engage",
    "drav/autopilot_state/vvi_climb_engage",
    "drav/autopilot_state/altitude_hold_armed",
    "drav/autopilot_state/flight_level_change_engage",
    "drav/autopilot_state/pitch_sync_engage",
    "drav/autopilot_state/fms_armed",
    "drav/autopilot_state/fms_engaged",
    "drav/autopilot_state/glideslope_armed",
    "drav/autopilot_state/glideslope_engaged",
    "drav/autopilot_state/fms_vnav_armed",
    "drav/autopilot_state/fms_vnav_engaged",
    "drav/autopilot_state/altitude_hold_engaged",
    "drav/autopilot_state/horizontal_toga_engaged",
    "drav/autopilot_state/vertical_toga_engaged",
    "drav/autopilot_state/vnav_armed",
    "drav/autopilot_state/vnav_engaged",
};

using StateDatarefsTest = testing::CustomDatarefsTest;

TEST_F(StateDatarefsTest, EveryNamedBitIsAWritableInt) {
  Publish();
  for (const std::string& path : kStatePaths) {
    XPLMDataRef dataref = XPLMFindDataRef(path.c_str());
    ASSERT_NE(dataref, nullptr) << path;
    EXPECT_EQ(XPLMGetDataRefTypes(dataref), xplmType_Int) << path;
    EXPECT_EQ(XPLMCanWriteDataRef(dataref), 1) << path;
  }
}

TEST_F(StateDatarefsTest, EachFlagReadsOnlyItsBit) {
  Publish();
  for (std::size_t bit = 0; bit < kStatePaths.size(); ++bit) {
    Set(kStateWord, 1 << bit);
    for (std::size_t other = 0; other < kStatePaths.size(); ++other) {
      EXPECT_EQ(Get(kStatePaths[other]), other == bit ? 1.0 : 0.0) << "bit " << bit << ": " << kStatePaths[other];
    }
  }
}

TEST_F(StateDatarefsTest, EachWriteTogglesItsBitWhateverTheValue) {
  Publish();
  for (std::size_t bit = 1; bit < kStatePaths.size(); ++bit) {
    const std::string mask = std::to_string(1 << bit);
    for (int value : {0, 1}) {
      Set(kStateWord, 0);
      ClearEvents();
      Write(kStatePaths[bit], value);
      EXPECT_EQ(Events(), Texts{DatarefWrite(kStateWord, mask)}) << kStatePaths[bit] << " = " << value;
    }
  }
}

TEST_F(StateDatarefsTest, AutothrottleBitIsWrittenOnlyWhenItMustChange) {
  Publish();
  const std::string& autothrottle = kStatePaths[0];
  Set(kStateWord, 0x1);
  ClearEvents();
  Write(autothrottle, 1);
  EXPECT_TRUE(Events().empty());
  Write(autothrottle, 0);
  EXPECT_EQ(Events(), Texts{DatarefWrite(kStateWord, "1")});
  Set(kStateWord, 0x0);
  ClearEvents();
  Write(autothrottle, 0);
  EXPECT_TRUE(Events().empty());
  Write(autothrottle, 1);
  EXPECT_EQ(Events(), Texts{DatarefWrite(kStateWord, "1")});
}

TEST_F(StateDatarefsTest, WithoutTheStateWordFlagsReadOffAndWritesDoNothing) {
  Remove(kStateWord);
  Publish();
  for (const std::string& path : kStatePaths) EXPECT_EQ(Get(path), 0.0) << path;
  ClearEvents();
  Write(kStatePaths[0], 1);
  Write(kStatePaths[6], 1);
  EXPECT_TRUE(Events().empty());
}

}  // namespace
}  // namespace drav
