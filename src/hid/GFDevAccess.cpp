// The per-model functions of the access interface: each checks the unit number, finds the unit's
// device object and runs the model's encoder, getter or feature read on it.
//
// Main thread only, like the tables they read. The getters take the object's state lock because the
// read thread writes the same state.
#include <array>
#include <cstdint>
#include <span>

#include "hid/DeviceObject.h"
#include "hid/DeviceTables.h"
#include "hid/GFDev.h"
#include "hid/InputRecords.h"
#include "hid/ModelTable.h"
#include "hid/ReportEncoders.h"

namespace drav {

namespace {

using ReportBuffer = std::array<std::uint8_t, kMaxFixedReportLength>;

// The object in the unit's slot, or the answer for a unit out of range (1) or an empty slot (3).
DeviceObject* LookUp(std::uint32_t moduleType, std::int32_t unit, std::int32_t& result) {
  const PanelModel* model = FindPanelModel(moduleType);
  if (model == nullptr || unit < 0 || unit >= model->slots) {
    result = kGFDevUnitOutOfRange;
    return nullptr;
  }
  DeviceObject* object = TheDeviceTables().At(moduleType, unit);
  result = object == nullptr ? kGFDevNoDevice : kGFDevDone;
  return object;
}

// Runs op(object) for a present unit; an unplugged one answers 3.
template <typename Op>
std::int32_t WithPresentUnit(std::uint32_t moduleType, std::int32_t unit, Op&& op) {
  std::int32_t result = kGFDevDone;
  DeviceObject* object = LookUp(moduleType, unit, result);
  if (object == nullptr) return result;
  if (!object->Present()) return kGFDevNoDevice;
  return op(*object);
}

// Queues what an encoder built; an encoder that could build nothing answers 2. A full queue drops
// the report silently: the caller still sees success.
std::int32_t Queue(DeviceObject& object, const ReportBuffer& report, std::size_t length) {
  if (length == 0) return kGFDevNoMemory;
  object.Enqueue({report.data(), length});
  return kGFDevDone;
}

// Builds one report with encode(span) -> length and queues it on a present unit.
template <typename Encode>
std::int32_t SendReport(std::uint32_t moduleType, std::int32_t unit, Encode&& encode) {
  return WithPresentUnit(moduleType, unit, [&](DeviceObject& object) {
    ReportBuffer report{};
    return Queue(object, report, encode(std::span<std::uint8_t>(report)));
  });
}

// Brightness setters answer 0 for an unplugged unit: the level is simply not sent.
std::int32_t SetBrightness(std::uint32_t moduleType, std::int32_t unit, std::uint8_t reportId, std::int32_t value) {
  std::int32_t result = kGFDevDone;
  DeviceObject* object = LookUp(moduleType, unit, result);
  if (object == nullptr) return result;
  if (!object->Present()) return kGFDevDone;
  ReportBuffer report{};
  return Queue(*object, report, EncodeBrightness(report, reportId, value));
}

// Reads the brightness feature report from the unit (through its write thread, never waiting on a
// stalled unit); the caller's value is written only on success.
std::int32_t GetBrightness(std::uint32_t moduleType, std::int32_t unit, std::uint8_t reportId, std::uint16_t* out) {
  return WithPresentUnit(moduleType, unit, [&](DeviceObject& object) {
    std::array<std::uint8_t, 2> report{reportId, 0};
    if (!object.ReadFeatureBounded(report.data(), report.size())) return std::int32_t{kGFDevFeatureReadFailed};
    object.Outputs().brightness = report[1];
    if (out != nullptr) *out = report[1];
    return std::int32_t{kGFDevDone};
  });
}

template <typename Record, typename Read>
std::int32_t ReadState(std::uint32_t moduleType, std::int32_t unit, Read&& read) {
  return WithPresentUnit(moduleType, unit, [&](DeviceObject& object) {
    object.EditState<Record>(read);
    return std::int32_t{kGFDevDone};
  });
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

template <std::size_t (*Encode)(std::span<std::uint8_t>, int, const char*)>
std::int32_t SetForwardDisplay(std::uint32_t moduleType, std::int32_t unit, int display, const char* text) {
  return SendReport(moduleType, unit, [&](std::span<std::uint8_t> out) { return Encode(out, display, text); });
}

}  // namespace

// ---- GF-45 and GF-46 ----------------------------------------------------------------------------

std::int32_t GFDev_GF45_SetDisplay1(std::int32_t unit, const char* text) {
  return SendReport(kModuleGF45, unit, [&](std::span<std::uint8_t> out) { return EncodeSixteenSegmentDisplay(out, text); });
}
std::int32_t GFDev_GF45_SetDisplay2(std::int32_t unit, const char* text) {
  return SendReport(kModuleGF45, unit, [&](std::span<std::uint8_t> out) { return EncodeGF45Display2(out, text); });
}
std::int32_t GFDev_GF45_SetBrightness(std::int32_t unit, std::int32_t value) {
  return SetBrightness(kModuleGF45, unit, kGF45BrightnessReport, value);
}

std::int32_t GFDev_GF46_SetDisplay1(std::int32_t unit, const char* text) {
  return SendReport(kModuleGF46, unit, [&](std::span<std::uint8_t> out) { return EncodeSixteenSegmentDisplay(out, text); });
}
std::int32_t GFDev_GF46_SetDisplay2(std::int32_t unit, const char* text) {
  return SendReport(kModuleGF46, unit, [&](std::span<std::uint8_t> out) { return EncodeGF46Display2(out, text); });
}
std::int32_t GFDev_GF46_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGF46, unit, kGF46BrightnessReport, out);
}
std::int32_t GFDev_GF46_SetBrightness(std::int32_t unit, std::int32_t value) {
  return SetBrightness(kModuleGF46, unit, kGF46BrightnessReport, value);
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
  return SendReport(kModuleGF166, unit,
                    [&](std::span<std::uint8_t> out) { return EncodeGF166EncoderType(out, first, second); });
}
std::int32_t GFDev_GF166_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return SendReport(kModuleGF166, unit,
                    [&](std::span<std::uint8_t> out) { return EncodeIndicatorByte(out, kGF166IndicatorReport, mask); });
}
std::int32_t GFDev_GF166_SetDisplay1(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGF166Display>(kModuleGF166, unit, 1, text);
}
std::int32_t GFDev_GF166_SetDisplay2(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGF166Display>(kModuleGF166, unit, 2, text);
}
std::int32_t GFDev_GF166_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGF166, unit, kGF166BrightnessReport, out);
}
std::int32_t GFDev_GF166_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGF166, unit, kGF166BrightnessReport, value);
}

