// The GF-MCPPro against a virtual unit and a fresh simulator: decoding of its 24 inputs and six
// encoders, the part of each dial's text its display shows, the take-over by another plug-in and
// the full resend after it, the x737 direct mode and its commands, and the debug lines.
#include "modules/GFMCPPro_Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>

#include "McpPanelFixture.h"
#include "functions/AvionicDisplay.h"
#include "base/OptionalXplmApi.h"
#include "hid/ModuleTypes.h"

namespace drav {
namespace {

constexpr FunctionId kApSpeedAdj = 65;
constexpr FunctionId kApAltitudeAdj = 66;
constexpr FunctionId kApMaster = 88;
constexpr FunctionId kApDisengage = 89;

GFMCPProInputRecord Record(std::uint32_t switches, std::int16_t dialIndex = -1, std::int16_t count = 0) {
  GFMCPProInputRecord record{};
  if (dialIndex >= 0) record.encoders[dialIndex] = count;
  record.switches = switches;
  return record;
}

struct Decoded {
  std::int32_t control;
  std::int32_t value;
  bool operator==(const Decoded&) const = default;
};

Decoded Decode(GFMCPPro_Module& module, const GFMCPProInputRecord& record) {
  std::int32_t value = -99;
  const std::int32_t control = module.GetButton(&record, &value);
  return {control, value};
}

class GFMCPProDecodeTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetHostState(); }
  void TearDown() override { ResetHostState(); }
};

TEST_F(GFMCPProDecodeTest, EncodersFirstThenInputsLowestFirstUpToBit23) {
  GFMCPPro_Module module;
  EXPECT_EQ(Decode(module, Record(0x00800001u, 5, -2)), (Decoded{38, -2}));
  EXPECT_EQ(Decode(module, Record(0x00800001u)), (Decoded{0, 1}));
  EXPECT_EQ(Decode(module, Record(0x00800001u)), (Decoded{23, 1}));
  // Bits above the 24 inputs are not inputs.
  EXPECT_EQ(Decode(module, Record(0xFF800001u)), (Decoded{-1, -99}));
  EXPECT_EQ(Decode(module, Record(0x00000001u, 0, 3)), (Decoded{33, 3}));
  EXPECT_EQ(Decode(module, Record(0x00000001u)), (Decoded{23, 0}));
  EXPECT_EQ(module.SwitchState(), 0x00000001u);
}

TEST_F(GFMCPProDecodeTest, TakenOverPanelReportsNothingAndKeepsItsState) {
  GFMCPPro_Module module;
  McpProDisabled = 1;
  EXPECT_EQ(Decode(module, Record(0x4u, 1, 1)), (Decoded{-1, -99}));
  module.AssignFunction(0, kApMaster, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction(0), 0);
  // Handed back: the switch moved meanwhile is news from the next record.
  McpProDisabled = 0;
  EXPECT_EQ(Decode(module, Record(0x4u)), (Decoded{2, 1}));
  module.AssignFunction(0, kApMaster, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction(0), kApMaster);
}

// Register resets the decoding state on the main thread while records keep arriving on the input
// thread (run under TSan).
TEST_F(GFMCPProDecodeTest, RegisterRacesSafelyWithDecoding) {
  GFMCPPro_Module module;
  std::atomic<bool> stop{false};
  std::thread input([&] {
    std::uint32_t switches = 0;
    while (!stop.load()) {
      switches ^= 0x00FFFFFFu;
      const GFMCPProInputRecord record = Record(switches);
      std::int32_t value = 0;
      while (module.GetButton(&record, &value) != -1) {
      }
    }
  });
  for (int i = 0; i < 200; ++i) module.Register(0);
  stop = true;
  input.join();
  module.Register(0);  // no unit 0: the state read is 0
  EXPECT_EQ(module.SwitchState(), 0u);
}

