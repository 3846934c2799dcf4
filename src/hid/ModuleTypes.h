// The panel models as numbers, and the one table of facts that every subsystem needs about them:
// the name shown to the pilot, the word used in the device log, the configuration section of a unit
// and whether the model has a module class.
#pragma once

#include <cstdint>

namespace drav {

// The numbers are fixed: the device layer, the configuration file and the dialog all use them.
enum ModuleType : std::uint32_t {
  kModuleNone = 0,
  kModuleGF45 = 1,
  kModuleGFP8 = 2,
  kModuleGFT8 = 3,
  kModuleGFLGT = 4,
  kModuleGF166 = 5,
  kModuleGFMCP = 6,
  kModuleGFRP48 = 7,
  kModuleGF46 = 8,
  kModuleGFTQ6 = 9,
  kModuleGFATC = 10,
  kModuleGFLGT2 = 11,
  kModuleGFMCPPro = 12,
  kModuleGFEFIS = 13,
  kModuleGFSECM = 14,
  kModuleGFFMC = 15,
  kModuleGFTPM = 16,
  kModuleGFMESM = 17,
  kModuleGFWCP = 18,
  kModuleGFDIO = 19,
};

inline constexpr std::uint32_t kFirstModuleType = kModuleGF45;
inline constexpr std::uint32_t kLastModuleType = kModuleGFDIO;

// "Up to 32 units of one model can be connected at once": no model table has more slots.
inline constexpr std::int32_t kMaxUnitsPerModel = 32;

struct ModuleTypeInfo {
  ModuleType type;
  const char* modelName;      // "GF-45": how the pilot knows the panel
  const char* modelWord;      // "GF45": the device log's word; "Unknown" for models without class
  const char* sectionFormat;  // "GF45_%d": the unit's configuration section, unit counted from 1
  bool hasModuleClass;
};

// True for 1..19.
bool IsKnownModuleType(std::uint32_t type);

// The row of `type`; any number outside 1..19 gets the "NONE" row (type kModuleNone, model word
// "Unknown", no module class), so callers never need a range check of their own.
const ModuleTypeInfo& GetModuleTypeInfo(std::uint32_t type);

const char* ModelName(std::uint32_t type);
const char* ModelWord(std::uint32_t type);
const char* SectionFormat(std::uint32_t type);
bool HasModuleClass(std::uint32_t type);

}  // namespace drav
