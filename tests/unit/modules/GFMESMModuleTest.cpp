#include "modules/GFMESM_Module.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LightBoxTestSupport.h"
#include "functions/FunctionCatalogue.h"
#include "hid/InputRecords.h"
#include "modules/CommandTables.h"
#include "base/OptionalXplmApi.h"

namespace drav {
namespace {

using lightboxtest::LightBoxTest;

constexpr const char* kMixturePath = "sim/flightmodel/engine/ENGN_mixt";

struct Event {
  std::int32_t control;
  std::int32_t value;
  bool operator==(const Event&) const = default;
};

Event Step(std::uint8_t from, std::uint8_t to, std::uint8_t* stored) {
  *stored = from;
  std::int32_t value = -99;
  const std::int32_t control = GFMESM_Module::DetectStartSelectorStep(to, stored, 0, &value);
  return {control, control < 0 ? -99 : value};
}

TEST(GFMESMStepTest, SingleStepsTowardsAndAwayFromStart) {
  std::uint8_t stored = 0;
  EXPECT_EQ(Step(2, 1, &stored), (Event{0, 1}));
  EXPECT_EQ(stored, 1);
  EXPECT_EQ(Step(1, 2, &stored), (Event{0, 0}));
  EXPECT_EQ(Step(2, 3, &stored), (Event{1, 1}));
  EXPECT_EQ(Step(3, 2, &stored), (Event{1, 0}));
  EXPECT_EQ(Step(3, 4, &stored), (Event{2, 1}));
  EXPECT_EQ(Step(4, 3, &stored), (Event{2, 0}));
  EXPECT_EQ(stored, 3);
}

TEST(GFMESMStepTest, JumpsAndUnknownPositionsAreNeitherReportedNorStored) {
  std::uint8_t stored = 0;
  EXPECT_EQ(Step(1, 3, &stored), (Event{-1, -99}));
  EXPECT_EQ(stored, 1);
  EXPECT_EQ(Step(4, 1, &stored), (Event{-1, -99}));
  EXPECT_EQ(Step(0, 1, &stored), (Event{-1, -99}));
  EXPECT_EQ(stored, 0);
  EXPECT_EQ(Step(4, 5, &stored), (Event{-1, -99}));
  EXPECT_EQ(Step(2, 2, &stored), (Event{-1, -99}));
}

class GFMESMModuleTest : public LightBoxTest {
 protected:
  void SetUp() override {
    LightBoxTest::SetUp();
    ASSERT_TRUE(LoadOptionalXplmApi());
    ResolveEngineAndAnnunciatorCommands();
    Host().ClearEvents();
  }
  void TearDown() override {
    ClearCommandTables();
    LightBoxTest::TearDown();
  }
  static std::vector<std::string> Commands() {
    std::vector<std::string> commands;
    for (const std::string& event : Host().Events()) {
      if (event.rfind("command-", 0) == 0) commands.push_back(event);
    }
    return commands;
  }
  static Event Decode(GFMESM_Module& module, GFMESMInputRecord record) {
    std::int32_t value = -99;
    const std::int32_t control = module.GetButton(&record, &value);
    return {control, control < 0 ? -99 : value};
  }
};

TEST_F(GFMESMModuleTest, EngineOneToStartHoldsTheStarterAndSetsItsMixture) {
  Set(kMixturePath, 0.25);
  GFMESM_Module module;
  module.Register(0);
  ASSERT_NE(module.mixture, nullptr);
  Host().ClearEvents();
  module.HandleInput(0, 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{"command-once sim/igniters/igniter_contin_on_1",
                                                  "command-begin sim/starters/engage_starter_1"}));
  EXPECT_EQ(Host().GetDatarefValue(kMixturePath, 0).value_or(-1), 1.0);
  EXPECT_EQ(Host().GetDatarefValue(kMixturePath, 1).value_or(-1), 0.25);

  Host().ClearEvents();
  module.HandleInput(0, 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{"command-once sim/igniters/igniter_contin_off_1",
                                                  "command-end sim/starters/engage_starter_1"}));
}

