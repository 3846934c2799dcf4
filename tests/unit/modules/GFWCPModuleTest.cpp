#include "modules/GFWCP_Module.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "LightBoxTestSupport.h"
#include "hid/InputRecords.h"
#include "modules/CommandTables.h"
#include "base/OptionalXplmApi.h"

namespace drav {
namespace {

using lightboxtest::kLandingLightsPath;
using lightboxtest::kLandingLts;
using lightboxtest::LightBoxTest;

constexpr std::int32_t kWcpMasterCaution = 473;
constexpr std::int32_t kWcpMasterWarning = 474;
constexpr std::int32_t kWcpMasterAccept = 475;
constexpr const char* kMasterCautionPath = "sim/cockpit/warnings/annunciators/master_caution";
constexpr const char* kMasterWarningPath = "sim/cockpit/warnings/annunciators/master_warning";

std::int32_t Decode(GFWCP_Module& module, std::uint8_t switches, std::int32_t* value) {
  const GFWCPInputRecord record{switches};
  return module.GetButton(&record, value);
}

// ---- decoding -----------------------------------------------------------------------------------

TEST(GFWCPDecodeTest, SixButtonsAreReportedOneChangeAtATime) {
  GFWCP_Module module;
  std::int32_t value = -7;
  EXPECT_EQ(Decode(module, 0b0010'0001, &value), 0);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, 0b0010'0001, &value), 5);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, 0b0000'0001, &value), 5);
  EXPECT_EQ(value, 0);
  value = -7;
  EXPECT_EQ(Decode(module, 0b0000'0001, &value), -1);
  EXPECT_EQ(value, -7);
}

TEST(GFWCPDecodeTest, BitsAboveTheSixButtonsAreIgnored) {
  GFWCP_Module module;
  std::int32_t value = -7;
  EXPECT_EQ(Decode(module, 0b1100'0000, &value), -1);
  EXPECT_EQ(module.PrevSwitchVals(), 0);
  EXPECT_EQ(module.GetButton(nullptr, &value), -1);
}

TEST(GFWCPDecodeTest, CopyKeepsDecodingStateBindingsAndColours) {
  GFWCP_Module original;
  original.colours[2] = 6;
  std::int32_t value = 0;
  Decode(original, 0b0000'0101, &value);  // bit 0 taken, bit 2 pending
  GFWCP_Module copy(original);
  EXPECT_EQ(copy.PrevSwitchVals(), 0b0000'0001);
  EXPECT_EQ(copy.colours[2], 6);
  EXPECT_EQ(Decode(copy, 0b0000'0101, &value), 2);
  EXPECT_EQ(original.PrevSwitchVals(), 0b0000'0001);
}

// ---- bindings, commands, lights -------------------------------------------------------------------

class GFWCPModuleTest : public LightBoxTest {
 protected:
  void TearDown() override {
    ClearCommandTables();
    LightBoxTest::TearDown();
  }

  static void ResolveCommands() {
    ASSERT_TRUE(LoadOptionalXplmApi());
    ResolveEngineAndAnnunciatorCommands();
    Host().ClearEvents();
  }
  static long CountEvents(const std::string& text) {
    const auto& events = Host().Events();
    return std::count(events.begin(), events.end(), text);
  }
};

TEST_F(GFWCPModuleTest, KeysOneToSixBindTheButtonsAndOtherKeysAreIgnored) {
  GFWCP_Module module;
  module.AssignFunction('1', kWcpMasterCaution, -1, -1);
  module.AssignFunction('6', kLandingLts, -1, -1);
  module.AssignFunction('0', kLandingLts, -1, -1);
  module.AssignFunction('7', kLandingLts, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('1'), kWcpMasterCaution);
  EXPECT_EQ(module.GetAssignedFunction('6'), kLandingLts);
  EXPECT_EQ(module.GetAssignedFunction('2'), 0);
  EXPECT_EQ(module.GetAssignedFunction('7'), 0);
  module.AssignFunction('1', 0, -1, -1);  // rebinding replaces
  EXPECT_EQ(module.GetAssignedFunction('1'), 0);
}

TEST_F(GFWCPModuleTest, PressingTheAnnunciatorButtonsRunsTheirClearCommandOnce) {
  ResolveCommands();
  GFWCP_Module module;
  module.AssignFunction('1', kWcpMasterWarning, -1, -1);
  module.AssignFunction('2', kWcpMasterCaution, -1, -1);
  module.AssignFunction('3', kWcpMasterAccept, -1, -1);

  module.HandleInput(1, 1);
  module.HandleInput(1, 0);  // releasing does nothing
  EXPECT_EQ(CountEvents("command-once sim/annunciator/clear_master_caution"), 1);
  module.HandleInput(0, 1);
  module.HandleInput(2, 1);
  EXPECT_EQ(CountEvents("command-once sim/annunciator/clear_master_warning"), 1);
  EXPECT_EQ(CountEvents("command-once sim/annunciator/clear_master_accept"), 1);
  EXPECT_EQ(Host().Events().size(), 3u);
}

TEST_F(GFWCPModuleTest, OtherBindingsOnlyDriveTheLights) {
  ResolveCommands();
  GFWCP_Module module;
  module.AssignFunction('4', kLandingLts, -1, -1);
  module.HandleInput(3, 1);
  module.HandleInput(3, 0);
  module.HandleInput(-1, 1);
  module.HandleInput(6, 1);
  EXPECT_EQ(Get(kLandingLightsPath), 0);
  EXPECT_TRUE(Host().Events().empty());
}

TEST_F(GFWCPModuleTest, LitRecordsMakeTheMaskAndItIsTracedOnceWhenItChanges) {
  TraceAll();
  GFWCP_Module module;
  module.AssignFunction('1', kWcpMasterCaution, -1, -1);
  module.AssignFunction('2', kWcpMasterWarning, -1, -1);
  module.AssignFunction('3', kLandingLts, -1, -1);
  Set(kMasterCautionPath, 1);
  Set(kMasterWarningPath, 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b011);
  EXPECT_TRUE(Logged("GFWCP_Module::SetDisplay - Indicators = 1100000000000000"));

  const std::size_t lines = LogLines().size();
  module.UpdateOutputs();  // unchanged: nothing sent, nothing traced
  EXPECT_EQ(LogLines().size(), lines);

  Set(kMasterCautionPath, 0);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b010);
  EXPECT_TRUE(Logged("GFWCP_Module::SetDisplay - Indicators = 0100000000000000"));
}

TEST_F(GFWCPModuleTest, WithoutPanelPowerTheLightsStayDark) {
  GFWCP_Module module;
  module.AssignFunction('1', kWcpMasterCaution, -1, -1);
  Set(kMasterCautionPath, 1);
  DarkAircraft();
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0);
  Set("sim/cockpit/electrical/battery_on", 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b1);
}

// Of all its steps the panel traces only the light mask it sends.
TEST_F(GFWCPModuleTest, OnlySetDisplayWritesATrace) {
  TraceAll();
  GFWCP_Module module;
  module.AssignFunction('1', kWcpMasterCaution, -1, -1);
  module.Register(0);
  std::int32_t value = 0;
  Decode(module, 0b1, &value);
  module.HandleInput(0, 1);
  Set(kMasterCautionPath, 1);
  module.UpdateOutputs();
  std::vector<std::string> traced;
  for (const std::string& line : LogLines()) {
    if (line.find("GFWCP_Module") != std::string::npos) traced.push_back(line);
  }
  EXPECT_EQ(traced, std::vector<std::string>{"GFWCP_Module::SetDisplay - Indicators = 1000000000000000"});
}

}  // namespace
}  // namespace drav