TEST(GFMCPProX737Test, EveryControlNamesItsAircraftCommand) {
  const char* const expected[GFMCPPro_Module::kButtonCount] = {
      "VNAV",   "LNAV", "CMDA", "CMDB", "ATHR_ARM", "CHANGEOVER", "SPDINTV",  "VORLOC",
      "ALTINTV", nullptr, nullptr, nullptr, nullptr, nullptr,      "FD_A",     "N1_MODE",
      "MCPSPD_MODE", "LVLCHANGE", "HDGSEL", "APP", "ALTHLD", "VS", "AP_DISCONNECT", "FD_B"};
  for (std::int32_t control = 0; control < GFMCPPro_Module::kButtonCount; ++control) {
    const std::int32_t row = GFMCPPro_Module::X737CommandIndex(control);
    if (expected[control] == nullptr) {
      EXPECT_EQ(row, -1) << control;
      continue;
    }
    ASSERT_GE(row, 0) << control;
    ASSERT_LT(row, kX737McpCommandCount) << control;
    const std::string toggle = kX737McpCommandNames[static_cast<std::size_t>(row)].toggle;
    EXPECT_EQ(toggle.rfind(std::string("x737/mcp/") + expected[control], 0), 0u) << control << " " << toggle;
  }
  EXPECT_EQ(GFMCPPro_Module::X737CommandIndex(-1), -1);
  EXPECT_EQ(GFMCPPro_Module::X737CommandIndex(33), -1);
}

class GFMCPProModuleTest : public testing::McpPanelFixture {
 protected:
  GFMCPProModuleTest() : McpPanelFixture(kModuleGFMCPPro, "GF-MCPPro") {}

  void SetUp() override {
    McpPanelFixture::SetUp();
    GFMCPPro_Module::ForgetSeenTakeover();
  }
  void TearDown() override {
    GFMCPPro_Module::ForgetSeenTakeover();
    McpPanelFixture::TearDown();
  }

  void ShowTexts(GFMCPPro_Module& module, const char* const (&texts)[6]) {
    module.Register(0);
    for (int i = 0; i < 6; ++i) {
      std::snprintf(dials_[i].text, sizeof dials_[i].text, "%s", texts[i]);
      module.dialFunctions[i] = &dials_[i];
    }
    ClearSent();
    module.SetDisplay();
  }

  // The x737 MCP as the aircraft announces it: every command of the table known.
  void AnnounceX737() {
    for (const CommandTripleNames& names : kX737McpCommandNames) {
      sim::SimHost::Current().SetCommandKnown(names.on, true);
      sim::SimHost::Current().SetCommandKnown(names.off, true);
      sim::SimHost::Current().SetCommandKnown(names.toggle, true);
    }
    ASSERT_TRUE(LoadOptionalXplmApi());
    ResolveX737McpCommands();
    X737Mode = 1;
    X737McpDirect = 1;
  }

  AvionicFunction dials_[6];
};

TEST_F(GFMCPProModuleTest, DisplaysShowTheirPartOfEachDialText) {
  GFMCPPro_Module module;
  ShowTexts(module, {"0123", "250", "0270", "35000", "-1200", "0045"});
  // Displays B to E have five digits and are filled from the left.
  EXPECT_EQ(Display(1), "123");
  EXPECT_EQ(Display(2), "250  ");
  EXPECT_EQ(Display(3), "270  ");
  EXPECT_EQ(Display(4), "35000");
  EXPECT_EQ(Display(5), "-1200");
  EXPECT_EQ(Display(6), "045");
  ClearSent();
  module.SetDisplay();
  EXPECT_TRUE(Sent().empty());
}

TEST_F(GFMCPProModuleTest, RegisterSendsTheSharedBrightness) {
  DisplayBrightnessLevel = 5;
  GFMCPPro_Module module;
  module.Register(0);
  EXPECT_EQ(View().brightness, 5);
  DisplayBrightnessLevel = 8;
}

