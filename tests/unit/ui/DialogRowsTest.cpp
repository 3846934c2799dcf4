// The dialog's rows come from each model's descriptor: every model that loads assignments shows
// rows for them (a descriptor that lost its dialog hook would leave the pilot nothing to edit), the
// panels another party drives show none while it does, and every row edits a key that the loader
// reads with the default the loader applies.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "modules/ModuleRegistry.h"
#include "ui/DialogRows.h"

namespace drav {
namespace {

// Every key the loader reads from a unit's section, with its default.
std::set<std::pair<std::string, std::string>> LoaderKeys(const AssignmentKeyGroup& group) {
  std::set<std::pair<std::string, std::string>> keys;
  for (int index = 0; index < KeyCount(group); ++index) keys.emplace(KeyName(group, index), KeyDefault(group, index));
  return keys;
}

bool LoaderReads(const DialogFunctionRow& row) {
  for (const AssignmentKeyGroup* group : AllFunctionKeyGroups()) {
    for (const auto& [key, defaultValue] : LoaderKeys(*group)) {
      if (key == row.key && (row.defaultValue[0] == '\0' || defaultValue == row.defaultValue)) return true;
    }
  }
  return false;
}

TEST(DialogRowsTest, EveryModelThatLoadsAssignmentsShowsRowsTheLoaderReads) {
  const DialogRowContext context;
  for (const ModelDescriptor* model : ProductionModels()) {
    const DialogModelRows rows = RowsForModel(model->Type(), context);
    if (model->Type() == kModuleGFMESM) {
      EXPECT_TRUE(rows.functions.empty()) << "the GF-MESM has nothing to assign in the dialog";
      continue;
    }
    EXPECT_TRUE(!rows.functions.empty() || rows.reloadAllWithoutRegistering) << model->hid->name;
    for (const DialogFunctionRow& row : rows.functions) EXPECT_TRUE(LoaderReads(row)) << model->hid->name << " " << row.key;
  }
}

TEST(DialogRowsTest, PanelsDrivenByAnotherPartyShowNoRowsMeanwhile) {
  DialogRowContext x737;
  x737.x737Mode = true;
  DialogRowContext disabled;
  disabled.mcpProDisabled = true;
  disabled.efisDisabled = true;
  EXPECT_FALSE(RowsForModel(kModuleGFMCPPro, DialogRowContext{}).functions.empty());
  EXPECT_TRUE(RowsForModel(kModuleGFMCPPro, x737).functions.empty());
  EXPECT_TRUE(RowsForModel(kModuleGFMCPPro, disabled).functions.empty());
  EXPECT_FALSE(RowsForModel(kModuleGFEFIS, x737).functions.empty());
  EXPECT_TRUE(RowsForModel(kModuleGFEFIS, disabled).functions.empty());
}

TEST(DialogRowsTest, ModelsWithoutAClassShowNothing) {
  for (ModuleType type : {kModuleGFATC, kModuleGFFMC, kModuleGFTPM, kModuleNone}) {
    const DialogModelRows rows = RowsForModel(type, DialogRowContext{});
    EXPECT_TRUE(rows.functions.empty() && rows.colours.empty() && rows.sliders.empty()) << type;
  }
}

}  // namespace
}  // namespace drav
