// The loader's quick answers must be the ones the slow, plain searches give: the function-name
// look-up against the catalogue's row-by-row search, and the radio-reference test against a value
// that holds its prefix anywhere.
#include <gtest/gtest.h>

#include <string>

#include "config/AssignmentValues.h"
#include "functions/FunctionCatalogue.h"

namespace drav {
namespace {

TEST(AssignmentValuesTest, FunctionNamesResolveAsTheCatalogueSearchDoes) {
  for (FunctionId id = 0; id < kFunctionCount; ++id) {
    const std::string name = GetFunctionName(id);
    const std::string values[] = {name,        "GF46_2_FUNC_" + name, name + "_FUNC_", "x" + name,
                                  name + " ",  name.substr(0, name.size() - 1)};
    for (const std::string& value : values) {
      EXPECT_EQ(ResolveFunctionId(value.c_str()), FindFunctionId(value.c_str())) << value;
    }
  }
  EXPECT_EQ(ResolveFunctionId(nullptr), kNada);
  EXPECT_EQ(ResolveFunctionId(""), FindFunctionId(""));
  EXPECT_EQ(ResolveFunctionId("ap_hdg_hold"), kNada) << "names keep their case";
}

TEST(AssignmentValuesTest, RadioReferencesAreFoundAnywhereInTheValueByTheFirstPrefix) {
  AssignmentTargetUnit target;
  ASSERT_TRUE(FindRadioReference("GF166_3_FUNC_COM1_ACTIVE", &target));
  EXPECT_EQ(target.kind, kTargetKindGF166);
  EXPECT_EQ(target.unit, 2);
  // The unit number stands at a fixed place from the start, wherever the prefix was found.
  ASSERT_TRUE(FindRadioReference("xxGF45_1_FUNC_COM1_ACTIVE", &target));
  EXPECT_EQ(target.kind, kTargetKindGF45);
  // A GF-46 prefix after a GF-166 one: the table's order decides, not the place in the value.
  ASSERT_TRUE(FindRadioReference("GF166_1 GF46_2", &target));
  EXPECT_EQ(target.kind, kTargetKindGF46);
  EXPECT_FALSE(FindRadioReference("GF_FUNC_COM1_ACTIVE GF4", &target));
  EXPECT_FALSE(FindRadioReference("AP_MASTER", &target));
  EXPECT_FALSE(FindRadioReference(nullptr, &target));
}

}  // namespace
}  // namespace drav
