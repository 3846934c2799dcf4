#include "modules/GF_Abstract_Module.h"

#include <gtest/gtest.h>

#include <vector>

#include "ModuleTestSupport.h"

namespace drav {
namespace {

// A radio module reduced to the mode mechanics: it records what it was asked to show.
class ModeModule : public GF_Abstract_AvionicDevice {
 public:
  void SetDisplay() override { ++setDisplayCalls; }
  std::int32_t GetButton(const void*, std::int32_t*) override { return -1; }
  void ClearDisplay() override {}
  void HandleInput(std::int32_t, std::int32_t) override {}
  void UpdateOutputs() override {}
  void AssignFunction(std::uint8_t, std::int32_t functionId, std::int32_t, std::int32_t) override {
    SelectFunction(functionId);
  }
  std::int32_t GetAssignedFunction(std::uint8_t) override { return GetCurrentFunction(); }
  std::int32_t GetCurrentFunction() override { return current; }
  void SelectFunction(std::int32_t functionId) override {
    if (StepMode(functionId)) return;
    current = functionId;
    selected.push_back(functionId);
  }

  void UseModes(std::initializer_list<std::pair<int, std::int32_t>> modes) {
    for (const auto& [index, functionId] : modes) modeFunction[index] = functionId;
  }

  std::int32_t current = 0;
  std::vector<std::int32_t> selected;
  int setDisplayCalls = 0;
};

TEST(ModeSteppingTest, NextAndPrevSkipUnusedModesAndWrap) {
  ModeModule radio;
  radio.UseModes({{0, 101}, {2, 103}});  // modes 1 and 3
  radio.modeIndex = 2;

  radio.SelectFunction(kFunctionNext);
  EXPECT_EQ(radio.modeIndex, 0);
  EXPECT_EQ(radio.current, 101);
  EXPECT_EQ(radio.setDisplayCalls, 1);

  radio.SelectFunction(kFunctionPrev);
  EXPECT_EQ(radio.modeIndex, 2);
  EXPECT_EQ(radio.current, 103);
  EXPECT_EQ(radio.selected, (std::vector<std::int32_t>{101, 103}));
  EXPECT_EQ(radio.setDisplayCalls, 2);
}

TEST(ModeSteppingTest, SingleUsedModeSelectsItselfAgain) {
  ModeModule radio;
  radio.UseModes({{4, 7}});
  radio.modeIndex = 4;
  radio.SelectFunction(kFunctionNext);
  radio.SelectFunction(kFunctionPrev);
  EXPECT_EQ(radio.modeIndex, 4);
  EXPECT_EQ(radio.selected, (std::vector<std::int32_t>{7, 7}));
  EXPECT_EQ(radio.setDisplayCalls, 2);
}

TEST(ModeSteppingTest, UnusedCurrentModeDoesNothingButIsStillHandled) {
  ModeModule radio;
  radio.UseModes({{0, 101}, {2, 103}});
  radio.modeIndex = 1;
  EXPECT_TRUE(radio.StepMode(kFunctionNext));
  EXPECT_EQ(radio.modeIndex, 1);
  EXPECT_TRUE(radio.selected.empty());
  EXPECT_EQ(radio.setDisplayCalls, 0);

  radio.modeIndex = 12;  // not a mode at all: no stepping, no out-of-range read
  EXPECT_TRUE(radio.StepMode(kFunctionPrev));
  EXPECT_TRUE(radio.selected.empty());

  EXPECT_FALSE(radio.StepMode(101));  // an ordinary function is the caller's to show
}

TEST(ModeSteppingTest, ModeHoldingNextIsNotSteppedFromAgain) {
  ModeModule radio;
  for (int i = 0; i < kModeCount; ++i) radio.modeFunction[i] = kFunctionNext;
  radio.SelectFunction(kFunctionNext);  // must return, not recurse without end
  EXPECT_EQ(radio.modeIndex, 1);
  EXPECT_TRUE(radio.selected.empty());
  EXPECT_EQ(radio.setDisplayCalls, 1);

  ModeModule mixed;
  mixed.UseModes({{0, kFunctionNext}, {1, 101}});
  mixed.modeIndex = 1;
  mixed.SelectFunction(kFunctionNext);
  EXPECT_EQ(mixed.modeIndex, 0);
  EXPECT_TRUE(mixed.selected.empty());
  mixed.SelectFunction(kFunctionNext);  // stepping works again afterwards
  EXPECT_EQ(mixed.modeIndex, 1);
  EXPECT_EQ(mixed.selected, (std::vector<std::int32_t>{101}));
}

TEST(ChooseCurrentModeTest, WalksForwardFromTheCurrentModeAndWraps) {
  ModeModule radio;
  radio.UseModes({{1, 201}, {6, 206}});

  radio.modeIndex = 3;
  EXPECT_EQ(radio.ChooseCurrentMode(), 206);
  EXPECT_EQ(radio.modeIndex, 6);

  EXPECT_EQ(radio.ChooseCurrentMode(), 206);  // a used current mode stays
  EXPECT_EQ(radio.modeIndex, 6);

  radio.modeIndex = 7;
  EXPECT_EQ(radio.ChooseCurrentMode(), 201);
  EXPECT_EQ(radio.modeIndex, 1);
}

TEST(ChooseCurrentModeTest, NoUsedModeGivesModeZero) {
  ModeModule radio;
  radio.modeIndex = 5;
  EXPECT_EQ(radio.ChooseCurrentMode(), 0);
  EXPECT_EQ(radio.modeIndex, 0);
}

TEST(AbstractModuleTest, RegisterStoresTheUnitThenBlanksIt) {
  drav_modules_test::TestModule<2> module;
  module.Register(3);
  EXPECT_EQ(module.unit, 3);
  EXPECT_EQ(module.clearDisplayCalls, 1);
}

}  // namespace
}  // namespace drav
