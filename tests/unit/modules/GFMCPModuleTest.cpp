// The GF-MCP against a virtual unit and a fresh simulator: decoding of its input records (encoders
// before buttons, the disengage bar last), the part of each dial's text its display shows, the
// bar's inverted polarity, power loss, the bindings by key and the debug lines.
#include "modules/GFMCP_Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <thread>

#include "McpPanelFixture.h"
#include "modules/McpDisplaySlot.h"
#include "hid/ModuleTypes.h"

namespace drav {
namespace {

constexpr FunctionId kApHeadingAdj = 63;
constexpr FunctionId kApAltitudeAdj = 66;
constexpr FunctionId kApMaster = 88;
constexpr FunctionId kApDisengage = 89;

GFMCPInputRecord Record(std::initializer_list<std::int16_t> dials, std::uint8_t bank1, std::uint8_t bank2) {
  GFMCPInputRecord record{};
  int i = 0;
  for (std::int16_t dial : dials) record.encoders[i++] = dial;
  record.buttons1 = bank1;
  record.buttons2 = bank2;
  return record;
}

struct Decoded {
  std::int32_t control;
  std::int32_t value;
  bool operator==(const Decoded&) const = default;
};

Decoded Decode(GFMCP_Module& module, const GFMCPInputRecord& record) {
  std::int32_t value = -99;  // shows whether GetButton wrote it
  const std::int32_t control = module.GetButton(&record, &value);
  return {control, value};
}

TEST(GFMCPDecodeTest, EncoderWinsOverAButtonPressedInTheSameRecord) {
  GFMCP_Module module;
  // Count C = 1 and button 3 newly down: the encoder now, the press from the next record.
  EXPECT_EQ(Decode(module, Record({0, 0, 1, 0, 0}, 0x04, 0)), (Decoded{11, 1}));
  EXPECT_EQ(Decode(module, Record({0, 0, 0, 0, 0}, 0x04, 0)), (Decoded{2, 1}));
  EXPECT_EQ(Decode(module, Record({0, 0, 0, 0, 0}, 0x04, 0)), (Decoded{-1, -99}));
  // A before E, negative counts kept.
  EXPECT_EQ(Decode(module, Record({-3, 0, 0, 0, 5}, 0x04, 0)), (Decoded{9, -3}));
  EXPECT_EQ(Decode(module, Record({0, 0, 0, 0, 5}, 0x04, 0)), (Decoded{13, 5}));
  EXPECT_EQ(Decode(module, Record({0, 0, 0, 0, 0}, 0x00, 0)), (Decoded{2, 0}));
}

TEST(GFMCPDecodeTest, BarIsReportedOnlyAfterBankOneAndOnlyItsBitCounts) {
  GFMCP_Module module;
  // Button 8 and the bar in one record: the button first.
  EXPECT_EQ(Decode(module, Record({}, 0x80, 0x01)), (Decoded{7, 1}));
  EXPECT_EQ(Decode(module, Record({}, 0x80, 0x01)), (Decoded{GFMCP_Module::kControlDisengage, 1}));
  // The unwired bits of bank 2 are never news.
  EXPECT_EQ(Decode(module, Record({}, 0x80, 0xFF)), (Decoded{-1, -99}));
  EXPECT_EQ(Decode(module, Record({}, 0x80, 0xFE)), (Decoded{GFMCP_Module::kControlDisengage, 0}));
  EXPECT_EQ(module.SwitchVals9_16() & 0x01, 0);
  EXPECT_EQ(Decode(module, Record({}, 0x80, 0x00)), (Decoded{-1, -99}));
  EXPECT_EQ(module.GetButton(nullptr, nullptr), -1);
}

// Register resets both banks on the main thread while records keep arriving (run under TSan).
TEST(GFMCPDecodeTest, RegisterRacesSafelyWithDecoding) {
  GFMCP_Module module;
  std::atomic<bool> stop{false};
  std::thread input([&] {
    std::uint8_t bits = 0;
    while (!stop.load()) {
      bits ^= 0xFF;
      const GFMCPInputRecord record = Record({}, bits, bits);
      std::int32_t value = 0;
      while (module.GetButton(&record, &value) != -1) {
      }
    }
  });
  for (int i = 0; i < 200; ++i) module.Register(0);
  stop = true;
  input.join();
  module.Register(0);  // no unit 0: both banks read as 0
  EXPECT_EQ(module.SwitchVals1_8(), 0);
  EXPECT_EQ(module.SwitchVals9_16(), 0);
}

TEST(GFMCPDisplayTextTest, EachDisplayTakesItsPartOfTheText) {
  // Slots as the GF-MCP's A, C and D displays use them.
  const McpDisplaySlot a{nullptr, 1, 3, false, "   ", 'A'};
  const McpDisplaySlot c{nullptr, 2, 4, false, "   ", 'C'};
  const McpDisplaySlot d{nullptr, 0, kWholeText, true, "      ", 'D'};
  char out[16];
  ComposeMcpDisplayText(c, "12345", out, sizeof out);
  EXPECT_STREQ(out, "345");
  ComposeMcpDisplayText(c, "1234567", out, sizeof out);
  EXPECT_STREQ(out, "3456");
  ComposeMcpDisplayText(a, "123", out, sizeof out);
  EXPECT_STREQ(out, "23");
  ComposeMcpDisplayText(a, "0270", out, sizeof out);
  EXPECT_STREQ(out, "270");
  ComposeMcpDisplayText(d, "35000", out, sizeof out);
  EXPECT_STREQ(out, " 35000");
  // Shorter than the first position taken: nothing (besides the leading space).
  ComposeMcpDisplayText(a, "7", out, sizeof out);
  EXPECT_STREQ(out, "");
  ComposeMcpDisplayText(d, nullptr, out, sizeof out);
  EXPECT_STREQ(out, " ");
  // A small buffer truncates but stays terminated.
  char tiny[4];
  ComposeMcpDisplayText(d, "35000", tiny, sizeof tiny);
  EXPECT_STREQ(tiny, " 35");
}

class GFMCPModuleTest : public testing::McpPanelFixture {
 protected:
  GFMCPModuleTest() : McpPanelFixture(kModuleGFMCP, "GF-MCP") {}

