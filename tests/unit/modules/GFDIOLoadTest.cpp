// Loading DRAV.INI into a GF-WCP and a GF-DIO: colours and switch types by exact name, numbered
// keys reaching the board's own operations, and the board's reload without registration.
#include <gtest/gtest.h>

#include <string>

#include "../config/PluginFolderSupport.h"
#include "config/Assignments.h"
#include "hid/InputRecords.h"
#include "modules/GFDIO_Module.h"
#include "modules/GFWCP_Module.h"
#include "modules/ModuleContainer.h"
#include "modules/ModuleManager.h"

namespace drav {
namespace {

constexpr FunctionId kNav1Standby = 19;
constexpr FunctionId kLandingLts = 160;
constexpr FunctionId kNavLts = 161;
constexpr FunctionId kWcpMasterCaution = 473;

std::int32_t OneUnit() { return 1; }

const ModuleModel kBoardModels[] = {
    {kModuleGFWCP, &OneUnit, &MakeModuleVector<GFWCP_Module>},
    {kModuleGFDIO, &OneUnit, &MakeModuleVector<GFDIO_Module>},
};

class GFDIOLoadTest : public drav_test::PluginFolderTest {
 protected:
  GFDIOLoadTest() : PluginFolderTest("wcpdioload") {}

  void SetUp() override {
    PluginFolderTest::SetUp();
    manager.CreateModules();
    SetAssignmentModuleManager(&manager);
  }
  void TearDown() override {
    SetAssignmentModuleManager(nullptr);
    PluginFolderTest::TearDown();
  }

  template <class T>
  T& Module(std::uint32_t type) {
    GF_Abstract_Module* module = nullptr;
    EXPECT_EQ(manager.FindModule(type, 0, &module), 1);
    return *dynamic_cast<T*>(module);
  }

  ModuleManager manager{kBoardModels};
};

TEST_F(GFDIOLoadTest, WCPButtonsAndColoursAreLoadedByExactName) {
  GivenIni(
      "[GFWCP_1]\nFunction1=WCP_MASTER_CAUTION\nColour1=RED\nColour2=CYAN\nColour3=PURPLE\nColour4=red\n");
  LoadUnitAssignments(kModuleGFWCP, 0);
  GFWCP_Module& panel = Module<GFWCP_Module>(kModuleGFWCP);
  EXPECT_EQ(panel.GetAssignedFunction('1'), kWcpMasterCaution);
  const std::uint8_t expected[kGFWCPButtons] = {2, 7, 0, 0, 0, 0};
  for (int i = 0; i < kGFWCPButtons; ++i) EXPECT_EQ(panel.colours[i], expected[i]) << "light " << i + 1;
}

TEST_F(GFDIOLoadTest, DIONumberedKeysReachInputsOffStatesTypesAndOutputs) {
  GivenIni(
      "[GFDIO_1]\nInputFunction05=LANDING_LTS\nInputOffStateFunction05=NAV_LTS\n"
      "InputSwitchTypeFunction05=SWITCH3WAY\nInputSwitchTypeFunction56=SELECTOR\n"
      "InputSwitchTypeFunction07=SWITCH4WAY\nOutputFunction32=LANDING_LTS\n"
      "InputFunction01=GF46_2_FUNC_NAV1_STANDBY\n");
  LoadUnitAssignments(kModuleGFDIO, 0);
  GFDIO_Module& board = Module<GFDIO_Module>(kModuleGFDIO);
  EXPECT_EQ(board.GetInputFunctionId("05"), kLandingLts);
  EXPECT_EQ(GetFunctionId(board.offStateFunctions[4]), kNavLts);
  EXPECT_EQ(board.SwitchType(4), kGFDIOSwitch3Way);
  EXPECT_EQ(board.SwitchType(55), kGFDIOSelector);
  EXPECT_EQ(board.SwitchType(6), kGFDIOButton);
  EXPECT_EQ(GetFunctionId(board.outputFunctions[31]), kLandingLts);
  // The input's function is aimed at the second GF-46.
  EXPECT_EQ(board.GetInputFunctionId("01"), kNav1Standby);
  EXPECT_EQ(board.inputFunctions[0].targetUnit, 1);
  EXPECT_EQ(board.inputFunctions[0].targetModuleKind, kRadioGF46);
}

TEST_F(GFDIOLoadTest, DIOReloadWithoutRegistrationKeepsTheBankAndReplacesTheConfiguration) {
  GivenIni("[GFDIO_1]\nInputFunction05=LANDING_LTS\nInputSwitchTypeFunction05=SELECTOR\n");
  LoadUnitAssignments(kModuleGFDIO, 0);
  GFDIO_Module& board = Module<GFDIO_Module>(kModuleGFDIO);
  GFDIOInputRecord record{};
  record.states[0] = 0b1'0000;
  std::int32_t value = -1;
  ASSERT_EQ(board.DecodeInput(&record, &value), 4);

  GivenIni("[GFDIO_1]\nInputFunction06=NAV_LTS\n");
  LoadUnitAssignments(kModuleGFDIO, 0, false);
  EXPECT_EQ(board.PrevSwitchBank(), 0b1'0000u);
  EXPECT_EQ(board.GetInputFunctionId("05"), 0);
  EXPECT_EQ(board.SwitchType(4), kGFDIOButton);
  EXPECT_EQ(board.GetInputFunctionId("06"), kNavLts);

  // With registration the bank is read from the device again (none here: all open).
  LoadUnitAssignments(kModuleGFDIO, 0, true);
  EXPECT_EQ(board.PrevSwitchBank(), 0u);
}

}  // namespace
}  // namespace drav
