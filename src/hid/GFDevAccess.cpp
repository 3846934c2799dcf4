// The per-model flat functions of the access interface, kept because the device layer's callers,
// dravsim and the tests address units by number: each makes the unit's port and asks it. The
// getters' optional out arguments (a null one is skipped, and a count it would have taken is not
// cleared) are theirs alone; the modules take whole records from their ports.
//
// Main thread only, like the tables the ports read. The getters take the object's state lock
// because the read thread writes the same state.
#include <cstdint>

#include "hid/DeviceObject.h"
#include "hid/GFDev.h"
#include "hid/InputRecords.h"
#include "hid/ModuleTypes.h"
#include "hid/UnitPort.h"

namespace drav {

namespace {

// Runs read(Record&) on a present unit's state under its state lock.
template <typename Record, typename Read>
std::int32_t ReadState(std::uint32_t moduleType, std::int32_t unit, Read&& read) {
  std::int32_t result = kGFDevDone;
  DeviceObject* object = UnitPort(moduleType, unit).PresentObject(result);
  if (object == nullptr) return result;
  object->EditState<Record>(read);
  return kGFDevDone;
}

// Writes a value to an optional out pointer; true when it was written.
template <typename T, typename V>
bool Give(T* out, V value) {
  if (out == nullptr) return false;
  *out = static_cast<T>(value);
  return true;
}

// Returns a value that counts steps and clears it once returned.
template <typename T>
void GiveAndClear(T* out, std::int16_t& value) {
  if (Give(out, value)) value = 0;
}

std::int32_t GetSwitchByte(std::uint32_t moduleType, std::int32_t unit, std::uint8_t* switches) {
  return ReadState<GFSwitchByteInputRecord>(moduleType, unit,
                                            [&](GFSwitchByteInputRecord& state) { Give(switches, state.switches); });
}

}  // namespace

// ---- GF-45 and GF-46 ----------------------------------------------------------------------------

std::int32_t GFDev_GF45_SetDisplay1(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGF45, unit).SetDisplay(1, text);
}
std::int32_t GFDev_GF45_SetDisplay2(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGF45, unit).SetDisplay(2, text);
}
std::int32_t GFDev_GF45_SetBrightness(std::int32_t unit, std::int32_t value) {
  return UnitPort(kModuleGF45, unit).SetBrightness(value);
}

std::int32_t GFDev_GF46_SetDisplay1(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGF46, unit).SetDisplay(1, text);
}
std::int32_t GFDev_GF46_SetDisplay2(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGF46, unit).SetDisplay(2, text);
}
std::int32_t GFDev_GF46_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGF46, unit).GetBrightness(out);
}
std::int32_t GFDev_GF46_SetBrightness(std::int32_t unit, std::int32_t value) {
  return UnitPort(kModuleGF46, unit).SetBrightness(value);
}

// ---- GF-166 ---------------------------------------------------------------------------------------

std::int32_t GFDev_GF166_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                  std::uint8_t* buttons) {
  return ReadState<GF166InputRecord>(kModuleGF166, unit, [&](GF166InputRecord& state) {
    GiveAndClear(encoder1, state.encoder1);
    GiveAndClear(encoder2, state.encoder2);
    Give(buttons, state.buttons);
  });
}
std::int32_t GFDev_GF166_SetEncoderType(std::int32_t unit, std::uint8_t first, std::uint8_t second) {
  return UnitPort(kModuleGF166, unit).SetEncoderType(first, second);
}
std::int32_t GFDev_GF166_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return UnitPort(kModuleGF166, unit).SetIndicators(mask);
}
std::int32_t GFDev_GF166_SetDisplay1(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGF166, unit).SetDisplay(1, text);
}
std::int32_t GFDev_GF166_SetDisplay2(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGF166, unit).SetDisplay(2, text);
}
std::int32_t GFDev_GF166_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGF166, unit).GetBrightness(out);
}
std::int32_t GFDev_GF166_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGF166, unit).SetBrightness(value);
}

// ---- GF-P8, GF-T8, GF-RP48 ------------------------------------------------------------------------

std::int32_t GFDev_GFP8_GetSwitches(std::int32_t unit, std::uint8_t* switches) {
  return GetSwitchByte(kModuleGFP8, unit, switches);
}
std::int32_t GFDev_GFP8_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return UnitPort(kModuleGFP8, unit).SetIndicators(mask);
}
std::int32_t GFDev_GFP8_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGFP8, unit).GetBrightness(out);
}
std::int32_t GFDev_GFP8_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFP8, unit).SetBrightness(value);
}