TEST_F(GFMCPProModuleTest, LightsFollowAll24RecordsAndGoDarkWithoutPower) {
  GFMCPPro_Module module;
  module.Register(0);
  module.buttonFunctions[0].state = 1;
  module.buttonFunctions[23].state = 1;
  ClearSent();
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x00800001u);
  Set("sim/cockpit/electrical/avionics_on", 0);
  ClearSent();
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0u);
  EXPECT_EQ(Display(2), "     ");  // six blanks on five digits
  EXPECT_EQ(Display(6), "   ");
}

TEST_F(GFMCPProModuleTest, TakeOverLeavesTheUnitAloneAndHandingBackResendsEverything) {
  GFMCPPro_Module module;
  ShowTexts(module, {"0123", "250", "0270", "35000", "-1200", "0045"});
  module.buttonFunctions[3].state = 1;
  module.SetDisplay();

  McpProDisabled = 1;
  ClearSent();
  module.SetDisplay();
  module.UpdateOutputs();
  module.ClearDisplay();
  module.Register(0);
  module.HandleInput(3, 1);
  EXPECT_TRUE(Sent().empty());
  EXPECT_TRUE(Events().empty());

  // Handed back: the next SetDisplay sends every display and the lights, though nothing changed.
  McpProDisabled = 0;
  ClearSent();
  module.SetDisplay();
  EXPECT_EQ(Display(1), "123");
  EXPECT_EQ(Display(2), "250  ");
  EXPECT_EQ(Display(6), "045");
  EXPECT_EQ(module.LastIndicators(), 0x8u);
  // Only once.
  ClearSent();
  module.SetDisplay();
  EXPECT_TRUE(Sent().empty());
}

TEST_F(GFMCPProModuleTest, OnlyTheFirstUnitToSeeTheHandBackResends) {
  GFMCPPro_Module first;
  GFMCPPro_Module second;
  ShowTexts(first, {"0123", "250", "0270", "35000", "-1200", "0045"});
  McpProDisabled = 1;
  first.SetDisplay();
  McpProDisabled = 0;
  second.SetDisplay();  // consumes the change
  ClearSent();
  first.SetDisplay();
  EXPECT_TRUE(Sent().empty());
}

TEST_F(GFMCPProModuleTest, OwnModeDrivesSwitchesButtonsAndTheBar) {
  GFMCPPro_Module module;
  module.AssignFunction(GFMCPPro_Module::kControlDisengage, kApDisengage, -1, -1);
  // Bar down at registration runs the function Off; the bar coming up runs it On.
  SendInput({0x01, 0, 0, 0, 0x00, 0x40, 0x00, 0x00});
  ClearSent();
  module.Register(0);
  EXPECT_EQ(module.SwitchState(), 1u << 22);
  const std::vector<std::string> whenDown = Events();
  ClearSent();
  module.HandleInput(GFMCPPro_Module::kControlDisengage, 0);
  const std::vector<std::string> whenUp = Events();
  EXPECT_FALSE(whenUp.empty());
  EXPECT_NE(whenUp, whenDown);
  SendInput({0x01, 0, 0, 0, 0, 0, 0, 0});
  ClearSent();
  module.Register(0);
  EXPECT_EQ(Events(), whenUp);

  // Encoders adjust their dial; an unbound one drops the event.
  module.AssignFunction(GFMCPPro_Module::kFirstDialKey + 1, kApSpeedAdj, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction(26), kApSpeedAdj);
  Set("sim/cockpit/autopilot/airspeed", 200);
  module.HandleInput(34, 3);
  module.HandleInput(33, 3);
  EXPECT_NE(sim::SimHost::Current().GetDatarefValue("sim/cockpit/autopilot/airspeed").value_or(200), 200);
  EXPECT_EQ(module.GetAssignedFunction(24), 0);
  EXPECT_EQ(module.GetAssignedFunction(31), 0);
}

