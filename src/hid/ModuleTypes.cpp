#include "hid/ModuleTypes.h"

#include <array>

namespace drav {

namespace {

// Indexed by the type number; row 0 answers for every number that is not a model.
constexpr std::array<ModuleTypeInfo, kLastModuleType + 1> kModuleTypeTable = {{
    {kModuleNone, "NONE", "Unknown", "NONE", false},
    {kModuleGF45, "GF-45", "GF45", "GF45_%d", true},
    {kModuleGFP8, "GF-P8", "GFP8", "GFP8_%d", true},
    {kModuleGFT8, "GF-T8", "GFT8", "GFT8_%d", true},
    {kModuleGFLGT, "GF-LGT", "GFLGT", "GFLGT_%d", true},
    {kModuleGF166, "GF-166", "GF166", "GF166_%d", true},
    {kModuleGFMCP, "GF-MCP", "GFMCP", "GFMCP_%d", true},
    {kModuleGFRP48, "GF-RP48", "GFRP48", "GFRP48_%d", true},
    {kModuleGF46, "GF-46", "GF46", "GF46_%d", true},
    {kModuleGFTQ6, "GF-TQ6", "GFTQ6", "GFTQ6_%d", true},
    {kModuleGFATC, "GF-ATC", "Unknown", "GFATC_%d", false},
    {kModuleGFLGT2, "GF-LGT2", "GFLGT2", "GFLGT2_%d", true},
    {kModuleGFMCPPro, "GF-MCPPro", "GFMCPPro", "GFMCPPro_%d", true},
    {kModuleGFEFIS, "GF-EFIS", "GFEFIS", "GFEFIS_%d", true},
    {kModuleGFSECM, "GF-SECM", "GFSECM", "GFSECM_%d", true},
    {kModuleGFFMC, "GF-FMC", "Unknown", "GFFMC_%d", false},
    {kModuleGFTPM, "GF-TPM", "Unknown", "GFTPM_%d", false},
    {kModuleGFMESM, "GF-MESM", "GFMESM", "GFMESM_%d", true},
    {kModuleGFWCP, "GF-WCP", "GFWCP", "GFWCP_%d", true},
    {kModuleGFDIO, "GF-DIO", "GFDIO", "GFDIO_%d", true},
}};

constexpr bool RowsMatchTheirIndex() {
  for (std::uint32_t i = 0; i < kModuleTypeTable.size(); ++i) {
    if (kModuleTypeTable[i].type != i) return false;
  }
  return true;
}
static_assert(RowsMatchTheirIndex(), "the table is indexed by the type number");

}  // namespace

bool IsKnownModuleType(std::uint32_t type) {
  return type >= kFirstModuleType && type <= kLastModuleType;
}

const ModuleTypeInfo& GetModuleTypeInfo(std::uint32_t type) {
  return kModuleTypeTable[IsKnownModuleType(type) ? type : kModuleNone];
}

const char* ModelName(std::uint32_t type) { return GetModuleTypeInfo(type).modelName; }
const char* ModelWord(std::uint32_t type) { return GetModuleTypeInfo(type).modelWord; }
const char* SectionFormat(std::uint32_t type) { return GetModuleTypeInfo(type).sectionFormat; }
bool HasModuleClass(std::uint32_t type) { return GetModuleTypeInfo(type).hasModuleClass; }

}  // namespace drav