std::int32_t GFDev_GFT8_GetSwitches(std::int32_t unit, std::uint8_t* switches) {
  return GetSwitchByte(kModuleGFT8, unit, switches);
}
std::int32_t GFDev_GFT8_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return UnitPort(kModuleGFT8, unit).SetIndicators(mask);
}
std::int32_t GFDev_GFT8_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGFT8, unit).GetBrightness(out);
}
std::int32_t GFDev_GFT8_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFT8, unit).SetBrightness(value);
}

std::int32_t GFDev_GFRP48_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                   std::int16_t* encoder3, std::int16_t* encoder4, std::uint8_t* buttons) {
  return ReadState<GFRP48InputRecord>(kModuleGFRP48, unit, [&](GFRP48InputRecord& state) {
    GiveAndClear(encoder1, state.encoders[0]);
    GiveAndClear(encoder2, state.encoders[1]);
    GiveAndClear(encoder3, state.encoders[2]);
    GiveAndClear(encoder4, state.encoders[3]);
    Give(buttons, state.buttons);
  });
}
std::int32_t GFDev_GFRP48_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return UnitPort(kModuleGFRP48, unit).SetIndicators(mask);
}
std::int32_t GFDev_GFRP48_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGFRP48, unit).GetBrightness(out);
}
std::int32_t GFDev_GFRP48_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFRP48, unit).SetBrightness(value);
}

// ---- GF-LGT and GF-LGT2: their values are cleared even when the caller did not take them ------------

std::int32_t GFDev_GFLGT_GetState(std::int32_t unit, std::int16_t* value, std::uint8_t* switches) {
  return ReadState<GFLGTInputRecord>(kModuleGFLGT, unit, [&](GFLGTInputRecord& state) {
    Give(value, state.value);
    Give(switches, state.switches);
    state.value = 0;
  });
}
std::int32_t GFDev_GFLGT_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return UnitPort(kModuleGFLGT, unit).SetIndicators(mask);
}
std::int32_t GFDev_GFLGT_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGFLGT, unit).GetBrightness(out);
}
std::int32_t GFDev_GFLGT_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFLGT, unit).SetBrightness(value);
}

std::int32_t GFDev_GFLGT2_GetState(std::int32_t unit, std::int16_t* value1, std::int16_t* value2,
                                   std::int16_t* value3, std::uint8_t* switches) {
  return ReadState<GFLGT2InputRecord>(kModuleGFLGT2, unit, [&](GFLGT2InputRecord& state) {
    Give(value1, state.values[0]);
    Give(value2, state.values[1]);
    Give(value3, state.values[2]);
    Give(switches, state.switches);
    state.values[0] = state.values[1] = state.values[2] = 0;
  });
}
std::int32_t GFDev_GFLGT2_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return UnitPort(kModuleGFLGT2, unit).SetIndicators(mask);
}
std::int32_t GFDev_GFLGT2_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGFLGT2, unit).GetBrightness(out);
}
std::int32_t GFDev_GFLGT2_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFLGT2, unit).SetBrightness(value);
}

// ---- GF-MCP and GF-MCPPro -------------------------------------------------------------------------

std::int32_t GFDev_GFMCP_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                  std::int16_t* encoder3, std::int16_t* encoder4, std::int16_t* encoder5,
                                  std::uint8_t* buttons1, std::uint8_t* buttons2) {
  return ReadState<GFMCPInputRecord>(kModuleGFMCP, unit, [&](GFMCPInputRecord& state) {
    GiveAndClear(encoder1, state.encoders[0]);
    GiveAndClear(encoder2, state.encoders[1]);
    GiveAndClear(encoder3, state.encoders[2]);
    GiveAndClear(encoder4, state.encoders[3]);
    GiveAndClear(encoder5, state.encoders[4]);
    Give(buttons1, state.buttons1);
    Give(buttons2, state.buttons2);
  });
}
std::int32_t GFDev_GFMCP_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return UnitPort(kModuleGFMCP, unit).SetIndicators(mask);
}
std::int32_t GFDev_GFMCP_SetDisplay1(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCP, unit).SetDisplay(1, text);
}
std::int32_t GFDev_GFMCP_SetDisplay2(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCP, unit).SetDisplay(2, text);
}
std::int32_t GFDev_GFMCP_SetDisplay3(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCP, unit).SetDisplay(3, text);
}
std::int32_t GFDev_GFMCP_SetDisplay4(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCP, unit).SetDisplay(4, text);
}
std::int32_t GFDev_GFMCP_SetDisplay5(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCP, unit).SetDisplay(5, text);
}
std::int32_t GFDev_GFMCP_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGFMCP, unit).GetBrightness(out);
}
std::int32_t GFDev_GFMCP_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFMCP, unit).SetBrightness(value);
}