TEST_F(GFMESMModuleTest, EngineTwoUsesItsOwnCommandsAndMixtureElement) {
  Set(kMixturePath, 0.25);
  GFMESM_Module module;
  module.Register(0);
  Host().ClearEvents();
  module.HandleInput(7, 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{"command-once sim/igniters/igniter_contin_on_2",
                                                  "command-begin sim/starters/engage_starter_2"}));
  EXPECT_EQ(Host().GetDatarefValue(kMixturePath, 0).value_or(-1), 0.25);
  EXPECT_EQ(Host().GetDatarefValue(kMixturePath, 1).value_or(-1), 1.0);
  Host().ClearEvents();
  module.HandleInput(8, 0);
  module.HandleInput(9, 0);
  module.HandleInput(9, 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{"command-once sim/igniters/igniter_contin_off_2",
                                                  "command-once sim/igniters/igniter_contin_on_2",
                                                  "command-once sim/igniters/igniter_contin_on_2"}));
}

TEST_F(GFMESMModuleTest, MagnetoPositionsRunBothEnginesCommandsOnce) {
  GFMESM_Module module;
  module.Register(0);
  Host().ClearEvents();
  module.HandleInput(12, 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{"command-once sim/magnetos/magnetos_both_1",
                                                  "command-once sim/magnetos/magnetos_both_2"}));
  Host().ClearEvents();
  module.HandleInput(11, 1);
  module.HandleInput(13, 1);
  module.HandleInput(13, 0);  // nothing for value 0
  module.HandleInput(10, 1);  // nothing for controls that are not positions
  module.HandleInput(14, 1);
  module.HandleInput(3, 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{
                            "command-once sim/magnetos/magnetos_right_1", "command-once sim/magnetos/magnetos_right_2",
                            "command-once sim/magnetos/magnetos_left_1", "command-once sim/magnetos/magnetos_left_2"}));
}

TEST_F(GFMESMModuleTest, UnknownCommandsAndMissingMixtureAreSkipped) {
  ClearCommandTables();
  Host().SetCommandKnown("sim/starters/engage_starter_1", false);
  ResolveEngineAndAnnunciatorCommands();
  Host().RemoveDataref(kMixturePath);
  GFMESM_Module module;
  module.Register(0);
  EXPECT_EQ(module.mixture, nullptr);
  Host().ClearEvents();
  module.HandleInput(0, 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{"command-once sim/igniters/igniter_contin_on_1"}));
}

TEST_F(GFMESMModuleTest, MagnetoChangesComeBeforeEngineTwoAndAreAlwaysStored) {
  GFMESM_Module module;
  module.Register(0);  // no unit: every selector reads 0
  EXPECT_EQ(Decode(module, {{0, 2, 0}}), (Event{12, 1}));
  EXPECT_EQ(Decode(module, {{0, 2, 0}}), (Event{-1, -99}));
  EXPECT_EQ(Decode(module, {{0, 3, 0}}), (Event{13, 1}));
  EXPECT_EQ(Decode(module, {{0, 1, 0}}), (Event{11, 1}));
  // The start selectors never left an unknown position by a single step.
  EXPECT_EQ(Decode(module, {{1, 1, 1}}), (Event{-1, -99}));
  EXPECT_EQ(module.State().values[0], 0);
}

TEST_F(GFMESMModuleTest, BindingsAreKeptButNotUsed) {
  GFMESM_Module module;
  module.AssignFunction(0, FindFunctionId("ENG_1_START"), -1, -1);
  module.AssignFunction(11, FindFunctionId("ENG_1_START"), -1, -1);
  EXPECT_EQ(module.GetAssignedFunction(0), FindFunctionId("ENG_1_START"));
  EXPECT_EQ(module.GetAssignedFunction(11), 0);
  GFMESM_Module copy(module);
  EXPECT_EQ(copy.GetAssignedFunction(0), FindFunctionId("ENG_1_START"));
}

TEST_F(GFMESMModuleTest, DebugLinesHaveTheirExactTexts) {
  TraceAll();
  GFMESM_Module module;
  module.Register(0);
  Decode(module, {{1, 2, 3}});
  EXPECT_TRUE(Logged("GFMESM_Module::Register - Selector1 = 0000000000000000"));
  EXPECT_TRUE(Logged("GFMESM_Module::Register - Selector2 = 0000000000000000"));
  EXPECT_FALSE(Logged("GFMESM_Module::Register - Selector3 = 0000000000000000"));
  EXPECT_TRUE(Logged("GFMESM_Module::GetButton - Selector1 = 1000000000000000"));
  EXPECT_TRUE(Logged("GFMESM_Module::GetButton - Selector2 = 0100000000000000"));
  EXPECT_TRUE(Logged("GFMESM_Module::GetButton - Selector3 = 1100000000000000"));
}

}  // namespace
}  // namespace drav