  // A registered unit whose five dials show the given texts, nothing sent afterwards.
  void ShowTexts(GFMCP_Module& module, const char* const (&texts)[5]) {
    module.Register(0);
    for (int i = 0; i < 5; ++i) {
      std::snprintf(dials_[i].text, sizeof dials_[i].text, "%s", texts[i]);
      module.dialFunctions[i] = &dials_[i];
    }
    ClearSent();
    module.SetDisplay();
  }

  AvionicFunction dials_[5];
};

TEST_F(GFMCPModuleTest, DisplaysShowTheirPartOfEachDialText) {
  GFMCP_Module module;
  ShowTexts(module, {"0123", "0270", "12345", "35000", "-1200"});
  EXPECT_EQ(Display(1), "123");
  EXPECT_EQ(Display(2), "270");
  EXPECT_EQ(Display(3), "345");
  EXPECT_EQ(Display(4), " 35000");
  EXPECT_EQ(Display(5), " -1200");
  EXPECT_STREQ(module.lastText[2], "12345");

  // Unchanged texts are not resent; one changed text resends only its display.
  ClearSent();
  module.SetDisplay();
  EXPECT_TRUE(Sent().empty());
  std::strcpy(dials_[1].text, "0271");
  module.SetDisplay();
  EXPECT_EQ(Display(2), "271");
  EXPECT_EQ(Display(1), "<nothing>");
}

TEST_F(GFMCPModuleTest, WithoutPowerEverythingGoesBlankAndIsResentAfterwards) {
  GFMCP_Module module;
  ShowTexts(module, {"0123", "0270", "12345", "35000", "-1200"});
  module.buttonFunctions[0].state = 1;
  module.SetDisplay();
  EXPECT_EQ(Leds(), 0x01);

  Set("sim/cockpit/electrical/avionics_on", 0);
  ClearSent();
  module.SetDisplay();
  EXPECT_EQ(Leds(), 0);
  EXPECT_EQ(Display(1), "   ");
  EXPECT_EQ(Display(4), "      ");
  EXPECT_EQ(module.LastIndicators(), 0);
  EXPECT_STREQ(module.lastText[0], "");

  Set("sim/cockpit/electrical/avionics_on", 1);
  ClearSent();
  module.SetDisplay();
  EXPECT_EQ(Leds(), 0x01);
  EXPECT_EQ(Display(3), "345");
  EXPECT_EQ(Display(5), " -1200");
}

TEST_F(GFMCPModuleTest, ClearDisplayBlanksAndForgets) {
  GFMCP_Module module;
  ShowTexts(module, {"0123", "0270", "12345", "35000", "-1200"});
  ClearSent();
  module.ClearDisplay();
  EXPECT_EQ(Leds(), 0);
  EXPECT_EQ(Display(3), "   ");
  EXPECT_EQ(Display(5), "      ");
  EXPECT_STREQ(module.lastText[4], "");
}

TEST_F(GFMCPModuleTest, DisengageBarRunsItsFunctionInverted) {
  GFMCP_Module module;
  module.AssignFunction('9', kApDisengage, -1, -1);
  // Bar down at registration: Off.
  SendInput({0x01, 0, 0, 0, 0, 0, 0x00, 0x01});
  ClearSent();
  module.Register(0);
  EXPECT_EQ(module.SwitchVals9_16(), 0x01);
  const std::vector<std::string> whenDown = Events();
  EXPECT_FALSE(whenDown.empty());

  // The bar coming up later runs it On: the opposite of what registration ran.
  ClearSent();
  const Decoded decoded = Decode(module, Record({}, 0x00, 0x00));
  ASSERT_EQ(decoded, (Decoded{GFMCP_Module::kControlDisengage, 0}));
  module.HandleInput(decoded.control, decoded.value);
  const std::vector<std::string> whenUp = Events();
  EXPECT_FALSE(whenUp.empty());
  EXPECT_NE(whenUp, whenDown);

  // And registering with the bar up runs the same as the bar coming up.
  SendInput({0x01, 0, 0, 0, 0, 0, 0x00, 0x00});
  ClearSent();
  module.Register(0);
  EXPECT_EQ(Events(), whenUp);
}

TEST_F(GFMCPModuleTest, DialsAdjustTheirFunctionAndUnboundDialsDropEvents) {
  GFMCP_Module module;
  module.Register(0);
  module.AssignFunction('E', kApAltitudeAdj, -1, -1);
  ASSERT_NE(module.dialFunctions[4], nullptr);
  EXPECT_EQ(module.GetAssignedFunction('E'), kApAltitudeAdj);
  EXPECT_EQ(module.GetAssignedFunction('A'), 0);
  Set("sim/cockpit/autopilot/altitude", 5000);
  module.HandleInput(13, 2);
  module.HandleInput(9, 5);  // A unbound: nothing happens, nothing crashes
  const double altitude = sim::SimHost::Current().GetDatarefValue("sim/cockpit/autopilot/altitude").value_or(-1);
  EXPECT_NE(altitude, 5000);

  // A switch function on a dial key leaves the dial unbound rather than keeping the old one.
  module.AssignFunction('E', kApMaster, -1, -1);
  EXPECT_EQ(module.dialFunctions[4], nullptr);
  EXPECT_EQ(module.GetAssignedFunction('E'), 0);
}

TEST_F(GFMCPModuleTest, UpdateOutputsStopsAtTheFirstUnboundDial) {
  GFMCP_Module module;
  module.Register(0);
  module.AssignFunction('A', kApHeadingAdj, -1, -1);
  module.AssignFunction('C', kApAltitudeAdj, -1, -1);  // B is unbound: C is never formatted
  ASSERT_NE(module.dialFunctions[2], nullptr);
  std::strcpy(module.dialFunctions[2]->text, "stale");
  ClearSent();
  module.UpdateOutputs();
  EXPECT_STREQ(module.dialFunctions[2]->text, "stale");
  EXPECT_NE(Display(1), "<nothing>");
}

TEST_F(GFMCPModuleTest, KeysOutsideTheirRangesAreIgnored) {
  GFMCP_Module module;
  module.AssignFunction('1', kApMaster, -1, -1);
  module.AssignFunction('0', kApMaster, -1, -1);
  module.AssignFunction('F', kApHeadingAdj, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('1'), kApMaster);
  EXPECT_EQ(module.GetAssignedFunction('0'), 0);
  EXPECT_EQ(module.GetAssignedFunction('F'), 0);
  module.HandleInput(-1, 1);
  module.HandleInput(14, 1);
}

TEST_F(GFMCPModuleTest, DebugLinesCarryTheirExactTexts) {
  EnableLog();
  gDebug.DebugRegisterFunction = 1;
  gDebug.DebugGetButtonFunction = 1;
  gDebug.DebugSetDisplayFunction = 1;
  GFMCP_Module module;
  SendInput({0x01, 0, 0, 0, 0, 0, 0x03, 0x01});
  module.Register(0);
  dials_[3] = AvionicFunction{};
  std::strcpy(dials_[3].text, "35000");
  module.dialFunctions[3] = &dials_[3];
  module.buttonFunctions[1].state = 1;
  module.SetDisplay();
  Decode(module, Record({0, 1, 0, 0, -2}, 0x03, 0x01));  // a dial: no bank dumps
  Decode(module, Record({}, 0x07, 0x01));                // bank 1 changed: no bank 2 dump
  Decode(module, Record({}, 0x07, 0x00));
  const std::vector<std::string> expected = {
      "GFMCP_Module::Register - SwitchVals1_8 = 1100000000000000",
      "GFMCP_Module::Register - SwitchVals9_16 = 1000000000000000",
      "GFMCP_Module::SetDisplay - Indicators = 0100000000000000",
      "GFMCP_Module::SetDisplay -  D freqval =  35000",
      "GFMCP_Module::GetButton -  Dial A = 0, Dial B = 1, Dial C = 0, Dial D = 0, Dial E = -2",
      "GFMCP_Module::GetButton -  Dial A = 0, Dial B = 0, Dial C = 0, Dial D = 0, Dial E = 0",
      "GFMCP_Module::GetButton - BtnState1_8 = 1110000000000000",
      "GFMCP_Module::GetButton -  Dial A = 0, Dial B = 0, Dial C = 0, Dial D = 0, Dial E = 0",
      "GFMCP_Module::GetButton - BtnState1_8 = 1110000000000000",
      "GFMCP_Module::GetButton - BtnState9_16 = 0000000000000000",
  };
  EXPECT_EQ(LogLines(), expected);
}

}  // namespace
}  // namespace drav
