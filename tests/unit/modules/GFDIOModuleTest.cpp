#include "modules/GFDIO_Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "LightBoxTestSupport.h"
#include "hid/InputRecords.h"
#include "modules/ModuleContainer.h"

namespace drav {
namespace {

using lightboxtest::kLandingGear;
using lightboxtest::kLandingLightsPath;
using lightboxtest::kLandingLts;
using lightboxtest::LightBoxTest;

constexpr std::int32_t kNavLts = 161;
constexpr const char* kNavLightsPath = "sim/cockpit/electrical/nav_lights_on";

// A record with exactly the given 0-based inputs closed.
GFDIOInputRecord RecordWith(std::initializer_list<int> closedInputs) {
  GFDIOInputRecord record{};
  for (int input : closedInputs) record.states[input / 8] |= static_cast<std::uint8_t>(1u << (input % 8));
  return record;
}

std::int32_t Decode(GFDIO_Module& module, std::initializer_list<int> closedInputs, std::int32_t* value) {
  const GFDIOInputRecord record = RecordWith(closedInputs);
  return module.DecodeInput(&record, value);
}

// ---- decoding -----------------------------------------------------------------------------------

TEST(GFDIODecodeTest, ButtonsAndSwitchesReportClosingAndOpening) {
  GFDIO_Module module;
  module.SetSwitchType(4, kGFDIOSwitch3Way);
  module.SetSwitchType(55, kGFDIOSwitch2Way);
  std::int32_t value = -7;
  EXPECT_EQ(Decode(module, {4}, &value), 4);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, {}, &value), 4);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Decode(module, {55}, &value), 55);  // the last input: bit 7 of the seventh byte
  EXPECT_EQ(value, 1);
  EXPECT_EQ(module.PrevSwitchBank(), std::uint64_t{1} << 55);
  value = -7;
  EXPECT_EQ(Decode(module, {55}, &value), -1);
  EXPECT_EQ(value, 0);  // the decoder clears the value even when it reports nothing
}

TEST(GFDIODecodeTest, SelectorReportsOnlyThePositionThatBecomesActive) {
  GFDIO_Module module;
  module.SetSwitchType(9, kGFDIOSelector);
  module.SetSwitchType(10, kGFDIOSelector);
  std::int32_t value = -7;
  EXPECT_EQ(Decode(module, {9}, &value), 9);
  EXPECT_EQ(value, 0);
  // Turning on to the next position: 9 opens (not reported), 10 closes.
  EXPECT_EQ(Decode(module, {10}, &value), 10);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Decode(module, {}, &value), -1);  // leaving the selector altogether
}

TEST(GFDIODecodeTest, OneReportTakesOverTheWholeBank) {
  GFDIO_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, {2, 6}, &value), 2);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, {2, 6}, &value), -1);  // input 6 changed in the same record: swallowed
  EXPECT_EQ(module.PrevSwitchBank(), 0b0100'0100u);
}

TEST(GFDIODecodeTest, NullRecordAndGetButtonReportNothing) {
  GFDIO_Module module;
  std::int32_t value = 3;
  EXPECT_EQ(module.DecodeInput(nullptr, &value), -1);
  const GFDIOInputRecord record = RecordWith({0});
  EXPECT_EQ(module.GetButton(&record, &value), 0);
  EXPECT_EQ(module.PrevSwitchBank(), 0u);  // GetButton decodes nothing
}

TEST(GFDIODecodeTest, TheContainerDecodesWithTheBoardsOwnDecoder) {
  auto container = MakeModuleVector<GFDIO_Module>();
  container->Resize(1);
  const GFDIOInputRecord record = RecordWith({12});
  std::int32_t value = -1;
  EXPECT_EQ(container->Decode(0, &record, &value), 12);
  EXPECT_EQ(value, 1);
}

TEST(GFDIODecodeTest, CopyKeepsConfigurationAndBank) {
  GFDIO_Module original;
  original.SetSwitchType(3, kGFDIOSelector);
  original.AssignOutputFunction("02", kLandingLts, -1, -1);
  std::int32_t value = 0;
  Decode(original, {3}, &value);
  GFDIO_Module copy(original);
  EXPECT_EQ(copy.SwitchType(3), kGFDIOSelector);
  EXPECT_EQ(copy.PrevSwitchBank(), 0b1000u);
  EXPECT_EQ(GetFunctionId(copy.outputFunctions[1]), kLandingLts);
}

