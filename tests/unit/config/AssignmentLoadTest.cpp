// Loading DRAV.INI into module objects: the call order per model, the mode walk of the radios, the
// walk over types and units, and what loading leaves alone.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

#include "PluginFolderSupport.h"
#include "config/Assignments.h"
#include "functions/FunctionCatalogue.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleContainer.h"
#include "modules/ModuleManager.h"

namespace drav {
namespace {

// Every Register of every fake, as "<type>:<unit>", to watch the order of a full load.
std::vector<std::string>& RegisterOrder() {
  static std::vector<std::string> order;
  return order;
}

std::string KeyText(std::uint8_t key) {
  return std::isalnum(key) ? std::string(1, static_cast<char>(key)) : std::to_string(key);
}

std::string AssignCall(char key, FunctionId id, int unit, int kind) {
  return "Assign " + KeyText(static_cast<std::uint8_t>(key)) + " " + std::to_string(id) + " " +
         std::to_string(unit) + " " + std::to_string(kind);
}
std::string SelectCall(FunctionId id) { return "Select " + std::to_string(id); }
std::string RegisterCall(int unit) { return "Register " + std::to_string(unit); }
const std::string kSetDisplay = "SetDisplay";

// The calls a fake module received, in order.
struct CallRecorder {
  std::vector<std::string> calls;

  void Register(std::uint32_t type, std::uint16_t unit) {
    calls.push_back(RegisterCall(unit));
    RegisterOrder().push_back(std::to_string(type) + ":" + std::to_string(unit));
  }
};

template <std::uint32_t Type>
class FakeButtonBox : public GF_Abstract_Module {
 public:
  void Register(std::uint16_t unitNumber) override {
    GF_Abstract_Module::Register(unitNumber);
    recorder.Register(Type, unitNumber);
  }
  void SetDisplay() override { recorder.calls.push_back(kSetDisplay); }
  std::int32_t GetButton(const void*, std::int32_t*) override { return -1; }
  void ClearDisplay() override {}
  void HandleInput(std::int32_t, std::int32_t) override {}
  void UpdateOutputs() override {}
  void AssignFunction(std::uint8_t key, std::int32_t id, std::int32_t param1, std::int32_t param2) override {
    recorder.calls.push_back(AssignCall(static_cast<char>(key), id, param1, param2));
  }
  std::int32_t GetAssignedFunction(std::uint8_t) override { return 0; }

  CallRecorder recorder;
};

template <std::uint32_t Type>
class FakeRadio : public GF_Abstract_AvionicDevice {
 public:
  void Register(std::uint16_t unitNumber) override {
    GF_Abstract_Module::Register(unitNumber);
    recorder.Register(Type, unitNumber);
  }
  void SetDisplay() override { recorder.calls.push_back(kSetDisplay); }
  std::int32_t GetButton(const void*, std::int32_t*) override { return -1; }
  void ClearDisplay() override {}
  void HandleInput(std::int32_t, std::int32_t) override {}
  void UpdateOutputs() override {}
  void AssignFunction(std::uint8_t key, std::int32_t id, std::int32_t param1, std::int32_t param2) override {
    recorder.calls.push_back(AssignCall(static_cast<char>(key), id, param1, param2));
  }
  std::int32_t GetAssignedFunction(std::uint8_t) override { return current; }
  std::int32_t GetCurrentFunction() override { return current; }
  void SelectFunction(std::int32_t functionId) override {
    recorder.calls.push_back(SelectCall(functionId));
    current = functionId;
  }

  CallRecorder recorder;
  std::int32_t current = 0;
};

using GF45 = FakeRadio<kModuleGF45>;
using GF46 = FakeRadio<kModuleGF46>;
using GF166 = FakeRadio<kModuleGF166>;
using GFP8 = FakeButtonBox<kModuleGFP8>;
using GFT8 = FakeButtonBox<kModuleGFT8>;
using GFRP48 = FakeButtonBox<kModuleGFRP48>;
using GFMCP = FakeButtonBox<kModuleGFMCP>;  // no loader yet: must stay untouched
// A class that is no radio standing under a radio type must not be taken for one.
using OddGF45 = FakeButtonBox<kModuleGF45>;

std::int32_t gUnits = 2;
std::int32_t Units() { return gUnits; }

const ModuleModel kFakeModels[] = {
    {kModuleGF45, &Units, &MakeModuleVector<GF45>},     {kModuleGF46, &Units, &MakeModuleVector<GF46>},
    {kModuleGF166, &Units, &MakeModuleVector<GF166>},   {kModuleGFP8, &Units, &MakeModuleVector<GFP8>},
    {kModuleGFT8, &Units, &MakeModuleVector<GFT8>},     {kModuleGFRP48, &Units, &MakeModuleVector<GFRP48>},
    {kModuleGFMCP, &Units, &MakeModuleVector<GFMCP>},
};

FunctionId Id(const char* name) {
  const FunctionId id = FindFunctionId(name);
  EXPECT_NE(id, kNada) << name << " is not in the catalogue";
  return id;
}

class AssignmentLoadTest : public drav_test::PluginFolderTest {
 protected:
  AssignmentLoadTest() : PluginFolderTest("assignload") {}

