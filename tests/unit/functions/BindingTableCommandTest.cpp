// Functions that press the simulator's command buttons or send key strokes instead of writing a
// dataref: which code each sends for each input, and when a held starter is let go.
#include <string>

#include "BindingTableFixture.h"

namespace drav::tabletest {
namespace {

// Press and immediate release of one command button, as one execution sends it.
Events Click(int button) {
  return {"button-press " + std::to_string(button), "button-release " + std::to_string(button)};
}

Events Key(int key) { return {"keystroke " + std::to_string(key)}; }

class CommandFunction : public BindingTableTest {};

TEST_F(CommandFunction, DisengagePressSendsDisconnectAndReleaseSendsButtonZero) {
  SwitchFunction disengage = Build(89);
  ASSERT_EQ(GetFunctionId(disengage), 89);
  EXPECT_EQ(disengage.kind, kSimCommand);
  EXPECT_EQ(disengage.actOnRelease, 1);
  EXPECT_EQ(Run(disengage, kActionToggle), Click(59));
  EXPECT_EQ(GetFunctionState(disengage), 1);
  EXPECT_EQ(Run(disengage, kActionRelease), Click(0));
  EXPECT_EQ(GetFunctionState(disengage), 0);
}

TEST_F(CommandFunction, DisengageOnASwitchSendsTheCodeOfTheNewState) {
  SwitchFunction disengage = Build(89);
  EXPECT_EQ(Run(disengage, kActionOn), Click(59));
  EXPECT_EQ(Run(disengage, kActionOff), Click(0));
}

TEST_F(CommandFunction, TransponderIdentSendsItsKeyWhateverTheState) {
  SwitchFunction ident = Build(153);
  ASSERT_EQ(GetFunctionId(ident), 153);
  EXPECT_EQ(ident.kind, kSimCommand);
  EXPECT_EQ(Run(ident, kActionOn), Key(93)) << "a key stroke and no dataref write";
  EXPECT_EQ(Run(ident, kActionOff), Key(93));
  EXPECT_EQ(Run(ident, kActionToggle), Key(93));
  EXPECT_TRUE(Run(ident, kActionRelease).empty());
}

TEST_F(CommandFunction, TransponderIdentLightFollowsTheIdentDataref) {
  const std::string identPath = "sim/cockpit/radios/transponder_id";
  ASSERT_TRUE(host().SetDatarefValue(identPath, -1, -1, 1));
  SwitchFunction ident = Build(153);
  EXPECT_EQ(GetFunctionState(ident), 1) << "lit at build while the transponder idents";

  ASSERT_TRUE(host().SetDatarefValue(identPath, -1, -1, 0));
  Run(ident, kActionOn);
  EXPECT_EQ(Refreshed(ident), 0) << "the light is the dataref's, not the last command's";
  ASSERT_TRUE(host().SetDatarefValue(identPath, -1, -1, 1));
  EXPECT_EQ(Refreshed(ident), 1);
  ASSERT_TRUE(host().SetDatarefValue(identPath, -1, -1, 2));
  EXPECT_EQ(Refreshed(ident), 0) << "only the on value lights";
}

// ---- starters: held while the state is 1 ---------------------------------------------------------

class StarterFunction : public BindingTableTest, public ::testing::WithParamInterface<int> {};

TEST_P(StarterFunction, HoldsItsStarterButtonWhileOn) {
  const int engine = GetParam();
  const FunctionId id = 252 + engine;  // ENG_1_START is 253
  const int button = engine + 1;       // engine 1's starter is button 2
  SwitchFunction starter = Build(id);
  ASSERT_EQ(GetFunctionId(starter), id);
  EXPECT_TRUE(host().Events().empty());

  EXPECT_EQ(Run(starter, kActionOn), Events{"button-press " + std::to_string(button)});
  EXPECT_EQ(Refreshed(starter), 1) << "the starter's state is its own, not the simulator's";
  EXPECT_EQ(Run(starter, kActionOff), Events{"button-release " + std::to_string(button)});

  EXPECT_EQ(Run(starter, kActionToggle), Events{"button-press " + std::to_string(button)});
  EXPECT_EQ(Run(starter, kActionRelease), Events{"button-release " + std::to_string(button)});
  EXPECT_EQ(GetFunctionState(starter), 0);
}

INSTANTIATE_TEST_SUITE_P(Engines, StarterFunction, ::testing::Range(1, 9));

TEST_F(CommandFunction, AllStartersHoldButtonOne) {
  SwitchFunction starters = Build(261);
  ASSERT_EQ(GetFunctionId(starters), 261);
  EXPECT_EQ(Run(starters, kActionToggle), Events{"button-press 1"});
  EXPECT_EQ(Run(starters, kActionRelease), Events{"button-release 1"});
}

// ---- flaps and trim: one step per execution --------------------------------------------------------

TEST_F(CommandFunction, FlapsSwitchMovesUpWhenOnAndDownWhenOff) {
  SwitchFunction flaps = Build(424);
  ASSERT_EQ(GetFunctionId(flaps), 424);
  EXPECT_EQ(Run(flaps, kActionOn), Click(47));
  EXPECT_EQ(Run(flaps, kActionOff), Click(48));
  EXPECT_TRUE(Run(flaps, kActionRelease).empty());
}

TEST_F(CommandFunction, FlapsExtendAndRetractStepEveryExecution) {
  SwitchFunction extend = Build(425);
  SwitchFunction retract = Build(426);
  ASSERT_EQ(GetFunctionId(extend), 425);
  ASSERT_EQ(GetFunctionId(retract), 426);
  for (std::int32_t action : {kActionOn, kActionOff, kActionToggle, kActionToggle}) {
    SCOPED_TRACE(action);
    EXPECT_EQ(Run(extend, action), Click(48));
    EXPECT_EQ(Run(retract, action), Click(47));
  }
  EXPECT_TRUE(Run(extend, kActionRelease).empty());
  EXPECT_TRUE(Run(retract, kActionRelease).empty());
}

TEST_F(CommandFunction, ElevatorTrimKeysStepNoseUpAndDown) {
  SwitchFunction noseUp = Build(428);
  SwitchFunction noseDown = Build(429);
  ASSERT_EQ(GetFunctionId(noseUp), 428);
  ASSERT_EQ(GetFunctionId(noseDown), 429);
  for (std::int32_t action : {kActionOn, kActionOff, kActionToggle}) {
    SCOPED_TRACE(action);
    EXPECT_EQ(Run(noseUp, action), Key(72));
    EXPECT_EQ(Run(noseDown, action), Key(71));
  }
  EXPECT_TRUE(Run(noseUp, kActionRelease).empty());
}

TEST_F(CommandFunction, CommandFunctionsKeepTheirOwnStateOnRefresh) {
  SwitchFunction flaps = Build(424);
  Run(flaps, kActionOn);
  EXPECT_EQ(Refreshed(flaps), 1);
  Run(flaps, kActionOff);
  EXPECT_EQ(Refreshed(flaps), 0);
}

}  // namespace
}  // namespace drav::tabletest
