// The panel models as numbers. What a number stands for (names, section, product id, device class)
// is its model's row, written in the model's own file (ModelTable.h, src/modules/ModuleRegistry.h).
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

// True for 1..19.
bool IsKnownModuleType(std::uint32_t type);


}  // namespace drav
