// Functions that select what a radio module shows: found through a module manager of the test's
// own, with fake radio modules that record what the function layer asks of them.
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "FunctionTestSupport.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleManager.h"
#include "modules/ModulePanelDirectory.h"

namespace drav::functiontest {
namespace {

template <std::uint32_t Type>
class FakeRadio : public GF_Abstract_AvionicDevice {
 public:
  void SetDisplay() override { ++setDisplayCalls; }
  std::int32_t GetButton(const void*, std::int32_t*) override { return -1; }
  void ClearDisplay() override {}
  void HandleInput(std::int32_t, std::int32_t) override {}
  void UpdateOutputs() override {}
  void AssignFunction(std::uint8_t, std::int32_t, std::int32_t, std::int32_t) override {}
  std::int32_t GetAssignedFunction(std::uint8_t) override { return current; }
  std::int32_t GetCurrentFunction() override { return current; }
  void SelectFunction(std::int32_t functionId) override {
    selected.push_back(functionId);
    current = functionId;
  }

  std::int32_t current = 0;
  std::vector<std::int32_t> selected;
  int setDisplayCalls = 0;
};

using Gf45 = FakeRadio<kModuleGF45>;
using Gf46 = FakeRadio<kModuleGF46>;
using Gf166 = FakeRadio<kModuleGF166>;

// A module that is not a radio, put under a radio's type by a broken model table.
class NotARadio : public GF_Abstract_Module {
 public:
  void SetDisplay() override {}
  std::int32_t GetButton(const void*, std::int32_t*) override { return -1; }
  void ClearDisplay() override {}
  void HandleInput(std::int32_t, std::int32_t) override {}
  void UpdateOutputs() override {}
  void AssignFunction(std::uint8_t, std::int32_t, std::int32_t, std::int32_t) override {}
  std::int32_t GetAssignedFunction(std::uint8_t) override { return 0; }
};

std::int32_t OneUnit() { return 1; }
std::int32_t TwoUnits() { return 2; }

const ModelDescriptor kGf45Model{&kPanelModelRows[kModuleGF45], &OneUnit, &MakeModuleVector<Gf45>, nullptr};
const ModelDescriptor kGf166Model{&kPanelModelRows[kModuleGF166], &OneUnit, &MakeModuleVector<Gf166>, nullptr};
const ModelDescriptor kGf46Model{&kPanelModelRows[kModuleGF46], &TwoUnits, &MakeModuleVector<Gf46>, nullptr};
const ModelDescriptor* const kRadioModels[] = {&kGf45Model, &kGf166Model, &kGf46Model};

const ModelDescriptor kNotARadioModel{&kPanelModelRows[kModuleGF46], &OneUnit, &MakeModuleVector<NotARadio>,
                                      nullptr};
const ModelDescriptor* const kBrokenModels[] = {&kNotARadioModel};

constexpr FunctionId kCom1Active = 9;
constexpr FunctionId kCom1Standby = 10;
constexpr FunctionId kCom1Dual = 11;
constexpr FunctionId kCom2Active = 12;
constexpr FunctionId kCom2Standby = 13;
constexpr FunctionId kCom2Dual = 14;
constexpr FunctionId kNav1Standby = 19;
constexpr FunctionId kNav1Dual = 20;
constexpr FunctionId kNav2Active = 21;
constexpr FunctionId kNav2Standby = 22;
constexpr FunctionId kNav2Dual = 23;
constexpr FunctionId kAdf1Active = 1;

class ModuleSelect : public FunctionTest {
 protected:
  void SetUp() override {
    FunctionTest::SetUp();
    manager.CreateModules();
    CurrentFunctionState().panelDirectory = &panels;
  }

  template <class T>
  T& Radio(std::uint32_t type, std::uint32_t unit = 0) {
    GF_Abstract_Module* module = nullptr;
    EXPECT_EQ(manager.FindModule(type, unit, &module), 1);
    return *static_cast<T*>(module);
  }
  Gf45& gf45() { return Radio<Gf45>(kModuleGF45); }
  Gf166& gf166() { return Radio<Gf166>(kModuleGF166); }
  Gf46& gf46(std::uint32_t unit) { return Radio<Gf46>(kModuleGF46, unit); }