// Reloads from the dialog set switch types on the main thread while records are decoded: TSan
// must stay clean.
TEST(GFDIODecodeTest, ConfiguringWhileDecodingIsSafe) {
  GFDIO_Module module;
  std::atomic<bool> stop{false};
  std::thread input([&] {
    bool closed = false;
    while (!stop.load()) {
      closed = !closed;
      const GFDIOInputRecord record = closed ? RecordWith({7}) : RecordWith({});
      std::int32_t value = 0;
      module.DecodeInput(&record, &value);
    }
  });
  for (int round = 0; round < 2000; ++round) {
    module.SetSwitchType(7, static_cast<std::uint8_t>(round % 4));
    if (round % 100 == 0) module.Register(0);
  }
  stop = true;
  input.join();
  EXPECT_EQ(module.SwitchType(7), 3);
}

// ---- configuration ----------------------------------------------------------------------------------

TEST(GFDIOConfigTest, NumberedKeysBindInputsOffStatesAndOutputs) {
  GFDIO_Module module;
  module.AssignInputFunction("05", kLandingLts, -1, -1);
  module.AssignInputFunction("56", kLandingGear, -1, -1);
  module.AssignOffStateFunction("5", kNavLts, -1, -1);
  module.AssignOutputFunction("32", kLandingLts, -1, -1);
  EXPECT_EQ(module.GetInputFunctionId("05"), kLandingLts);
  EXPECT_EQ(module.GetInputFunctionId("5"), kLandingLts);
  EXPECT_EQ(module.GetInputFunctionId("56"), kLandingGear);
  EXPECT_EQ(GetFunctionId(module.offStateFunctions[4]), kNavLts);
  EXPECT_EQ(GetFunctionId(module.outputFunctions[31]), kLandingLts);
}

TEST(GFDIOConfigTest, NumbersOutsideTheBoardAndOtherTextsDoNothing) {
  GFDIO_Module module;
  for (const char* key : {"00", "57", "x5", "5x", "", "-1", "123456"}) {
    module.AssignInputFunction(key, kLandingLts, -1, -1);
    module.AssignOffStateFunction(key, kLandingLts, -1, -1);
    EXPECT_EQ(module.GetInputFunctionId(key), 0) << key;
  }
  module.AssignInputFunction(nullptr, kLandingLts, -1, -1);
  EXPECT_EQ(module.GetInputFunctionId(nullptr), 0);
  module.AssignOutputFunction("33", kLandingLts, -1, -1);
  for (const SwitchFunction& record : module.inputFunctions) EXPECT_EQ(GetFunctionId(record), 0);
  for (const SwitchFunction& record : module.offStateFunctions) EXPECT_EQ(GetFunctionId(record), 0);
  for (const SwitchFunction& record : module.outputFunctions) EXPECT_EQ(GetFunctionId(record), 0);
  // No control keys on this board.
  module.AssignFunction('1', kLandingLts, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('1'), 0);
}

TEST(GFDIOConfigTest, AnUnknownSwitchTypeIsStoredAsAButton) {
  GFDIO_Module module;
  module.SetSwitchType(0, 9);  // no such type
  module.SetSwitchType(56, kGFDIOSelector);
  module.SetSwitchType(-1, kGFDIOSelector);
  EXPECT_EQ(module.SwitchType(0), kGFDIOButton);
  EXPECT_EQ(module.SwitchType(56), kGFDIOButton);
}

// ---- handling and outputs -------------------------------------------------------------------------

using GFDIOModuleTest = LightBoxTest;

TEST_F(GFDIOModuleTest, ButtonTogglesOnPress) {
  GFDIO_Module module;
  module.AssignInputFunction("01", kLandingLts, -1, -1);
  module.HandleInput(0, 1);
  module.HandleInput(0, 0);
  EXPECT_EQ(Get(kLandingLightsPath), 1);
  module.HandleInput(0, 1);
  EXPECT_EQ(Get(kLandingLightsPath), 0);
}

