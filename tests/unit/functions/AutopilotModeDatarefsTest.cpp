// The mode datarefs: on/off from the state word (or, without it, from the older mode datarefs), and
// a write that presses the mode's key (flight-level change: writes its bit) -- for the auto-throttle
// switch only when the state must change.
#include <XPLMDataAccess.h>

#include <string>
#include <vector>

#include "CustomDatarefsFixture.h"

namespace drav {
namespace {

using Texts = std::vector<std::string>;
using testing::kStateWord;

constexpr const char* kAirspeedMode = "sim/cockpit/autopilot/airspeed_mode";
constexpr const char* kHeadingMode = "sim/cockpit/autopilot/heading_mode";
constexpr const char* kAltitudeMode = "sim/cockpit/autopilot/altitude_mode";
constexpr int kNoKey = -1;

struct Mode {
  const char* path;
  int mask;
  const char* fallback;
  int fallbackValue;
  int key;
};

const Mode kModes[] = {
    {"drav/autopilot/autothrottle", 0x1, kAirspeedMode, 11, 10},
    {"drav/autopilot/heading_hold", 0x2, kHeadingMode, 13, 12},
    {"drav/autopilot/wing_leveler", 0x4, kHeadingMode, 15, 14},
    {"drav/autopilot/asi_hold", 0x8, kAirspeedMode, 12, 11},
    {"drav/autopilot/vvi_climb", 0x10, kAltitudeMode, 18, 17},
    {"drav/autopilot/alt_hold", 0x20, kAltitudeMode, 17, 16},
    {"drav/autopilot/level_change", 0x40, kAltitudeMode, 0, kNoKey},
    {"drav/autopilot/hnav", 0x300, kHeadingMode, 16, 15},
    {"drav/autopilot/vnav", 0xC00, kAltitudeMode, 19, 18},
};

constexpr const char* kAutothrottle = "drav/autopilot/autothrottle";
constexpr const char* kHeadingHold = "drav/autopilot/heading_hold";
constexpr const char* kLevelChange = "drav/autopilot/level_change";

using ModeDatarefsTest = testing::CustomDatarefsTest;

TEST_F(ModeDatarefsTest, AreWritableInts) {
  Publish();
  for (const Mode& mode : kModes) {
    XPLMDataRef dataref = XPLMFindDataRef(mode.path);
    ASSERT_NE(dataref, nullptr) << mode.path;
    EXPECT_EQ(XPLMGetDataRefTypes(dataref), xplmType_Int) << mode.path;
    EXPECT_EQ(XPLMCanWriteDataRef(dataref), 1) << mode.path;
  }
}

TEST_F(ModeDatarefsTest, EachModeReadsItsOwnStateBits) {
  Publish();
  for (const Mode& mode : kModes) {
    Set(kStateWord, mode.mask);
    EXPECT_EQ(Get(mode.path), 1.0) << mode.path;
    Set(kStateWord, 0x7FFFF & ~mode.mask);
    EXPECT_EQ(Get(mode.path), 0.0) << mode.path;
  }
}

TEST_F(ModeDatarefsTest, NavigationModesAreOnWhenArmedOrEngaged) {
  Publish();
  for (int bits : {0x100, 0x200}) {
    Set(kStateWord, bits);
    EXPECT_EQ(Get("drav/autopilot/hnav"), 1.0) << bits;
  }
  for (int bits : {0x400, 0x800}) {
    Set(kStateWord, bits);
    EXPECT_EQ(Get("drav/autopilot/vnav"), 1.0) << bits;
  }
}

TEST_F(ModeDatarefsTest, WithoutTheStateWordTheOlderModeDatarefsDecide) {
  Remove(kStateWord);
  Publish();
  for (const Mode& mode : kModes) {
    Set(mode.fallback, mode.fallbackValue);
    EXPECT_EQ(Get(mode.path), 1.0) << mode.path;
    Set(mode.fallback, mode.fallbackValue + 1);
    EXPECT_EQ(Get(mode.path), 0.0) << mode.path;
  }
  // One mode dataref serves several modes: heading hold and wing leveller exclude each other.
  Set(kHeadingMode, 15);
  EXPECT_EQ(Get(kHeadingHold), 0.0);
  EXPECT_EQ(Get("drav/autopilot/wing_leveler"), 1.0);
}

TEST_F(ModeDatarefsTest, WithNeitherSourceModesReadOffAndWritesOnlyPressTheKey) {
  Remove(kStateWord);
  Remove(kHeadingMode);
  Remove(kAltitudeMode);
  Publish();
  EXPECT_EQ(Get(kHeadingHold), 0.0);
  EXPECT_EQ(Get(kLevelChange), 0.0);
  ClearEvents();
  Write(kHeadingHold, 1);
  Write(kLevelChange, 1);  // no key and no state word: nothing to do
  EXPECT_EQ(Events(), Texts{KeyStroke(12)});
}

TEST_F(ModeDatarefsTest, EveryWritePressesTheModeKeyWhateverTheValue) {
  Publish();
  for (const Mode& mode : kModes) {
    if (mode.key == kNoKey || mode.mask == 0x1) continue;
    for (int state : {0, mode.mask}) {
      for (int value : {0, 1}) {
        Set(kStateWord, state);
        ClearEvents();
        Write(mode.path, value);
        EXPECT_EQ(Events(), Texts{KeyStroke(mode.key)}) << mode.path << " state " << state << " value " << value;
      }
    }
  }
}

TEST_F(ModeDatarefsTest, AutothrottleKeyOnlyWhenTheStateMustChange) {
  Publish();
  struct Case {
    int state;
    int written;
    bool pressed;
  };
  const Case cases[] = {
      {0x1, 1, false}, {0x1, 0, true}, {0x0, 0, false}, {0x0, 1, true},
      {0x3, 1, false},  // other bits do not matter
      {0x1, 2, true},   // only 1 asks for "on"
      {0x0, -1, true},
  };
  for (const Case& c : cases) {
    Set(kStateWord, c.state);
    ClearEvents();
    Write(kAutothrottle, c.written);
    EXPECT_EQ(Events(), c.pressed ? Texts{KeyStroke(10)} : Texts{})
        << "state " << c.state << " written " << c.written;
  }
}

TEST_F(ModeDatarefsTest, WithoutTheStateWordTheAutothrottleAlwaysToggles) {
  Remove(kStateWord);
  Publish();
  Set(kAirspeedMode, 11);  // on by the older dataref, but the test uses only the state word
  ClearEvents();
  Write(kAutothrottle, 1);
  EXPECT_EQ(Events(), Texts{KeyStroke(10)});
}

TEST_F(ModeDatarefsTest, LevelChangeTogglesThroughTheStateWord) {
  Publish();
  Set(kStateWord, 0x40);
  ClearEvents();
  Write(kLevelChange, 0);
  Write(kLevelChange, 1);
  EXPECT_EQ(Events(), (Texts{DatarefWrite(kStateWord, "64"), DatarefWrite(kStateWord, "64")}));
}

}  // namespace
}  // namespace drav