std::int32_t GFDev_GFMCPPro_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                     std::int16_t* encoder3, std::int16_t* encoder4, std::int16_t* encoder5,
                                     std::int16_t* encoder6, std::uint32_t* switches) {
  return ReadState<GFMCPProInputRecord>(kModuleGFMCPPro, unit, [&](GFMCPProInputRecord& state) {
    std::int16_t* outs[] = {encoder1, encoder2, encoder3, encoder4, encoder5, encoder6};
    for (std::size_t i = 0; i < 6; ++i) GiveAndClear(outs[i], state.encoders[i]);
    Give(switches, state.switches);
  });
}
std::int32_t GFDev_GFMCPPro_SetLEDs(std::int32_t unit, std::uint32_t mask) {
  return UnitPort(kModuleGFMCPPro, unit).SetIndicators(mask);
}
std::int32_t GFDev_GFMCPPro_SetDisplay1(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCPPro, unit).SetDisplay(1, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay2(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCPPro, unit).SetDisplay(2, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay3(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCPPro, unit).SetDisplay(3, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay4(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCPPro, unit).SetDisplay(4, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay5(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCPPro, unit).SetDisplay(5, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay6(std::int32_t unit, const char* text) {
  return UnitPort(kModuleGFMCPPro, unit).SetDisplay(6, text);
}
std::int32_t GFDev_GFMCPPro_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return UnitPort(kModuleGFMCPPro, unit).GetBrightness(out);
}
std::int32_t GFDev_GFMCPPro_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFMCPPro, unit).SetBrightness(value);
}

// ---- GF-EFIS, GF-SECM, GF-MESM --------------------------------------------------------------------

std::int32_t GFDev_GFEFIS_GetState(std::int32_t unit, std::int16_t* encoder1, std::int16_t* encoder2,
                                   std::uint16_t* switches, std::uint8_t* selectors) {
  return ReadState<GFEFISInputRecord>(kModuleGFEFIS, unit, [&](GFEFISInputRecord& state) {
    GiveAndClear(encoder1, state.encoder1);
    GiveAndClear(encoder2, state.encoder2);
    Give(switches, state.switches);
    Give(selectors, state.selectors);
  });
}

std::int32_t GFDev_GFSECM_GetState(std::int32_t unit, std::uint8_t* rotary, std::uint8_t* second,
                                   std::uint8_t* third, std::uint8_t* fourth, std::uint16_t* switches) {
  return ReadState<GFSECMInputRecord>(kModuleGFSECM, unit, [&](GFSECMInputRecord& state) {
    Give(rotary, state.rotary);
    Give(second, state.second);
    Give(third, state.third);
    Give(fourth, state.fourth);
    Give(switches, state.switches);
  });
}

std::int32_t GFDev_GFMESM_GetState(std::int32_t unit, std::uint8_t* value1, std::uint8_t* value2,
                                   std::uint8_t* value3) {
  return ReadState<GFMESMInputRecord>(kModuleGFMESM, unit, [&](GFMESMInputRecord& state) {
    Give(value1, state.values[0]);
    Give(value2, state.values[1]);
    Give(value3, state.values[2]);
  });
}

// ---- GF-WCP -----------------------------------------------------------------------------------------

std::int32_t GFDev_GFWCP_GetSwitches(std::int32_t unit, std::uint8_t* switches) {
  return GetSwitchByte(kModuleGFWCP, unit, switches);
}
std::int32_t GFDev_GFWCP_GetBrightness(std::int32_t unit, std::uint32_t* out) {
  return UnitPort(kModuleGFWCP, unit).GetBrightness(out);
}
std::int32_t GFDev_GFWCP_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return UnitPort(kModuleGFWCP, unit).SetBrightness(value);
}
std::int32_t GFDev_GFWCP_SetLEDColour(std::int32_t unit, std::uint8_t indicator, std::uint8_t colour) {
  return UnitPort(kModuleGFWCP, unit).SetIndicatorColour(indicator, colour);
}

// ---- GF-DIO -----------------------------------------------------------------------------------------

std::int32_t GFDev_GFDIO_GetState(std::int32_t unit, std::uint8_t* state1, std::uint8_t* state2,
                                  std::uint8_t* state3, std::uint8_t* state4, std::uint8_t* state5,
                                  std::uint8_t* state6, std::uint8_t* state7) {
  return ReadState<GFDIOInputRecord>(kModuleGFDIO, unit, [&](GFDIOInputRecord& state) {
    if (state1 == nullptr) return;  // the first pointer decides for all seven
    std::uint8_t* outs[] = {state1, state2, state3, state4, state5, state6, state7};
    for (std::size_t i = 0; i < 7; ++i) Give(outs[i], state.states[i]);
  });
}
std::int32_t GFDev_GFDIO_SetOutputs(std::int32_t unit, std::uint8_t output1, std::uint8_t output2,
                                    std::uint8_t output3, std::uint8_t output4) {
  return UnitPort(kModuleGFDIO, unit).SetOutputs({output1, output2, output3, output4});
}

}  // namespace drav
