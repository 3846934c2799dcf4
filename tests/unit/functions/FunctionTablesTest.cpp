// The binding tables as data: every simulator dataref they name exists with the type the row reads
// it as and holds the elements the row switches, the ids agree with the catalogue's names, and no
// id is defined twice.
#include <XPLMDataAccess.h>
#include <XPLMUtilities.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <map>
#include <string>

#include "FunctionTestSupport.h"
#include "functions/AutopilotBindingTable.h"
#include "functions/AvionicFunctionTable.h"
#include "functions/CommandBindingTable.h"
#include "functions/DatarefBinding.h"
#include "functions/FamilyBindingTable.h"
#include "functions/FunctionCatalogue.h"
#include "functions/SimulatorEquivalents.h"
#include "functions/SwitchBindingTable.h"

namespace drav::functiontest {
namespace {

constexpr int kOlderSimulator = 11000;

bool IsSimPath(const char* path) { return path != nullptr && std::strncmp(path, "sim/", 4) == 0; }

XPLMDataTypeID TypeBitOf(std::int32_t valueType) {
  switch (valueType) {
    case kIntScalar: return xplmType_Int;
    case kFloatScalar: return xplmType_Float;
    case kIntArray: return xplmType_IntArray;
    case kFloatArray: return xplmType_FloatArray;
    default: return xplmType_Unknown;
  }
}

int ArrayLength(XPLMDataRef ref, std::int32_t valueType) {
  return valueType == kIntArray ? XPLMGetDatavi(ref, nullptr, 0, 0) : XPLMGetDatavf(ref, nullptr, 0, 0);
}

class BindingTableData : public FunctionTest {
 protected:
  // A simulator path must exist and offer the row's type; an array must hold the whole range.
  static void ExpectSimDataref(const char* path, std::int32_t valueType, std::int32_t offset, std::int32_t count) {
    if (!IsSimPath(path)) return;
    SCOPED_TRACE(path);
    const XPLMDataRef ref = XPLMFindDataRef(path);
    ASSERT_NE(ref, nullptr);
    EXPECT_NE(XPLMGetDataRefTypes(ref) & TypeBitOf(valueType), 0);
    if (valueType == kIntArray || valueType == kFloatArray) {
      EXPECT_GE(offset, 0);
      EXPECT_GE(count, 1);
      EXPECT_LE(offset + count, ArrayLength(ref, valueType));
    }
  }
};

// The tables name datarefs as the simulators before X-Plane 12 had them: three of those names are
// gone from X-Plane 12, whose stand-ins are checked below.
TEST_F(BindingTableData, SingleBindingsNameRealSimulatorDatarefs) {
  host().SetXPlaneVersion(kOlderSimulator);
  for (const SwitchBindingRow& row : SwitchBindingRows()) {
    const SwitchBinding& b = row.binding;
    ExpectSimDataref(b.path, b.valueType, b.offset, b.count);
    if (!b.floatValues) {
      EXPECT_EQ(b.onValue, static_cast<float>(static_cast<int>(b.onValue))) << b.path;
      EXPECT_EQ(b.offValue, static_cast<float>(static_cast<int>(b.offValue))) << b.path;
    }
  }
}

TEST_F(BindingTableData, FamiliesNameRealSimulatorArraysLongEnoughForEveryMember) {
  for (const FamilyBindingRow& row : FamilyBindingRows()) {
    ExpectSimDataref(row.path, row.valueType, 0, row.numberedMembers > 0 ? row.numberedMembers : 1);
    if (row.allCount > 0) ExpectSimDataref(row.path, row.valueType, row.allOffset, row.allCount);
  }
}

TEST_F(BindingTableData, AvionicFunctionsNameRealSimulatorDatarefs) {
  host().SetXPlaneVersion(kOlderSimulator);
  for (const AvionicFunctionRow& row : AvionicFunctionRows()) {
    SCOPED_TRACE(row.id);
    EXPECT_LT(std::strlen(row.tag), static_cast<std::size_t>(kAvionicTextSize));
    for (const char* path : {row.path, row.auxPath}) {
      if (!IsSimPath(path)) continue;
      const XPLMDataRef ref = XPLMFindDataRef(path);
      ASSERT_NE(ref, nullptr) << path;
      EXPECT_NE(XPLMGetDataRefTypes(ref) & (xplmType_Int | xplmType_Float), 0) << path;
    }
    if (row.x737Path != nullptr) {
      EXPECT_EQ(std::strncmp(row.x737Path, "x737/", 5), 0);
    }
  }
}

TEST_F(BindingTableData, CommandLightsAndAutopilotVariantsNameRealDatarefs) {
  for (const CommandBindingRow& row : CommandBindingRows()) ExpectSimDataref(row.lightPath, kIntScalar, 0, 1);
  for (const AutopilotBindingRow& row : AutopilotBindingRows()) {
    ExpectSimDataref(row.withoutX737.path, kIntScalar, 0, 1);
    if (row.withX737.path != nullptr) {
      EXPECT_EQ(std::strncmp(row.withX737.path, "x737/", 5), 0) << row.id;
    }
  }
}

// ---- ids --------------------------------------------------------------------------------------

// Every id of every table, with the number of tables that define it.
std::map<FunctionId, int> DefinedIds() {
  std::map<FunctionId, int> ids;
  for (const AvionicFunctionRow& row : AvionicFunctionRows()) ++ids[row.id];
  for (const SwitchBindingRow& row : SwitchBindingRows()) {
    for (FunctionId id : row.ids) {
      if (id != kNada) ++ids[id];
    }
  }
  for (const AutopilotBindingRow& row : AutopilotBindingRows()) ++ids[row.id];
  for (const CommandBindingRow& row : CommandBindingRows()) {
    for (FunctionId id = row.firstId; id <= row.lastId; ++id) ++ids[id];
  }
  return ids;
}

TEST(BindingTableIds, NoIdIsDefinedTwiceExceptTheDisengageVariants) {
  for (const auto& [id, tables] : DefinedIds()) {
    EXPECT_EQ(tables, id == 89 ? 2 : 1) << id << " " << GetFunctionName(id);
    EXPECT_TRUE(id > kNada && id < kMaxSubsystem && id != kMaxAvionic) << id;
  }
}

TEST(BindingTableIds, FamilyBlocksStartAtTheirFirstMemberAndEndAtTheirLast) {
  for (const FamilyBindingRow& row : FamilyBindingRows()) {
    for (FunctionId first : row.firstIds) {
      if (first == kNada) continue;
      const std::string firstName = GetFunctionName(first);
      SCOPED_TRACE(firstName);
      switch (row.scheme) {
        case FamilyScheme::kEngines:
          EXPECT_TRUE(firstName.find("_1_") != std::string::npos);
          EXPECT_TRUE(std::string(GetFunctionName(first + 8)).find("_ALL_") != std::string::npos);
          break;
        case FamilyScheme::kFourEngines:
          EXPECT_EQ(firstName.rfind("WCP_ENGN1_", 0), 0u);
          EXPECT_EQ(std::string(GetFunctionName(first + 3)).rfind("WCP_ENGN4_", 0), 0u);
          break;
        case FamilyScheme::kLandingLights:
          EXPECT_EQ(firstName, "LANDING_LIGHTS_SWITCH01");
          EXPECT_STREQ(GetFunctionName(first + 15), "LANDING_LIGHTS_SWITCH16");
          break;
        case FamilyScheme::kFuelTanks:
          EXPECT_EQ(firstName, "WCP_FUEL_TANK1_TRANSFER");
          EXPECT_STREQ(GetFunctionName(first + 8), "WCP_FUEL_TANK9_TRANSFER");
          break;
      }
    }
  }
}

TEST(BindingTableIds, AutopilotStatePathsAreTheLowerCaseRestOfTheirNames) {
  const auto paths = AutopilotStatePaths();
  ASSERT_EQ(paths.size(), 19u);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    std::string name = GetFunctionName(kFirstAutopilotState + static_cast<FunctionId>(i));
    ASSERT_EQ(name.rfind("AP_STATE_", 0), 0u) << name;
    std::string rest = name.substr(9);
    for (char& c : rest) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_EQ(std::string(paths[i]), "drav/autopilot_state/" + rest);
  }
}

// Every stand-in is something X-Plane 12 has: its dataref with the type the row uses (an array
// long enough for the elements written), its commands. The originals are simulator paths of the
// tables.
TEST_F(BindingTableData, EquivalentsNameWhatXPlane12Has) {
  for (const SimEquivalent& row : SimEquivalents()) {
    SCOPED_TRACE(row.original);
    EXPECT_TRUE(IsSimPath(row.original));
    if (row.path != nullptr) ExpectSimDataref(row.path, row.valueType, 0, row.count);
    for (const char* command : {row.command, row.downCommand}) {
      if (command == nullptr) continue;
      EXPECT_NE(XPLMFindCommand(command), nullptr) << command;
    }
  }
}

}  // namespace
}  // namespace drav::functiontest
