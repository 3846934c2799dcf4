// A unit's assignments are loaded by the hook of the descriptor its module was made from, so a
// module only ever reaches a hook written for its own class; the hook reads its unit's own section
// through the loader, with the unit and the register flag the caller asked for.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "PluginFolderSupport.h"
#include "config/AircraftProfile.h"
#include "config/Assignments.h"
#include "modules/GFP8_Module.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleRegistry.h"

namespace drav {
namespace {

struct Assigned {
  std::uint8_t control;
  std::int32_t functionId;
  bool operator==(const Assigned&) const = default;
};

// A panel that only writes down what loading did to it.
class RecordingPanel : public GF_Abstract_Module {
 public:
  void Register(std::uint16_t unitNumber) override { registeredAs.push_back(unitNumber); }
  void SetDisplay() override {}
  std::int32_t GetButton(const void*, std::int32_t*) override { return -1; }
  void ClearDisplay() override {}
  void HandleInput(std::int32_t, std::int32_t) override {}
  void UpdateOutputs() override {}
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t, std::int32_t) override {
    if (functionId != 0) assigned.push_back({key, functionId});
  }
  std::int32_t GetAssignedFunction(std::uint8_t) override { return 0; }

  std::vector<std::uint16_t> registeredAs;
  std::vector<Assigned> assigned;
};

void LoadRecordingPanel(RecordingPanel& panel, UnitAssignments& unit) {
  if (unit.Registering()) RegisterUnit(panel, unit);
  AssignGroup(panel, unit, kGFP8Keys);
}

std::int32_t TwoUnits() { return 2; }

const ModelDescriptor kHookedP8{&kPanelModelRows[kModuleGFP8], &TwoUnits, &MakeModuleVector<RecordingPanel>,
                                &LoadAs<RecordingPanel, LoadRecordingPanel>};
// Not a radio, under a radio's number, and without a hook of its own: the GF-46's production hook
// must never be run on it.
const ModelDescriptor kHooklessGF46{&kPanelModelRows[kModuleGF46], &TwoUnits, &MakeModuleVector<RecordingPanel>,
                                    nullptr};
const ModelDescriptor* const kModels[] = {&kHookedP8, &kHooklessGF46};

class UnitLoadHookTest : public drav_test::PluginFolderTest {
 protected:
  UnitLoadHookTest() : PluginFolderTest("unitloadhook") {}

  void SetUp() override {
    PluginFolderTest::SetUp();
    GivenIni("[GFP8_1]\r\nFunction1=COM1_DUAL\r\n[GFP8_2]\r\nFunction3=COM1_DUAL\r\nFunction8=NAV2_DUAL\r\n"
             "[GF46_1]\r\nFunction1=COM1_DUAL\r\n");
    RefreshAircraftProfile();
    manager_.CreateModules();
    SetAssignmentModuleManager(&manager_);
  }

  RecordingPanel& Panel(std::uint32_t type, std::uint32_t unit) {
    GF_Abstract_Module* module = nullptr;
    manager_.FindModule(type, unit, &module);
    return *static_cast<RecordingPanel*>(module);
  }

  ModuleManager manager_{kModels};
};

TEST_F(UnitLoadHookTest, TheHookReadsItsOwnUnitsSectionAndRegistersOnlyWhenAsked) {
  LoadUnitAssignments(kModuleGFP8, 1, false);
  const std::vector<Assigned> second = {{'3', ResolveFunctionId("COM1_DUAL")}, {'8', ResolveFunctionId("NAV2_DUAL")}};
  EXPECT_EQ(Panel(kModuleGFP8, 1).assigned, second);
  EXPECT_TRUE(Panel(kModuleGFP8, 1).registeredAs.empty());
  EXPECT_TRUE(Panel(kModuleGFP8, 0).assigned.empty()) << "unit 1 is not the first unit's section";

  LoadUnitAssignments(kModuleGFP8, 1);
  EXPECT_EQ(Panel(kModuleGFP8, 1).registeredAs, std::vector<std::uint16_t>{1});
}

TEST_F(UnitLoadHookTest, AModelWithoutAHookOfItsOwnLoadsNothingWhateverItsNumber) {
  EXPECT_TRUE(HasAssignmentLoader(kModuleGFP8));
  EXPECT_FALSE(HasAssignmentLoader(kModuleGF46));
  EXPECT_EQ(LoadTypeAssignments(kModuleGF46), 2);
  EXPECT_TRUE(Panel(kModuleGF46, 0).assigned.empty());
  EXPECT_TRUE(Panel(kModuleGF46, 0).registeredAs.empty());

  SetAssignmentModuleManager(nullptr);
  EXPECT_TRUE(HasAssignmentLoader(kModuleGF46)) << "the plug-in's own GF-46 has its hook";
}

}  // namespace
}  // namespace drav
