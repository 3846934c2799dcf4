#include "hid/ModuleTypes.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace drav {
namespace {

TEST(ModuleTypesTest, ModelsWithoutClassHaveSectionsButNoLogWord) {
  for (std::uint32_t type : {kModuleGFATC, kModuleGFFMC, kModuleGFTPM}) {
    EXPECT_FALSE(HasModuleClass(type)) << type;
    EXPECT_STREQ(ModelWord(type), "Unknown") << type;
  }
  EXPECT_STREQ(SectionFormat(kModuleGFATC), "GFATC_%d");
  EXPECT_STREQ(ModelName(kModuleGFTPM), "GF-TPM");
}

TEST(ModuleTypesTest, SectionIsTheLogWordAndTheUnitForEveryModelWithClass) {
  int withClass = 0;
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    if (!HasModuleClass(type)) continue;
    ++withClass;
    char section[32];
    std::snprintf(section, sizeof section, SectionFormat(type), 2);
    EXPECT_EQ(std::string(section), std::string(ModelWord(type)) + "_2");
  }
  EXPECT_EQ(withClass, 16);
  EXPECT_STREQ(ModelName(kModuleGFMCPPro), "GF-MCPPro");
  EXPECT_STREQ(SectionFormat(kModuleGFMCPPro), "GFMCPPro_%d");
}

TEST(ModuleTypesTest, NumbersOutsideTheModelsGetTheNoneRow) {
  for (std::uint32_t type : {0u, 20u, 0xFFFF'FFFFu}) {
    EXPECT_FALSE(IsKnownModuleType(type));
    EXPECT_EQ(GetModuleTypeInfo(type).type, kModuleNone);
    EXPECT_STREQ(SectionFormat(type), "NONE");
    EXPECT_STREQ(ModelWord(type), "Unknown");
    EXPECT_FALSE(HasModuleClass(type));
  }
}

}  // namespace
}  // namespace drav