// ---- GF-P8, GF-T8, GF-RP48 ------------------------------------------------------------------------

namespace {

std::int32_t GetSwitchByte(std::uint32_t moduleType, std::int32_t unit, std::uint8_t* switches) {
  return ReadState<GFSwitchByteInputRecord>(moduleType, unit,
                                            [&](GFSwitchByteInputRecord& state) { Give(switches, state.switches); });
}

std::int32_t SetIndicatorByte(std::uint32_t moduleType, std::int32_t unit, std::uint8_t reportId, std::uint8_t mask) {
  return SendReport(moduleType, unit,
                    [&](std::span<std::uint8_t> out) { return EncodeIndicatorByte(out, reportId, mask); });
}

}  // namespace

std::int32_t GFDev_GFP8_GetSwitches(std::int32_t unit, std::uint8_t* switches) {
  return GetSwitchByte(kModuleGFP8, unit, switches);
}
std::int32_t GFDev_GFP8_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return SetIndicatorByte(kModuleGFP8, unit, kGFSwitchPanelIndicatorReport, mask);
}
std::int32_t GFDev_GFP8_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGFP8, unit, kGFSwitchPanelBrightnessReport, out);
}
std::int32_t GFDev_GFP8_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGFP8, unit, kGFSwitchPanelBrightnessReport, value);
}

