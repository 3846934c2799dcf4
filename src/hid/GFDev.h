// The device layer's flat access interface: one group of functions per model, addressing a unit by
// its number, plus the single input callback and the device-information queries. Each per-model
// function makes the unit's port (UnitPort.h) and asks it; the modules hold their units' ports
// and call them directly.
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

// (moduleType, unit, model's input record); the result is ignored, except kGFDevInputRefused.
using GFDevInputCallback = int (*)(std::uint32_t moduleType, std::uint16_t unit, const void* record);
// A callback's answer when it could not take the record (nothing of it was used, its queue is
// full): the layer hands the unit's newest state again once there may be room, so that no switch
// is left where it was when its change was refused.
inline constexpr int kGFDevInputRefused = -1;

// instance: the plug-in module's handle on Windows (0: no notification window, no hot-plug).
std::int32_t GFDev_Start(void* instance);
std::int32_t GFDev_Stop();
std::int32_t GFDev_RegisterInputCallback(GFDevInputCallback callback);
// Called by the decoders on the read threads: hands one record to the callback under the input
// mutex, waiting at most 1000 ms for it (else the record is dropped). False when the record was
// not taken (the wait ran out, or the callback answered kGFDevInputRefused).
bool GFDev_DeliverInput(std::uint32_t moduleType, std::uint16_t unit, const void* record);

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

// A unit's slot holding this path (compared ignoring case): 0 and *unit set, or 3 (also for a model
// without a table). *unit is -1 unless found.
std::int32_t GFDev_FindUnitByPath(std::uint32_t moduleType, const char* path, std::int32_t* unit);

// ---- per-model operations ------------------------------------------------------------------------
// Every one takes the unit number first and answers 1 for a unit outside the model's slots, 3 for an
// empty slot or an unplugged unit, else the operation's own result. Texts are zero-terminated
// (null is blank). Out pointers are optional: a null one is skipped. Values marked "cleared" are
// set to 0 in the unit once returned, so that the next call returns only what arrived since.

// GF-45: display 1 four sixteen-segment characters, display 2 five digits.
std::int32_t GFDev_GF45_SetDisplay1(std::int32_t unit, const char* text);
std::int32_t GFDev_GF45_SetDisplay2(std::int32_t unit, const char* text);

// GF-46: display 1 four sixteen-segment characters, display 2 six digits.
std::int32_t GFDev_GF46_SetDisplay1(std::int32_t unit, const char* text);
std::int32_t GFDev_GF46_SetDisplay2(std::int32_t unit, const char* text);

// GF-166: the two encoder values (each cleared when returned) and the button byte.
std::int32_t GFDev_GF166_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                  std::uint8_t* buttons);
std::int32_t GFDev_GF166_SetEncoderType(std::int32_t unit, std::uint8_t first, std::uint8_t second);
std::int32_t GFDev_GF166_SetLEDs(std::int32_t unit, std::uint8_t mask);
std::int32_t GFDev_GF166_SetDisplay1(std::int32_t unit, const char* text);
std::int32_t GFDev_GF166_SetDisplay2(std::int32_t unit, const char* text);

// GF-P8 and GF-T8: the switch byte; the indicator mask.
std::int32_t GFDev_GFP8_GetSwitches(std::int32_t unit, std::uint8_t* switches);
std::int32_t GFDev_GFP8_SetLEDs(std::int32_t unit, std::uint8_t mask);
std::int32_t GFDev_GFT8_GetSwitches(std::int32_t unit, std::uint8_t* switches);
std::int32_t GFDev_GFT8_SetLEDs(std::int32_t unit, std::uint8_t mask);

// GF-RP48: four encoder values (each cleared when returned) and the button byte.
std::int32_t GFDev_GFRP48_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                   std::int16_t* encoder3, std::int16_t* encoder4, std::uint8_t* buttons);
std::int32_t GFDev_GFRP48_SetLEDs(std::int32_t unit, std::uint8_t mask);