TEST_F(GFMCPProModuleTest, X737ModeRunsTheAircraftCommands) {
  AnnounceX737();
  GFMCPPro_Module module;
  module.Register(0);
  // Switches at 0 and the bar up: AP_DISCONNECT on, ATHR_ARM, FD_A, FD_B off.
  EXPECT_EQ(Events(), (std::vector<std::string>{
                          "command-once x737/mcp/AP_DISCONNECT_ON",
                          "command-once x737/mcp/ATHR_ARM_OFF",
                          "command-once x737/mcp/FD_A_OFF",
                          "command-once x737/mcp/FD_B_OFF",
                      }));
  ClearSent();
  module.HandleInput(0, 1);  // VNAV pressed: toggle once
  module.HandleInput(0, 0);  // released: nothing
  module.HandleInput(10, 1);  // no aircraft command
  module.HandleInput(4, 1);
  module.HandleInput(14, 0);
  module.HandleInput(22, 1);  // the bar down disconnects
  module.HandleInput(5, 1);   // CHANGEOVER has one name for all three
  EXPECT_EQ(Events(), (std::vector<std::string>{
                          "command-once x737/mcp/VNAV_TOGGLE",
                          "command-once x737/mcp/ATHR_ARM_ON",
                          "command-once x737/mcp/FD_A_OFF",
                          "command-once x737/mcp/AP_DISCONNECT_OFF",
                          "command-once x737/mcp/CHANGEOVER",
                      }));
  // The bound functions are not run meanwhile.
  module.AssignFunction(0, kApMaster, -1, -1);
  ClearSent();
  module.HandleInput(0, 1);
  EXPECT_EQ(Events(), (std::vector<std::string>{"command-once x737/mcp/VNAV_TOGGLE"}));
}

TEST_F(GFMCPProModuleTest, X737CommandsTheAircraftLacksAreSkipped) {
  sim::SimHost::Current().SetCommandKnown("x737/mcp/VNAV_TOGGLE", true);
  ASSERT_TRUE(LoadOptionalXplmApi());
  ResolveX737McpCommands();
  X737McpDirect = 1;
  GFMCPPro_Module module;
  module.Register(0);
  EXPECT_TRUE(Events().empty());
  module.HandleInput(1, 1);
  module.HandleInput(0, 1);
  EXPECT_EQ(Events(), (std::vector<std::string>{"command-once x737/mcp/VNAV_TOGGLE"}));
}

TEST_F(GFMCPProModuleTest, DebugLinesCarryTheirExactTexts) {
  EnableLog();
  gDebug.DebugRegisterFunction = 1;
  gDebug.DebugGetButtonFunction = 1;
  gDebug.DebugSetDisplayFunction = 1;
  GFMCPPro_Module module;
  SendInput({0x01, 0, 0, 0, 0x00, 0x40, 0x00, 0x03});
  module.Register(0);
  dials_[1] = AvionicFunction{};
  std::strcpy(dials_[1].text, "250");
  module.dialFunctions[0] = &dials_[0];
  module.dialFunctions[1] = &dials_[1];
  module.buttonFunctions[1].state = 1;
  module.SetDisplay();
  Decode(module, Record(0x00400003u, 5, 1));
  Decode(module, Record(0x00400007u));
  const std::vector<std::string> expected = {
      "GFMCPPro_Module::Register - SwitchState = 1100000000000000",
      "GFMCPPro_Module::SetDisplay - Indicators = 0100000000000000",
      "GFMCPPro_Module::SetDisplay -  B freqval = 250",
      "GFMCPPro_Module::GetButton -  Dial A = 0, Dial B = 0, Dial C = 0, Dial D = 0, Dial E = 0, Dial F = 1",
      "GFMCPPro_Module::GetButton -  Dial A = 0, Dial B = 0, Dial C = 0, Dial D = 0, Dial E = 0, Dial F = 0",
      "GFMCPPro_Module::GetButton - BtnState = 1110000000000000",
  };
  EXPECT_EQ(LogLines(), expected);
}

}  // namespace
}  // namespace drav