std::int32_t GFDev_GFT8_GetSwitches(std::int32_t unit, std::uint8_t* switches) {
  return GetSwitchByte(kModuleGFT8, unit, switches);
}
std::int32_t GFDev_GFT8_SetLEDs(std::int32_t unit, std::uint8_t mask) {
  return SetIndicatorByte(kModuleGFT8, unit, kGFSwitchPanelIndicatorReport, mask);
}
std::int32_t GFDev_GFT8_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGFT8, unit, kGFSwitchPanelBrightnessReport, out);
}
std::int32_t GFDev_GFT8_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGFT8, unit, kGFSwitchPanelBrightnessReport, value);
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
  return SetIndicatorByte(kModuleGFRP48, unit, kGFSwitchPanelIndicatorReport, mask);
}
std::int32_t GFDev_GFRP48_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGFRP48, unit, kGFSwitchPanelBrightnessReport, out);
}
std::int32_t GFDev_GFRP48_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGFRP48, unit, kGFSwitchPanelBrightnessReport, value);
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
  return SendReport(kModuleGFLGT, unit, [&](std::span<std::uint8_t> out) { return EncodeGFLGTIndicators(out, mask); });
}
std::int32_t GFDev_GFLGT_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGFLGT, unit, kGFSwitchPanelBrightnessReport, out);
}
std::int32_t GFDev_GFLGT_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGFLGT, unit, kGFSwitchPanelBrightnessReport, value);
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
  return SetIndicatorByte(kModuleGFLGT2, unit, kGFSwitchPanelIndicatorReport, mask);
}
std::int32_t GFDev_GFLGT2_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGFLGT2, unit, kGFSwitchPanelBrightnessReport, out);
}
std::int32_t GFDev_GFLGT2_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGFLGT2, unit, kGFSwitchPanelBrightnessReport, value);
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
  return SetIndicatorByte(kModuleGFMCP, unit, kGFMCPIndicatorReport, mask);
}
std::int32_t GFDev_GFMCP_SetDisplay1(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPDisplay>(kModuleGFMCP, unit, 1, text);
}
std::int32_t GFDev_GFMCP_SetDisplay2(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPDisplay>(kModuleGFMCP, unit, 2, text);
}
std::int32_t GFDev_GFMCP_SetDisplay3(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPDisplay>(kModuleGFMCP, unit, 3, text);
}
std::int32_t GFDev_GFMCP_SetDisplay4(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPDisplay>(kModuleGFMCP, unit, 4, text);
}
std::int32_t GFDev_GFMCP_SetDisplay5(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPDisplay>(kModuleGFMCP, unit, 5, text);
}
std::int32_t GFDev_GFMCP_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGFMCP, unit, kGFMCPBrightnessReport, out);
}
std::int32_t GFDev_GFMCP_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGFMCP, unit, kGFMCPBrightnessReport, value);
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
  return WithPresentUnit(kModuleGFMCPPro, unit, [&](DeviceObject& object) {
    ReportBuffer report{};
    const std::int32_t result = Queue(object, report, EncodeGFMCPProIndicators(report, mask));
    if (result == kGFDevDone) object.Outputs().mcpProIndicators = mask;
    return result;
  });
}
std::int32_t GFDev_GFMCPPro_SetDisplay1(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPProDisplay>(kModuleGFMCPPro, unit, 1, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay2(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPProDisplay>(kModuleGFMCPPro, unit, 2, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay3(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPProDisplay>(kModuleGFMCPPro, unit, 3, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay4(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPProDisplay>(kModuleGFMCPPro, unit, 4, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay5(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPProDisplay>(kModuleGFMCPPro, unit, 5, text);
}
std::int32_t GFDev_GFMCPPro_SetDisplay6(std::int32_t unit, const char* text) {
  return SetForwardDisplay<EncodeGFMCPProDisplay>(kModuleGFMCPPro, unit, 6, text);
}
std::int32_t GFDev_GFMCPPro_GetBrightness(std::int32_t unit, std::uint16_t* out) {
  return GetBrightness(kModuleGFMCPPro, unit, kGFMCPProBrightnessReport, out);
}
std::int32_t GFDev_GFMCPPro_SetBrightness(std::int32_t unit, std::uint16_t value) {
  return SetBrightness(kModuleGFMCPPro, unit, kGFMCPProBrightnessReport, value);
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
  return WithPresentUnit(kModuleGFWCP, unit, [&](DeviceObject& object) {
    Give(out, object.Outputs().wcpBrightness);
    return std::int32_t{kGFDevDone};
  });
}
std::int32_t GFDev_GFWCP_SetBrightness(std::int32_t unit, std::uint16_t value) {
  std::int32_t result = kGFDevDone;
  DeviceObject* object = LookUp(kModuleGFWCP, unit, result);
  if (object == nullptr) return result;
  if (object->Present()) object->SetWCPBrightness(value);
  return kGFDevDone;
}
std::int32_t GFDev_GFWCP_SetLEDColour(std::int32_t unit, std::uint8_t indicator, std::uint8_t colour) {
  return WithPresentUnit(kModuleGFWCP, unit, [&](DeviceObject& object) { return object.SetWCPColour(indicator, colour); });
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
  return WithPresentUnit(kModuleGFDIO, unit, [&](DeviceObject& object) {
    return object.SetDIOOutputs({output1, output2, output3, output4});
  });
}

}  // namespace drav