// GF-LGT: the value (cleared even when not returned) and the switch byte; the lowest two lights
// are always on.
std::int32_t GFDev_GFLGT_GetState(std::int32_t unit, std::int16_t* value, std::uint8_t* switches);
std::int32_t GFDev_GFLGT_SetLEDs(std::int32_t unit, std::uint8_t mask);

// GF-LGT2: three values (cleared even when not returned) and the switch byte.
std::int32_t GFDev_GFLGT2_GetState(std::int32_t unit, std::int16_t* value1, std::int16_t* value2,
                                   std::int16_t* value3, std::uint8_t* switches);
std::int32_t GFDev_GFLGT2_SetLEDs(std::int32_t unit, std::uint8_t mask);

// GF-MCP: five encoder values (each cleared when returned) and two button bytes; displays 1..5
// of 3, 3, 3, 6 and 6 digits.
std::int32_t GFDev_GFMCP_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                  std::int16_t* encoder3, std::int16_t* encoder4, std::int16_t* encoder5,
                                  std::uint8_t* buttons1, std::uint8_t* buttons2);
std::int32_t GFDev_GFMCP_SetLEDs(std::int32_t unit, std::uint8_t mask);
std::int32_t GFDev_GFMCP_SetDisplay1(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCP_SetDisplay2(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCP_SetDisplay3(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCP_SetDisplay4(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCP_SetDisplay5(std::int32_t unit, const char* text);

// GF-MCPPro: six encoder values (each cleared when returned) and 32 switch bits; 32 indicator bits;
// displays 1..6 of 3, 5, 5, 5, 5 and 3 digits.
std::int32_t GFDev_GFMCPPro_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                     std::int16_t* encoder3, std::int16_t* encoder4, std::int16_t* encoder5,
                                     std::int16_t* encoder6, std::uint32_t* switches);
std::int32_t GFDev_GFMCPPro_SetLEDs(std::int32_t unit, std::uint32_t mask);
std::int32_t GFDev_GFMCPPro_SetDisplay1(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCPPro_SetDisplay2(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCPPro_SetDisplay3(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCPPro_SetDisplay4(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCPPro_SetDisplay5(std::int32_t unit, const char* text);
std::int32_t GFDev_GFMCPPro_SetDisplay6(std::int32_t unit, const char* text);

// GF-EFIS: the two encoder values (each cleared when returned), the switch word and selector byte.
std::int32_t GFDev_GFEFIS_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                   std::uint16_t* switches, std::uint8_t* selectors);

// GF-SECM: the four state bytes and the switch word.
std::int32_t GFDev_GFSECM_GetState(std::int32_t unit, std::uint8_t* rotary, std::uint8_t* second,
                                   std::uint8_t* third, std::uint8_t* fourth, std::uint16_t* switches);

// GF-MESM: the three selector values.
std::int32_t GFDev_GFMESM_GetState(std::int32_t unit, std::uint8_t* value1, std::uint8_t* value2,
                                   std::uint8_t* value3);

// GF-WCP: the switch byte; the colour (0..7) of indicator 1..6: 11 for another indicator, 0 with
// nothing sent for a colour of 8 or more.
std::int32_t GFDev_GFWCP_GetSwitches(std::int32_t unit, std::uint8_t* switches);
std::int32_t GFDev_GFWCP_SetLEDColour(std::int32_t unit, std::uint8_t indicator, std::uint8_t colour);

// GF-DIO: the seven state bytes (nothing at all is written, and 0 answered, when the first pointer
// is null); the four output bytes.
std::int32_t GFDev_GFDIO_GetState(std::int32_t unit, std::uint8_t* state1, std::uint8_t* state2,
                                  std::uint8_t* state3, std::uint8_t* state4, std::uint8_t* state5,
                                  std::uint8_t* state6, std::uint8_t* state7);
std::int32_t GFDev_GFDIO_SetOutputs(std::int32_t unit, std::uint8_t output1, std::uint8_t output2,
                                    std::uint8_t output3, std::uint8_t output4);

}  // namespace drav
