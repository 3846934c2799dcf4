// The device layer's flat access interface: one group of functions per model, addressing a unit by
// its number, plus the single input callback and the device-information queries.
//
// Result codes of every function that returns a status.
#pragma once

#include <cstdint>

namespace drav {

enum GFDevResult : std::int32_t {
  kGFDevDone = 0,
  kGFDevUnitOutOfRange = 1,
  kGFDevNoMemory = 2,
  kGFDevNoDevice = 3,
  kGFDevFeatureReadFailed = 5,
  kGFDevBadArgument = 11,
};

#pragma pack(push, 1)
struct GFDevInfo {
  char path[260];
  std::uint16_t version;
};
static_assert(sizeof(GFDevInfo) == 262);

struct GFDevInfoEx {
  std::uint16_t size;  // the caller sets 331
  char path[260];
  std::uint16_t version;
  char serial[65];
  std::uint16_t outputReportLength;
};
static_assert(sizeof(GFDevInfoEx) == 331);
#pragma pack(pop)

inline constexpr std::uint16_t kGFDevInfoExSize = 331;

// (moduleType, unit, model's input record); the result is ignored.
using GFDevInputCallback = int (*)(std::uint32_t moduleType, std::uint16_t unit, const void* record);

// instance: the plug-in module's handle on Windows (0: no notification window, no hot-plug).
std::int32_t GFDev_Start(void* instance);
std::int32_t GFDev_Stop();
std::int32_t GFDev_RegisterInputCallback(GFDevInputCallback callback);
// Called by the decoders on the read threads: hands one record to the callback under the input
// mutex, waiting at most 1000 ms for it (else the record is dropped).
void GFDev_DeliverInput(std::uint32_t moduleType, std::uint16_t unit, const void* record);

std::int32_t GFDev_GetDeviceInfo(std::uint32_t moduleType, std::int32_t unit, GFDevInfo* out);
std::int32_t GFDev_GetDeviceInfoEx(std::uint32_t moduleType, std::int32_t unit, GFDevInfoEx* out);

// Present units of each model.
std::int32_t GFDev_GF45_Count();
std::int32_t GFDev_GF46_Count();
std::int32_t GFDev_GF166_Count();
std::int32_t GFDev_GFP8_Count();
std::int32_t GFDev_GFT8_Count();
std::int32_t GFDev_GFRP48_Count();
std::int32_t GFDev_GFLGT_Count();
std::int32_t GFDev_GFLGT2_Count();
std::int32_t GFDev_GFMCP_Count();
std::int32_t GFDev_GFMCPPro_Count();
std::int32_t GFDev_GFEFIS_Count();
std::int32_t GFDev_GFTQ6_Count();
std::int32_t GFDev_GFSECM_Count();
std::int32_t GFDev_GFMESM_Count();
std::int32_t GFDev_GFWCP_Count();
std::int32_t GFDev_GFDIO_Count();

// Display and light brightness. Getters read the unit (a feature report) and write *out only on
// success; setters answer 0 for an absent unit.
std::int32_t GFDev_GF45_SetBrightness(std::int32_t unit, std::int32_t value);
std::int32_t GFDev_GF46_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GF46_SetBrightness(std::int32_t unit, std::int32_t value);
std::int32_t GFDev_GF166_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GF166_SetBrightness(std::int32_t unit, std::uint16_t value);
std::int32_t GFDev_GFP8_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GFP8_SetBrightness(std::int32_t unit, std::uint16_t value);
std::int32_t GFDev_GFT8_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GFT8_SetBrightness(std::int32_t unit, std::uint16_t value);
std::int32_t GFDev_GFRP48_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GFRP48_SetBrightness(std::int32_t unit, std::uint16_t value);
std::int32_t GFDev_GFLGT_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GFLGT_SetBrightness(std::int32_t unit, std::uint16_t value);
std::int32_t GFDev_GFLGT2_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GFLGT2_SetBrightness(std::int32_t unit, std::uint16_t value);
std::int32_t GFDev_GFMCP_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GFMCP_SetBrightness(std::int32_t unit, std::uint16_t value);
std::int32_t GFDev_GFMCPPro_GetBrightness(std::int32_t unit, std::uint16_t* out);
std::int32_t GFDev_GFMCPPro_SetBrightness(std::int32_t unit, std::uint16_t value);
// The GF-WCP keeps its brightness in the device object (no device read).
std::int32_t GFDev_GFWCP_GetBrightness(std::int32_t unit, std::uint32_t* out);
std::int32_t GFDev_GFWCP_SetBrightness(std::int32_t unit, std::uint16_t value);

}  // namespace drav