  void SetUp() override {
    PluginFolderTest::SetUp();
    gUnits = 2;
    RegisterOrder().clear();
    manager.CreateModules();
    SetAssignmentModuleManager(&manager);
  }
  void TearDown() override {
    SetAssignmentModuleManager(nullptr);
    PluginFolderTest::TearDown();
  }

  template <class T>
  T& Module(std::uint32_t type, std::uint32_t unit) {
    GF_Abstract_Module* module = nullptr;
    EXPECT_EQ(manager.FindModule(type, unit, &module), 1);
    return *static_cast<T*>(module);
  }
  template <class T>
  const std::vector<std::string>& Calls(std::uint32_t type, std::uint32_t unit) {
    return Module<T>(type, unit).recorder.calls;
  }

  // Eight assignments of (key, no function, -1, -1) from first to last key.
  static std::vector<std::string> EmptyAssignments(const char* keys) {
    std::vector<std::string> calls;
    for (const char* key = keys; *key != '\0'; ++key) calls.push_back(AssignCall(*key, kNada, -1, -1));
    return calls;
  }

  ModuleManager manager{kFakeModels};
};

using CallList = std::vector<std::string>;

// ---- the call order per model --------------------------------------------------------------------

TEST_F(AssignmentLoadTest, RadioRegistersThenLoadsItsModesThenSelectsAndShows) {
  GivenIni("[GF46_2]\r\nFunction1=COM1_ACTIVE\r\nFunction2=GF46_1_FUNC_NAV1_STANDBY\r\n");
  LoadUnitAssignments(kModuleGF46, 1);

  EXPECT_EQ(Calls<GF46>(kModuleGF46, 1), (CallList{RegisterCall(1), SelectCall(Id("COM1_ACTIVE")), kSetDisplay}));
  const GF46& radio = Module<GF46>(kModuleGF46, 1);
  EXPECT_EQ(radio.modeFunction[0], Id("COM1_ACTIVE"));
  EXPECT_EQ(radio.modeFunction[1], Id("NAV1_STANDBY"));  // function id only, the target is not used
  for (int mode = 2; mode < kModeCount; ++mode) EXPECT_EQ(radio.modeFunction[mode], kNada) << mode;
  EXPECT_EQ(radio.modeIndex, 0);
  EXPECT_TRUE(Calls<GF46>(kModuleGF46, 0).empty());  // the other unit is not loaded
}

TEST_F(AssignmentLoadTest, GF45LoadsLikeTheGF46FromItsOwnSection) {
  GivenIni("[GF46_1]\r\nFunction1=COM1_ACTIVE\r\n[GF45_1]\r\nFunction1=ADF1_ACTIVE\r\n");
  LoadUnitAssignments(kModuleGF45, 0);
  EXPECT_EQ(Calls<GF45>(kModuleGF45, 0), (CallList{RegisterCall(0), SelectCall(Id("ADF1_ACTIVE")), kSetDisplay}));
}

TEST_F(AssignmentLoadTest, GF166AimsItsButtonsAtItselfUnlessTheValueNamesAnotherRadio) {
  GivenIni("[GF166_2]\r\nFunctionL=COM1_ACTIVE\r\nFunctionR=GF46_2_FUNC_NAV1_STANDBY\r\n"
           "Function3=NAV1_ACTIVE\r\n");
  LoadUnitAssignments(kModuleGF166, 1);

  EXPECT_EQ(Calls<GF166>(kModuleGF166, 1),
            (CallList{RegisterCall(1), AssignCall('L', Id("COM1_ACTIVE"), 1, 2),
                   AssignCall('R', Id("NAV1_STANDBY"), 1, 1), SelectCall(Id("NAV1_ACTIVE")), kSetDisplay}));
  EXPECT_EQ(Module<GF166>(kModuleGF166, 1).modeIndex, 2);
}

TEST_F(AssignmentLoadTest, GF166WithoutFileStillAimsItsEmptyButtonsAtItself) {
  LoadUnitAssignments(kModuleGF166, 0);
  EXPECT_EQ(Calls<GF166>(kModuleGF166, 0), (CallList{RegisterCall(0), AssignCall('L', kNada, 0, 2),
                                                  AssignCall('R', kNada, 0, 2), SelectCall(kNada), kSetDisplay}));
}

TEST_F(AssignmentLoadTest, GFP8RegistersBeforeBindingItsEightButtons) {
  GivenIni("[GFP8_1]\r\nFunction1=LANDING_LTS\r\nFunction2=GF46_2_FUNC_NAV1_STANDBY\r\nFunction8=NADA\r\n");
  LoadUnitAssignments(kModuleGFP8, 0);

  CallList expected{RegisterCall(0), AssignCall('1', Id("LANDING_LTS"), -1, -1),
                 AssignCall('2', Id("NAV1_STANDBY"), 1, 1)};
  for (char key = '3'; key <= '8'; ++key) expected.push_back(AssignCall(key, kNada, -1, -1));
  expected.push_back(kSetDisplay);
  EXPECT_EQ(Calls<GFP8>(kModuleGFP8, 0), expected);
}

TEST_F(AssignmentLoadTest, GFT8BindsBeforeRegisterSoThatItsSwitchSyncRunsTheNewFunctions) {
  LoadUnitAssignments(kModuleGFT8, 1);
  CallList expected = EmptyAssignments("12345678");
  expected.push_back(RegisterCall(1));
  expected.push_back(kSetDisplay);
  EXPECT_EQ(Calls<GFT8>(kModuleGFT8, 1), expected);
}

TEST_F(AssignmentLoadTest, GFRP48BindsButtonsThenKnobs) {
  GivenIni("[GFRP48_1]\r\nFunctionA=GF45_1_FUNC_COM1_ACTIVE\r\nFunctionD=OBS1\r\n");
  LoadUnitAssignments(kModuleGFRP48, 0);

  CallList expected{RegisterCall(0)};
  for (const std::string& call : EmptyAssignments("12345678")) expected.push_back(call);
  expected.push_back(AssignCall('A', Id("COM1_ACTIVE"), 0, 0));
  expected.push_back(AssignCall('B', kNada, -1, -1));
  expected.push_back(AssignCall('C', kNada, -1, -1));
  expected.push_back(AssignCall('D', Id("OBS1"), -1, -1));
  expected.push_back(kSetDisplay);
  EXPECT_EQ(Calls<GFRP48>(kModuleGFRP48, 0), expected);
}

// ---- the mode walk -------------------------------------------------------------------------------

TEST_F(AssignmentLoadTest, AnEmptiedCurrentModeMovesOnToTheNextUsedOne) {
  GivenIni("[GF46_1]\r\nFunction1=COM1_ACTIVE\r\nFunction3=NAV1_ACTIVE\r\nFunction5=ADF1_ACTIVE\r\n");
  Module<GF46>(kModuleGF46, 0).modeIndex = 2;
  LoadUnitAssignments(kModuleGF46, 0);
  EXPECT_EQ(Module<GF46>(kModuleGF46, 0).modeIndex, 2);  // the current mode survives a reload

  GivenIni("[GF46_1]\r\nFunction1=COM1_ACTIVE\r\nFunction3=\r\nFunction5=ADF1_ACTIVE\r\n");
  LoadUnitAssignments(kModuleGF46, 0);
  EXPECT_EQ(Module<GF46>(kModuleGF46, 0).modeIndex, 4);
  EXPECT_EQ(Calls<GF46>(kModuleGF46, 0).back(), kSetDisplay);
  EXPECT_EQ(Module<GF46>(kModuleGF46, 0).current, Id("ADF1_ACTIVE"));
}

TEST_F(AssignmentLoadTest, TheModeWalkWrapsAndLandsOnTheFirstModeWhenAllAreEmpty) {
  GivenIni("[GF45_1]\r\nFunction2=COM2_ACTIVE\r\n");
  Module<GF45>(kModuleGF45, 0).modeIndex = 6;
  LoadUnitAssignments(kModuleGF45, 0);
  EXPECT_EQ(Module<GF45>(kModuleGF45, 0).modeIndex, 1);
  EXPECT_EQ(Module<GF45>(kModuleGF45, 0).current, Id("COM2_ACTIVE"));

  GivenIni("[GF45_1]\r\nFunction2=NO_SUCH_FUNCTION\r\n");
  LoadUnitAssignments(kModuleGF45, 0);
  EXPECT_EQ(Module<GF45>(kModuleGF45, 0).modeIndex, 0);
  EXPECT_EQ(Calls<GF45>(kModuleGF45, 0).end()[-2], SelectCall(kNada));
}

// ---- walking types and units ---------------------------------------------------------------------

TEST_F(AssignmentLoadTest, EveryUnitReadsItsOwnSection) {
  GivenIni("[GFP8_1]\r\nFunction1=TAXI_LTS\r\n[GFP8_2]\r\nFunction1=NAV_LTS\r\n");
  EXPECT_EQ(LoadTypeAssignments(kModuleGFP8), 2);
  EXPECT_EQ(Calls<GFP8>(kModuleGFP8, 0)[1], AssignCall('1', Id("TAXI_LTS"), -1, -1));
  EXPECT_EQ(Calls<GFP8>(kModuleGFP8, 1)[1], AssignCall('1', Id("NAV_LTS"), -1, -1));
  EXPECT_EQ(Module<GFP8>(kModuleGFP8, 1).unit, 1);
}

TEST_F(AssignmentLoadTest, LoadAllWalksTheTypesInTheirFixedOrder) {
  gUnits = 1;
  manager.CreateModules();
  LoadAllAssignments();
  EXPECT_EQ(RegisterOrder(), (std::vector<std::string>{"1:0", "8:0", "5:0", "6:0", "3:0", "2:0", "7:0"}));
  EXPECT_TRUE(HasAssignmentLoader(kModuleGFMCP));
  EXPECT_TRUE(HasAssignmentLoader(kModuleGFRP48));
  EXPECT_FALSE(HasAssignmentLoader(kModuleGFATC));  // tracked by the device layer, never loaded
}

TEST_F(AssignmentLoadTest, OnlyTheGFDIOMayReloadWithoutRegistering) {
  EXPECT_EQ(LoadTypeAssignments(kModuleGFT8, false), 2);
  EXPECT_EQ(RegisterOrder(), (std::vector<std::string>{"3:0", "3:1"}));
}

TEST_F(AssignmentLoadTest, MissingModulesAndUnknownTypesAreSkipped) {
  LoadUnitAssignments(kModuleGFP8, 2);
  LoadUnitAssignments(kModuleGFP8, 0xFFFFFFFFu);
  LoadUnitAssignments(kModuleGFATC, 0);
  LoadUnitAssignments(kModuleNone, 0);
  LoadUnitAssignments(99, 0);
  EXPECT_EQ(LoadTypeAssignments(kModuleGFDIO), 0);  // no container
  EXPECT_EQ(LoadTypeAssignments(99), 0);
  EXPECT_TRUE(RegisterOrder().empty());

  gUnits = 0;
  manager.CreateModules();
  EXPECT_EQ(LoadTypeAssignments(kModuleGF46), 0);
  EXPECT_TRUE(RegisterOrder().empty());
}

TEST_F(AssignmentLoadTest, AModuleThatIsNoRadioUnderARadioTypeGetsNoModeTable) {
  static const ModuleModel models[] = {{kModuleGF45, &Units, &MakeModuleVector<OddGF45>}};
  ModuleManager odd(models);
  odd.CreateModules();
  SetAssignmentModuleManager(&odd);
  LoadUnitAssignments(kModuleGF45, 0);
  GF_Abstract_Module* module = nullptr;
  ASSERT_EQ(odd.FindModule(kModuleGF45, 0, &module), 1);
  EXPECT_EQ(static_cast<OddGF45*>(module)->recorder.calls, (CallList{RegisterCall(0), kSetDisplay}));
}

TEST_F(AssignmentLoadTest, WithoutATestManagerLoadingUsesThePluginsOwn) {
  SetAssignmentModuleManager(nullptr);
  // The plug-in's manager has built no modules here, so nothing of the test's manager is touched.
  LoadAllAssignments();
  EXPECT_TRUE(RegisterOrder().empty());
}

// ---- what loading leaves alone -------------------------------------------------------------------

TEST_F(AssignmentLoadTest, LoadingNeverWritesTheFile) {
  LoadAllAssignments();
  EXPECT_FALSE(std::filesystem::exists(IniPath()));

  const std::string text = "[GFP8_1]\nFunction1=TAXI_LTS\n[GF46_1]\nFunction4=COM1_ACTIVE\n";
  GivenIni(text);
  LoadAllAssignments();
  EXPECT_EQ(drav_test::ReadBytes(IniPath()).value_or(""), text);
}

TEST_F(AssignmentLoadTest, EachKeyReadIsTracedWithItsSectionAndDefault) {
  gDebug.DebugEnabled = 1;
  gDebug.DebugFunctionAssignments = 1;
  LoadUnitAssignments(kModuleGF166, 0);
  const std::vector<std::string> lines = drav_test::SplitLines(LogText());
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[0], "file: DRAV.INI, found: 0, section: [GF166_1], key: FunctionL, value: , default: ");
  EXPECT_EQ(lines[2], "file: DRAV.INI, found: 0, section: [GF166_1], key: Function1, value: , default: ");
  EXPECT_EQ(lines[9], "file: DRAV.INI, found: 0, section: [GF166_1], key: Function8, value: , default: ");
}

}  // namespace
}  // namespace drav