  ModuleManager manager{kRadioModels};
  ModulePanelDirectory panels{manager};
};

// ---- selecting -------------------------------------------------------------------------------

// ---- the radio toggles -------------------------------------------------------------------------

TEST_F(ModuleSelect, ComToggleSelectsTheSameFunctionOnTheOtherRadio) {
  SwitchFunction toggle = Build(kCom1Com2Toggle, 0, kRadioGF45);
  gf45().current = kCom1Standby;
  ExecuteFunction(toggle, kActionToggle, 0, 0);
  EXPECT_EQ(gf45().selected, std::vector<std::int32_t>{kCom2Standby});
  ExecuteFunction(toggle, kActionToggle, 0, 0);
  EXPECT_EQ(gf45().selected, (std::vector<std::int32_t>{kCom2Standby, kCom1Standby}));
  gf45().current = kCom2Active;
  ExecuteFunction(toggle, kActionToggle, 0, 0);
  EXPECT_EQ(gf45().selected.back(), kCom1Active);
}

TEST_F(ModuleSelect, AToggleWithoutCounterpartSelectsNothingButStillRedraws) {
  SwitchFunction toggle = Build(kCom1Com2Toggle, 0, kRadioGF45);
  gf45().current = kAdf1Active;
  ExecuteFunction(toggle, kActionToggle, 0, 0);
  EXPECT_TRUE(gf45().selected.empty());
  EXPECT_EQ(gf45().setDisplayCalls, 1);
}

TEST_F(ModuleSelect, TheDualPairTogglesOnlyOnTheGf166) {
  SwitchFunction gf45Toggle = Build(kCom1Com2Toggle, 0, kRadioGF45);
  gf45().current = kCom1Dual;
  ExecuteFunction(gf45Toggle, kActionToggle, 0, 0);
  EXPECT_TRUE(gf45().selected.empty());

  SwitchFunction comToggle = Build(kCom1Com2Toggle, 0, kRadioGF166);
  gf166().current = kCom1Dual;
  ExecuteFunction(comToggle, kActionToggle, 0, 0);
  EXPECT_EQ(gf166().selected, std::vector<std::int32_t>{kCom2Dual});

  SwitchFunction navToggle = Build(kNav1Nav2Toggle, 0, kRadioGF166);
  gf166().current = kNav2Dual;
  ExecuteFunction(navToggle, kActionToggle, 0, 0);
  EXPECT_EQ(gf166().selected.back(), kNav1Dual);
}

TEST_F(ModuleSelect, NavToggleIgnoresTheComFunctions) {
  SwitchFunction navToggle = Build(kNav1Nav2Toggle, 1, kRadioGF46);
  gf46(1).current = kNav1Standby;
  ExecuteFunction(navToggle, kActionToggle, 0, 0);
  EXPECT_EQ(gf46(1).selected, std::vector<std::int32_t>{kNav2Standby});
  gf46(1).current = kCom1Active;
  ExecuteFunction(navToggle, kActionToggle, 0, 0);
  EXPECT_EQ(gf46(1).selected.size(), 1u);
}

// ---- lighting ---------------------------------------------------------------------------------

TEST_F(ModuleSelect, Gf166TogglesLightWhileTheSecondRadioIsShown) {
  SwitchFunction comToggle = Build(kCom1Com2Toggle, 0, kRadioGF166);
  SwitchFunction navToggle = Build(kNav1Nav2Toggle, 0, kRadioGF166);
  for (FunctionId second : {kCom2Active, kCom2Standby, kCom2Dual}) {
    gf166().current = second;
    EXPECT_EQ(Refreshed(comToggle), 1) << second;
    EXPECT_EQ(Refreshed(navToggle), 0) << second;
  }
  for (FunctionId second : {kNav2Active, kNav2Standby, kNav2Dual}) {
    gf166().current = second;
    EXPECT_EQ(Refreshed(navToggle), 1) << second;
  }
  gf166().current = kCom1Active;
  EXPECT_EQ(Refreshed(comToggle), 0);
}

TEST_F(ModuleSelect, Gf45TogglesStayDark) {
  SwitchFunction comToggle = Build(kCom1Com2Toggle, 0, kRadioGF45);
  gf45().current = kCom2Standby;
  EXPECT_EQ(Refreshed(comToggle), 0);
}

// ---- targets that are not there --------------------------------------------------------------

TEST_F(ModuleSelect, AMissingModuleDoesNothingAndKeepsTheState) {
  SwitchFunction absent = Build(kCom1Active, 3, kRadioGF46);  // only units 0 and 1 exist
  ASSERT_EQ(GetFunctionId(absent), kCom1Active);
  absent.state = 1;
  ExecuteFunction(absent, kActionToggle, 0, 0);
  EXPECT_EQ(Refreshed(absent), 1);
  EXPECT_TRUE(gf46(0).selected.empty());
  EXPECT_TRUE(gf46(1).selected.empty());
}

TEST_F(ModuleSelect, UnknownModuleKindsAndUnitsFindNothing) {
  for (auto [kind, unit] : {std::pair{-1, 0}, std::pair{3, 0}, std::pair{0, -1}}) {  // 0 = GF-45
    SwitchFunction record = Build(kCom1Active, unit, kind);
    ExecuteFunction(record, kActionToggle, 0, 0);
    EXPECT_EQ(Refreshed(record), 0);
  }
  EXPECT_TRUE(gf45().selected.empty());
  EXPECT_TRUE(gf166().selected.empty());
}

TEST_F(FunctionTest, AModuleThatIsNotARadioIsNeverSelectedOn) {
  ModuleManager broken{kBrokenModels};
  broken.CreateModules();
  const ModulePanelDirectory brokenPanels{broken};
  CurrentFunctionState().panelDirectory = &brokenPanels;
  SwitchFunction record = Build(kCom1Active, 0, kRadioGF46);
  record.state = 1;
  ExecuteFunction(record, kActionToggle, 0, 0);
  EXPECT_EQ(Refreshed(record), 1);
}

}  // namespace
}  // namespace drav::functiontest
