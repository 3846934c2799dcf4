// The GF-166 module against a virtual unit and a fresh simulator: decoding of its input records,
// the dual radio (tuning the standby half, swapping), what its displays and lights receive, mode
// stepping, the button bindings and its debug lines.
#include "modules/GF166_Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "../hid/VirtualPanels.h"
#include "dravsim/PanelOutputs.h"
#include "functions/RadioTargets.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "host/SimHost.h"
#include "modules/ModuleManager.h"
#include "modules/ModulePanelDirectory.h"
#include "modules/PanelPower.h"
#include "../TestFolders.h"

namespace drav {
namespace {

constexpr FunctionId kAdf1Dual = 3;
constexpr FunctionId kCom1Standby = 10;
constexpr FunctionId kCom1Dual = 11;
constexpr FunctionId kCom2Dual = 14;
constexpr FunctionId kNav1Dual = 20;
constexpr FunctionId kXpdr = 24;
constexpr FunctionId kAltimeter = 68;

constexpr const char* kCom1 = "sim/cockpit/radios/com1_freq_hz";
constexpr const char* kCom1Stdby = "sim/cockpit/radios/com1_stdby_freq_hz";
constexpr const char* kAvionicsOn = "sim/cockpit/electrical/avionics_on";
constexpr const char* kTransponder = "sim/cockpit/radios/transponder_code";

GF166InputRecord Record(std::int16_t dial1, std::int16_t dial2, std::uint8_t buttons) {
  GF166InputRecord record{};
  record.encoder1 = dial1;
  record.encoder2 = dial2;
  record.buttons = buttons;
  return record;
}

struct Decoded {
  std::int32_t control;
  std::int32_t value;
  bool operator==(const Decoded&) const = default;
};

Decoded Decode(GF166_Module& module, const GF166InputRecord& record) {
  std::int32_t value = -99;  // shows whether GetButton wrote it
  const std::int32_t control = module.GetButton(&record, &value);
  return {control, value};
}

// Decoding needs neither a simulator nor a device.
TEST(GF166DecodeTest, EncodersComeFirstAndOneChangePerRecord) {
  GF166_Module module;
  EXPECT_EQ(Decode(module, Record(0, 0, 0)), (Decoded{-1, -99}));
  // Dial 1 moved and the swap button went down in the same record: the dial now, the press next.
  EXPECT_EQ(Decode(module, Record(2, 0, 0x01)), (Decoded{GF166_Module::kControlDial1, 2}));
  EXPECT_EQ(Decode(module, Record(0, 0, 0x01)), (Decoded{GF166_Module::kControlSwap, 1}));
  EXPECT_EQ(Decode(module, Record(0, 0, 0x01)), (Decoded{-1, -99}));
  // Both rings moved: Dial 1 wins, Dial 2's count of that record is not reported.
  EXPECT_EQ(Decode(module, Record(-1, 3, 0x01)), (Decoded{GF166_Module::kControlDial1, -1}));
  EXPECT_EQ(Decode(module, Record(0, -3, 0x01)), (Decoded{GF166_Module::kControlDial2, -3}));
}

TEST(GF166DecodeTest, ButtonsReportLowestChangeFirstAndIgnoreOtherBits) {
  GF166_Module module;
  // L and R pressed together, swap released: swap was never down, so L first, then R.
  EXPECT_EQ(Decode(module, Record(0, 0, 0x06)), (Decoded{GF166_Module::kControlButtonL, 1}));
  EXPECT_EQ(Decode(module, Record(0, 0, 0x06)), (Decoded{GF166_Module::kControlButtonR, 1}));
  EXPECT_EQ(Decode(module, Record(0, 0, 0x04)), (Decoded{GF166_Module::kControlButtonL, 0}));
  // Bits above the three buttons mean nothing.
  EXPECT_EQ(Decode(module, Record(0, 0, 0xFC)), (Decoded{-1, -99}));
  EXPECT_EQ(module.GetButton(nullptr, nullptr), -1);
}

TEST(GF166DecodeTest, CopiesKeepTheirOwnDecodingState) {
  GF166_Module original;
  EXPECT_EQ(Decode(original, Record(0, 0, 0x02)).control, GF166_Module::kControlButtonL);
  GF166_Module copy = original;  // containers grow this way
  EXPECT_EQ(copy.PrevSwitchVals(), 0x02);
  EXPECT_EQ(Decode(copy, Record(0, 0, 0x00)), (Decoded{GF166_Module::kControlButtonL, 0}));
  EXPECT_EQ(original.PrevSwitchVals(), 0x02);
}

// Register resets the decoding state on the main thread while the input thread decodes; no unit is
// plugged here, so the device read fails and the state becomes 0. Run under TSan to be useful.
TEST(GF166DecodeTest, RegisterWhileDecodingIsSafe) {
  GF166_Module module;
  std::atomic<bool> stop{false};
  std::thread input([&] {
    std::uint8_t buttons = 0;
    while (!stop.load()) {
      buttons ^= 0x07;
      const GF166InputRecord record = Record(0, 0, buttons);
      std::int32_t value = 0;
      while (module.GetButton(&record, &value) != -1) {
      }
    }
  });
  for (int i = 0; i < 200; ++i) module.Register(0);
  stop = true;
  input.join();
  module.Register(0);
  EXPECT_EQ(module.PrevSwitchVals(), 0);
}

// ---- with a simulator and a virtual GF-166 ------------------------------------------------------

class GF166ModuleTest : public testing::VirtualPanelsTest {
 protected:
  void SetUp() override {
    VirtualPanelsTest::SetUp();
    root_ = drav_test::FreshTestFolder("gf166");
    sim::SimHost::Current().Reset(root_);
    ResetPanelPowerLookups();
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
    path_ = Plug(kModuleGF166, "/dev/v/gf166");
    StartLayer();
    ClearSent();
  }