TEST_F(GFDIOModuleTest, TwoWaySwitchFollowsTheContact) {
  GFDIO_Module module;
  module.SetSwitchType(1, kGFDIOSwitch2Way);
  module.AssignInputFunction("02", kLandingLts, -1, -1);
  module.HandleInput(1, 1);
  module.HandleInput(1, 1);
  EXPECT_EQ(Get(kLandingLightsPath), 1);
  module.HandleInput(1, 0);
  EXPECT_EQ(Get(kLandingLightsPath), 0);
}

TEST_F(GFDIOModuleTest, ThreeWayContactRunsTheOffStateFunctionWhenItOpens) {
  GFDIO_Module module;
  module.SetSwitchType(4, kGFDIOSwitch3Way);
  module.AssignInputFunction("05", kLandingLts, -1, -1);
  module.AssignOffStateFunction("05", kNavLts, -1, -1);
  module.HandleInput(4, 1);
  EXPECT_EQ(Get(kLandingLightsPath), 1);
  EXPECT_EQ(Get(kNavLightsPath), 0);
  module.HandleInput(4, 0);
  EXPECT_EQ(Get(kNavLightsPath), 1);
  EXPECT_EQ(Get(kLandingLightsPath), 1);  // the on-function is left as it is
  module.HandleInput(4, 2);               // any other value switches the off-state function off
  EXPECT_EQ(Get(kNavLightsPath), 0);
}

TEST_F(GFDIOModuleTest, SelectorSetsItsFunctionWithTheInputNumber) {
  GFDIO_Module module;
  module.SetSwitchType(10, kGFDIOSelector);
  module.AssignInputFunction("11", kLandingLts, -1, -1);
  module.HandleInput(10, 0);
  EXPECT_EQ(Get(kLandingLightsPath), 1);
  module.HandleInput(99, 1);  // no such input
  module.HandleInput(-1, 1);
  EXPECT_EQ(Get(kLandingLightsPath), 1);
}

TEST_F(GFDIOModuleTest, HandleInputTraceNamesTypeFunctionControlAndValue) {
  TraceAll();
  GFDIO_Module module;
  module.SetSwitchType(4, kGFDIOSwitch3Way);
  module.AssignInputFunction("05", kLandingLts, -1, -1);
  module.HandleInput(4, 1);
  EXPECT_TRUE(Logged("GFDIO_Module::HandleInput - SwitchType = 2, UnitType = 160, Button = 4, Value = 1"));
}

TEST_F(GFDIOModuleTest, DecodeAndRegisterTraceThirtyTwoBitBanks) {
  TraceAll();
  GFDIO_Module module;
  module.Register(0);  // no device: every input open
  EXPECT_TRUE(Logged("GFDIO_Module::Register - PrevSwitchBank = 00000000000000000000000000000000"));
  std::int32_t value = 0;
  Decode(module, {0, 33}, &value);  // input 33 lies above the traced low 32 bits
  EXPECT_TRUE(Logged("GFDIO_Module::GetButton - PrevSwitchBank = 00000000000000000000000000000000"));
  EXPECT_TRUE(Logged("GFDIO_Module::GetButton - BtnState = 00000000000000000000000000000001"));
}

TEST_F(GFDIOModuleTest, OutputMaskFollowsTheOutputFunctions) {
  TraceAll();
  GFDIO_Module module;
  module.AssignOutputFunction("01", kLandingLts, -1, -1);
  module.AssignOutputFunction("10", kLandingLts, -1, -1);
  module.AssignOutputFunction("17", kLandingLts, -1, -1);
  module.AssignOutputFunction("32", kNavLts, -1, -1);
  Set(kLandingLightsPath, 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastOutputs(), 0x0001'0201u);
  EXPECT_TRUE(Logged("GFDIO_Module::SetDisplay - Indicators = 00000000000000010000001000000001"));
  Set(kNavLightsPath, 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastOutputs(), 0x8001'0201u);
}

TEST_F(GFDIOModuleTest, WithoutPanelPowerAllOutputsAreOff) {
  GFDIO_Module module;
  module.AssignOutputFunction("01", kLandingLts, -1, -1);
  Set(kLandingLightsPath, 1);
  DarkAircraft();
  module.UpdateOutputs();
  EXPECT_EQ(module.LastOutputs(), 0u);
  Set("sim/cockpit/electrical/battery_on", 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastOutputs(), 1u);
  module.ClearDisplay();
  EXPECT_EQ(module.LastOutputs(), 0u);
}

}  // namespace
}  // namespace drav
