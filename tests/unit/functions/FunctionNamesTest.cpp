// The tables that name functions against the catalogue they name them from. A line inserted into
// FunctionList.inc instead of appended, or a wrong group, compiles and still builds most functions;
// these checks find the rows it silently broke, each once over the whole table.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "functions/AutopilotBindingTable.h"
#include "functions/AvionicFunctionTable.h"
#include "functions/CommandBindingTable.h"
#include "functions/FamilyBindingTable.h"
#include "functions/FunctionCatalogue.h"
#include "functions/LeverFunction.h"
#include "functions/SwitchBindingTable.h"
#include "ui/PickListTables.h"

namespace drav {
namespace {

std::string NameOf(FunctionId id) { return GetFunctionName(id); }

// A family member's name: the first member's name with its number replaced by the member's label.
std::string MemberName(FunctionId first, const std::string& firstLabel, const std::string& label) {
  std::string name = NameOf(first);
  const std::size_t at = name.find(firstLabel);
  if (at == std::string::npos) return "(" + name + " holds no " + firstLabel + ")";
  return name.replace(at, firstLabel.size(), label);
}

std::vector<std::string> Numbered(int count, bool twoDigits) {
  std::vector<std::string> labels;
  for (int n = 1; n <= count; ++n) {
    char label[16];
    std::snprintf(label, sizeof label, twoDigits ? "%02d" : "%d", n);
    labels.emplace_back(label);
  }
  return labels;
}

std::vector<std::string> LabelsOf(FamilyScheme scheme) {
  switch (scheme) {
    case FamilyScheme::kEngines: {
      std::vector<std::string> labels = Numbered(8, false);
      labels.push_back("ALL");
      return labels;
    }
    case FamilyScheme::kFourEngines: return Numbered(4, false);
    case FamilyScheme::kLandingLights: return Numbered(16, true);
    case FamilyScheme::kFuelTanks: return Numbered(9, false);
  }
  return {};
}

// Every member a family row counts through is the function its numbering says.
void ExpectConsecutiveMembers(FunctionId first, const std::vector<std::string>& labels) {
  for (std::size_t member = 0; member < labels.size(); ++member) {
    const FunctionId id = first + static_cast<FunctionId>(member);
    EXPECT_EQ(NameOf(id), MemberName(first, labels[0], labels[member])) << "member " << member << " of "
                                                                        << NameOf(first);
  }
}

TEST(FunctionNamesTest, FamiliesCountThroughConsecutiveCatalogueLines) {
  for (const FamilyBindingRow& row : FamilyBindingRows()) {
    for (FunctionId first : row.firstIds) {
      if (first != kNada) ExpectConsecutiveMembers(first, LabelsOf(row.scheme));
    }
  }
  for (const CommandBindingRow& row : CommandBindingRows()) {
    if (row.lastId == row.firstId) continue;
    ExpectConsecutiveMembers(row.firstId, Numbered(row.lastId - row.firstId + 1, false));
  }
  for (FunctionId first : {kLeverFirstThrottle, kLeverFirstMixture, kLeverFirstPropPitch}) {
    ExpectConsecutiveMembers(first, Numbered(kLeverEngineCount, false));
  }
}

// "drav/autopilot_state/fms_armed" is the dataref of AP_STATE_FMS_ARMED: the paths are counted
// from the first AP_STATE_ function.
TEST(FunctionNamesTest, AutopilotStatePathsNameTheirFunctions) {
  const std::string prefix = "drav/autopilot_state/";
  FunctionId id = kFirstAutopilotState;
  for (const char* path : AutopilotStatePaths()) {
    std::string expected = std::string(path).substr(prefix.size());
    std::transform(expected.begin(), expected.end(), expected.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    EXPECT_EQ(NameOf(id), "AP_STATE_" + expected) << path;
    ++id;
  }
}

// The factory consults the switch tables only for switch functions: a row keyed by a lever, a
// bound or an avionic function is never reached.
TEST(FunctionNamesTest, SwitchTablesHoldOnlySwitchFunctions) {
  std::vector<FunctionId> ids;
  for (const SwitchBindingRow& row : SwitchBindingRows()) {
    ids.insert(ids.end(), std::begin(row.ids), std::end(row.ids));
  }
  for (const FamilyBindingRow& row : FamilyBindingRows()) {
    ids.insert(ids.end(), std::begin(row.firstIds), std::end(row.firstIds));
  }
  for (const AutopilotBindingRow& row : AutopilotBindingRows()) ids.push_back(row.id);
  for (const CommandBindingRow& row : CommandBindingRows()) {
    for (FunctionId id = row.firstId; id <= row.lastId; ++id) ids.push_back(id);
  }
  for (FunctionId id : ids) EXPECT_TRUE(id == kNada || IsSwitchFunction(id)) << NameOf(id);
  for (const AvionicFunctionRow& row : AvionicFunctionRows()) {
    EXPECT_TRUE(IsAvionicFunction(row.id) || IsSwitchFunction(row.id)) << NameOf(row.id);
  }
}

bool HasSwitchBuild(FunctionId id) {
  SwitchBinding member{};
  return FindSwitchBinding(id) != nullptr || FindFamilyBinding(id, member) || FindAutopilotBinding(id) != nullptr ||
         FindCommandBinding(id) != nullptr;
}

// What a pilot picks is a function of the kind the control can run: a knob offered a switch without
// an avionic row, a button offered a lever, or an annunciator without a binding would load and do
// nothing. (A few catalogue functions do nothing on purpose; they are of the right group still.)
TEST(FunctionNamesTest, PickListItemsAreFunctionsOfTheirKind) {
  for (PickTable table : {kRadioAvionicItems, kGF166AvionicItems, kPanelAvionicItems, kRP48AvionicItems}) {
    for (const PickItem& item : table) {
      EXPECT_TRUE(FindAvionicFunctionRow(item.id) != nullptr || IsAvionicFunction(item.id)) << item.Name();
    }
  }
  for (const PickItem& item : kWcpItems) EXPECT_TRUE(HasSwitchBuild(item.id)) << item.Name();
  // A radio mode item is the unit's section and the function's INI suffix; without one it is lost.
  for (const RadioPickTable& radio : {kGF166RadioModes, kGF45RadioModes, kGF46RadioModes}) {
    for (FunctionId mode : radio.modes) EXPECT_TRUE(IsAvionicFunction(mode)) << NameOf(mode);
  }
  // Only the few items the catalogue lacks carry their own text, and they do name no function.
  for (PickTable table : {kButtonLeadItems, kX737Items, kButtonTailItems, kToggleLeadItems, kToggleTailItems}) {
    for (const PickItem& item : table) {
      if (item.text != nullptr) {
        EXPECT_EQ(FindFunctionId(item.text), kNada) << item.text;
      } else {
        EXPECT_TRUE(IsSwitchFunction(item.id)) << item.Name();
      }
    }
  }
}

}  // namespace
}  // namespace drav
