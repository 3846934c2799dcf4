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

class FakeRadioBase : public GF_Abstract_AvionicDevice {
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

template <std::uint32_t Type>
class FakeRadio : public FakeRadioBase {};

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

// ---- the radio toggles -------------------------------------------------------------------------

// A toggle pressed on a radio showing `current`: the function it selects there (0: none).
struct ToggleRow {
  const char* what;
  FunctionId toggle;
  std::int32_t kind;
  std::uint32_t type;
  std::uint32_t unit;
  FunctionId current;
  FunctionId selects;
};

TEST_F(ModuleSelect, AToggleSelectsTheSameFunctionOnTheOtherRadioAndRedraws) {
  const ToggleRow rows[] = {
      {"COM1 standby to COM2", kCom1Com2Toggle, kRadioGF45, kModuleGF45, 0, kCom1Standby, kCom2Standby},
      {"and back", kCom1Com2Toggle, kRadioGF45, kModuleGF45, 0, kCom2Standby, kCom1Standby},
      {"COM2 active to COM1", kCom1Com2Toggle, kRadioGF45, kModuleGF45, 0, kCom2Active, kCom1Active},
      {"no counterpart", kCom1Com2Toggle, kRadioGF45, kModuleGF45, 0, kAdf1Active, 0},
      // The dual pair toggles only on the GF-166.
      {"dual on the GF-45", kCom1Com2Toggle, kRadioGF45, kModuleGF45, 0, kCom1Dual, 0},
      {"COM dual on the GF-166", kCom1Com2Toggle, kRadioGF166, kModuleGF166, 0, kCom1Dual, kCom2Dual},
      {"NAV dual on the GF-166", kNav1Nav2Toggle, kRadioGF166, kModuleGF166, 0, kNav2Dual, kNav1Dual},
      {"NAV on a second GF-46", kNav1Nav2Toggle, kRadioGF46, kModuleGF46, 1, kNav1Standby, kNav2Standby},
      {"NAV toggle ignores COM", kNav1Nav2Toggle, kRadioGF46, kModuleGF46, 1, kCom1Active, 0},
  };
  for (const ToggleRow& row : rows) {
    SCOPED_TRACE(row.what);
    SwitchFunction toggle = Build(row.toggle, static_cast<std::int32_t>(row.unit), row.kind);
    FakeRadioBase& radio = Radio<FakeRadioBase>(row.type, row.unit);
    radio.current = row.current;
    radio.selected.clear();
    const int drawn = radio.setDisplayCalls;
    ExecuteFunction(toggle, kActionToggle, 0, 0);
    EXPECT_EQ(radio.selected, row.selects == 0 ? std::vector<std::int32_t>{} : std::vector<std::int32_t>{row.selects});
    EXPECT_EQ(radio.setDisplayCalls, drawn + 1);
  }
}

// ---- lighting ---------------------------------------------------------------------------------

// The GF-166's toggles light while the second radio is shown; the GF-45's stay dark.
TEST_F(ModuleSelect, TogglesLightOnTheGf166WhileTheSecondRadioIsShown) {
  const struct {
    FunctionId toggle;
    std::int32_t kind;
    std::uint32_t type;
    FunctionId current;
    std::int32_t lit;
  } rows[] = {
      {kCom1Com2Toggle, kRadioGF166, kModuleGF166, kCom2Active, 1},
      {kNav1Nav2Toggle, kRadioGF166, kModuleGF166, kCom2Active, 0},
      {kCom1Com2Toggle, kRadioGF166, kModuleGF166, kCom2Standby, 1},
      {kNav1Nav2Toggle, kRadioGF166, kModuleGF166, kCom2Standby, 0},
      {kCom1Com2Toggle, kRadioGF166, kModuleGF166, kCom2Dual, 1},
      {kNav1Nav2Toggle, kRadioGF166, kModuleGF166, kCom2Dual, 0},
      {kNav1Nav2Toggle, kRadioGF166, kModuleGF166, kNav2Active, 1},
      {kNav1Nav2Toggle, kRadioGF166, kModuleGF166, kNav2Standby, 1},
      {kNav1Nav2Toggle, kRadioGF166, kModuleGF166, kNav2Dual, 1},
      {kCom1Com2Toggle, kRadioGF166, kModuleGF166, kCom1Active, 0},
      {kCom1Com2Toggle, kRadioGF45, kModuleGF45, kCom2Standby, 0},
  };
  for (const auto& row : rows) {
    SwitchFunction toggle = Build(row.toggle, 0, row.kind);
    Radio<FakeRadioBase>(row.type).current = row.current;
    EXPECT_EQ(Refreshed(toggle), row.lit) << "toggle " << row.toggle << " on " << row.type << " showing "
                                          << row.current;
  }
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