  void TearDown() override {
    VirtualPanelsTest::TearDown();
    SetPanelDirectory(nullptr);
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
    ResetPanelPowerLookups();
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  void ClearSent() {
    ASSERT_TRUE(OutputIdle());
    Panels().ClearSent();
  }

  std::vector<VirtualSentReport> Sent() {
    EXPECT_TRUE(OutputIdle());
    return Panels().Sent(path_);
  }

  // What the unit shows now (the last report of each kind since the last ClearSent).
  dravsim::PanelOutputView View() { return dravsim::ViewOutputs("GF-166", Sent()); }
  std::string Display(int display) {
    const auto view = View();
    const auto& shown = view.displays.at(static_cast<std::size_t>(display - 1));
    return shown.value_or("<nothing>");
  }

  static void Set(const char* path, double value) {
    ASSERT_TRUE(sim::SimHost::Current().SetDatarefValue(path, -1, -1, value)) << path;
  }
  static double Get(const char* path) { return sim::SimHost::Current().GetDatarefValue(path).value_or(-1); }

  void EnableLog() {
    gDebug.DebugEnabled = 1;
    InitLogPath();
  }
  std::vector<std::string> LogLines() const {
    std::ifstream file(sim::SimHost::Current().PluginFolder() / "DRAVLog.txt", std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  // A registered unit showing functionId, with nothing sent yet afterwards.
  void Show(GF166_Module& module, FunctionId functionId) {
    module.Register(0);
    module.SelectFunction(functionId);
    module.SetDisplay();
  }

  std::string path_;
  std::filesystem::path root_;
};

TEST_F(GF166ModuleTest, DualRadioShowsActiveLeftStandbyRightAndTunesTheStandby) {
  GF166_Module module;
  Show(module, kCom1Dual);
  EXPECT_EQ(module.GetCurrentFunction(), kCom1Dual);
  ASSERT_NE(module.secondary, nullptr);
  EXPECT_EQ(GetAvionicFunctionId(*module.secondary), kCom1Standby);
  EXPECT_EQ(Display(1), "C.118.50");
  EXPECT_EQ(Display(2), " 121.50");

  module.HandleInput(GF166_Module::kControlDial1, 1);  // outer ring: MHz
  module.HandleInput(GF166_Module::kControlDial2, 1);  // inner ring: 25 kHz
  EXPECT_EQ(Get(kCom1Stdby), 12252);
  EXPECT_EQ(Get(kCom1), 11850);  // the active frequency is not touched

  ClearSent();
  module.UpdateOutputs();
  EXPECT_EQ(Display(2), " 122.52");
  // The left text did not change, so it is not sent again.
  EXPECT_EQ(Display(1), "<nothing>");
}

TEST_F(GF166ModuleTest, SwapExchangesActiveAndStandbyOnPressOnly) {
  GF166_Module module;
  Show(module, kCom1Dual);
  module.HandleInput(GF166_Module::kControlSwap, 0);  // release
  EXPECT_EQ(Get(kCom1), 11850);
  module.HandleInput(GF166_Module::kControlSwap, 1);
  EXPECT_EQ(Get(kCom1), 12150);
  EXPECT_EQ(Get(kCom1Stdby), 11850);

  ClearSent();
  module.UpdateOutputs();
  EXPECT_EQ(Display(1), "C.121.50");
  EXPECT_EQ(Display(2), " 118.50");
}

TEST_F(GF166ModuleTest, LeftPrefixMarksEachRadio) {
  GF166_Module module;
  Show(module, kCom2Dual);
  EXPECT_EQ(Display(1), "C124.75");
  Show(module, kNav1Dual);
  EXPECT_EQ(Display(1), "M.110.30");
  EXPECT_EQ(Display(2), " 108.50");
  Show(module, kAdf1Dual);
  EXPECT_EQ(Display(1), "A. 362 ");  // the display is filled from the left
}

TEST_F(GF166ModuleTest, SingleFunctionShowsTagAndValueAndTheDialTunesIt) {
  GF166_Module module;
  Show(module, kXpdr);
  EXPECT_EQ(module.secondary, nullptr);
  EXPECT_EQ(Display(1), "XPD-  ");  // a seven-segment R reads as a minus
  EXPECT_EQ(Display(2), " 1200 ");  // the transponder code is set off by a space ...
  EXPECT_STREQ(module.primary->text, "1200");  // ... that only the display gets

  module.HandleInput(GF166_Module::kControlDial2, 1);  // low octal pair
  EXPECT_EQ(Get(kTransponder), 1201);
  module.HandleInput(GF166_Module::kControlSwap, 1);  // no standby half: nothing to swap
  EXPECT_EQ(Get(kTransponder), 1201);

  // The tag is sent on every call, the value only when it changed.
  ClearSent();
  module.SetDisplay();
  module.SetDisplay();
  const auto view = View();
  EXPECT_EQ(view.displays.at(0), "XPD-  ");
  EXPECT_EQ(view.displays.at(1), " 1201 ");
  int rightReports = 0;
  for (const VirtualSentReport& report : Sent()) rightReports += report.bytes.at(0) == 5 ? 1 : 0;
  EXPECT_EQ(rightReports, 1);
}

TEST_F(GF166ModuleTest, WithoutAvionicsPowerBothDisplaysAndLightsGoBlankOnEveryCall) {
  GF166_Module module;
  Show(module, kCom1Dual);
  Set(kAvionicsOn, 0);
  for (int call = 0; call < 2; ++call) {
    ClearSent();
    module.SetDisplay();
    const auto view = View();
    EXPECT_EQ(view.displays.at(0), "      ");
    EXPECT_EQ(view.displays.at(1), "      ");
    EXPECT_EQ(view.leds, 0u);
  }
  EXPECT_STREQ(module.lastLeft, "");
  EXPECT_STREQ(module.lastRight, "");

  // Power back: everything is sent again.
  Set(kAvionicsOn, 1);
  ClearSent();
  module.SetDisplay();
  EXPECT_EQ(Display(1), "C.118.50");
  EXPECT_EQ(Display(2), " 121.50");
}

TEST_F(GF166ModuleTest, NothingSelectedIgnoresInputAndSendsNothing) {
  GF166_Module module;
  module.Register(0);
  module.SelectFunction(kNada);
  EXPECT_EQ(module.primary, nullptr);
  EXPECT_EQ(module.GetCurrentFunction(), kNada);
  ClearSent();
  module.HandleInput(GF166_Module::kControlDial1, 3);
  module.HandleInput(GF166_Module::kControlSwap, 1);
  module.UpdateOutputs();
  module.SetDisplay();
  EXPECT_TRUE(Sent().empty());
}

TEST_F(GF166ModuleTest, ButtonBindingsLightTheirLedsAndAnswerByKey) {
  GF166_Module module;
  module.Register(0);
  module.AssignFunction('R', kAltimeter, -1, -1);  // an avionic id on a button: a mode select
  module.AssignFunction('Z', kXpdr, -1, -1);       // no such control
  EXPECT_EQ(module.GetAssignedFunction('R'), kAltimeter);
  EXPECT_EQ(module.GetAssignedFunction('L'), kNada);
  EXPECT_EQ(module.GetAssignedFunction('Z'), kNada);
  // -1 -1 aims the selection at this same unit and model.
  EXPECT_EQ(module.buttonFunctions[2].kind, kModuleSelect);
  EXPECT_EQ(module.buttonFunctions[2].targetUnit, 0);
  EXPECT_EQ(module.buttonFunctions[2].targetModuleKind, kRadioGF166);
  module.AssignFunction('L', kCom1Dual, 3, kRadioGF46);
  EXPECT_EQ(module.buttonFunctions[1].targetUnit, 3);
  EXPECT_EQ(module.buttonFunctions[1].targetModuleKind, kRadioGF46);

  module.AssignFunction('M', kXpdr, 0, 0);
  EXPECT_EQ(module.GetAssignedFunction('M'), kXpdr);
  module.buttonFunctions[2].state = 1;  // as a refresh would find it while ALTIMETER is current
  ClearSent();
  module.SetDisplay();
  EXPECT_EQ(View().leds, 0x04u);
  ClearSent();
  module.SetDisplay();  // unchanged mask: not resent
  EXPECT_FALSE(View().leds.has_value());
}

// A button bound to a radio function selects it on its own unit when pressed (through the module
// manager, as in the plug-in) and lights while that function is current.
TEST_F(GF166ModuleTest, ButtonSelectsOnItsOwnUnit) {
  static const ModuleModel kModels[] = {{kModuleGF166, &GFDev_GF166_Count, &MakeModuleVector<GF166_Module>}};
  ModuleManager manager{kModels};
  manager.CreateModules();
  const ModulePanelDirectory panels{manager};
  SetPanelDirectory(&panels);
  GF_Abstract_Module* found = nullptr;
  ASSERT_EQ(manager.FindModule(kModuleGF166, 0, &found), 1);
  auto& module = *dynamic_cast<GF166_Module*>(found);
  Show(module, kXpdr);
  module.AssignFunction('L', kCom1Dual, 0, kRadioGF166);

  ClearSent();
  module.HandleInput(GF166_Module::kControlButtonL, 1);
  module.HandleInput(GF166_Module::kControlButtonL, 0);
  EXPECT_EQ(module.GetCurrentFunction(), kCom1Dual);
  module.UpdateOutputs();
  EXPECT_EQ(View().leds, 0x02u);
  EXPECT_EQ(Display(2), " 121.50");
}

TEST_F(GF166ModuleTest, NextAndPrevStepThroughUsedModesAndFollowTheStandbyHalf) {
  GF166_Module module;
  module.Register(0);
  module.modeFunction[0] = kXpdr;
  module.modeFunction[3] = kCom1Dual;
  module.modeIndex = 0;
  module.SelectFunction(kXpdr);

  module.SelectFunction(kFunctionNext);
  EXPECT_EQ(module.modeIndex, 3);
  EXPECT_EQ(module.GetCurrentFunction(), kCom1Dual);
  ASSERT_NE(module.secondary, nullptr);
  EXPECT_EQ(GetAvionicFunctionId(*module.secondary), kCom1Standby);

  module.SelectFunction(kFunctionNext);  // wraps to mode 1
  EXPECT_EQ(module.modeIndex, 0);
  EXPECT_EQ(module.GetCurrentFunction(), kXpdr);
  EXPECT_EQ(module.secondary, nullptr);

  module.SelectFunction(kFunctionPrev);  // back past 8, 7 ... to mode 4
  EXPECT_EQ(module.modeIndex, 3);
  EXPECT_EQ(module.GetCurrentFunction(), kCom1Dual);
}

// With the current mode unused the step object itself stays current; a dual display then sends
// nothing at all, not even the lights.
TEST_F(GF166ModuleTest, StepFromAnUnusedModeLeavesTheStepObjectShown) {
  GF166_Module module;
  Show(module, kCom1Dual);
  AvionicFunction* standby = module.secondary;
  module.modeIndex = 2;  // all modes unused
  module.buttonFunctions[1].state = 1;
  ClearSent();
  module.SelectFunction(kFunctionNext);
  EXPECT_EQ(module.modeIndex, 2);
  ASSERT_NE(module.primary, nullptr);
  EXPECT_STREQ(module.primary->tag, "NEXT");
  EXPECT_EQ(module.secondary, standby);
  module.SetDisplay();
  EXPECT_TRUE(Sent().empty());
}

TEST_F(GF166ModuleTest, RegisterTakesTheHeldButtonsFromTheUnit) {
  SendInputAndWait(kModuleGF166, 0, path_, {0, 0, 0, 0x05});
  GF166_Module module;
  module.Register(0);
  EXPECT_EQ(module.PrevSwitchVals(), 0x05);
  // The held buttons are not news; letting swap go is.
  EXPECT_EQ(Decode(module, Record(0, 0, 0x05)), (Decoded{-1, -99}));
  EXPECT_EQ(Decode(module, Record(0, 0, 0x04)), (Decoded{GF166_Module::kControlSwap, 0}));
}

TEST_F(GF166ModuleTest, EncoderTypeIsSentOnlyForZeroToTwo) {
  struct Case {
    int setting;
    bool sent;
  };
  for (const Case& c : {Case{0, true}, Case{2, true}, Case{3, false}, Case{-1, false}}) {
    gSettings.RMK166EncoderType = c.setting;
    ClearSent();
    GF166_Module module;
    module.Register(0);
    std::vector<std::vector<std::uint8_t>> typeReports;
    for (const VirtualSentReport& report : Sent()) {
      if (report.kind == VirtualSentReport::Kind::Feature && report.bytes.at(0) == 9) {
        typeReports.push_back(report.bytes);
      }
    }
    if (c.sent) {
      const auto byte = static_cast<std::uint8_t>((c.setting << 2) | c.setting);
      ASSERT_EQ(typeReports.size(), 1u) << c.setting;
      EXPECT_EQ(typeReports[0].at(1), byte) << c.setting;
    } else {
      EXPECT_TRUE(typeReports.empty()) << c.setting;
    }
  }
}

TEST_F(GF166ModuleTest, DebugLinesCarryTheirTextsAndFollowTheirSwitches) {
  EnableLog();
  GF166_Module module;
  Show(module, kCom1Dual);                    // switches off: nothing beyond the start
  Decode(module, Record(1, 0, 0));
  EXPECT_TRUE(LogLines().empty());

  gDebug.DebugRegisterFunction = 1;
  gDebug.DebugGetButtonFunction = 1;
  gDebug.DebugSetDisplayFunction = 1;
  module.Register(0);
  module.buttonFunctions[2].state = 1;
  module.SetDisplay();
  Decode(module, Record(-2, 1, 0));  // a dial moved: no button dump
  Decode(module, Record(0, 0, 0x02));
  const std::vector<std::string> expected = {
      "GF166_Module::Register - PrevSwitchVals = 0000000000000000",
      "GF166_Module::SetDisplay -  Left Display = C.118.50",
      "GF166_Module::SetDisplay -  Right Display =  121.50",
      "GF166_Module::SetDisplay - Indicators = 0010000000000000",
      "GF166_Module::GetButton -  Dial 1 = -2, Dial 2 = 1",
      "GF166_Module::GetButton -  Dial 1 = 0, Dial 2 = 0",
      "GF166_Module::GetButton - BtnState = 0100000000000000",
  };
  EXPECT_EQ(LogLines(), expected);
}

}  // namespace
}  // namespace drav
