#include "hid/DeviceClasses.h"

#include <array>

#include "hid/InputRecords.h"

namespace drav {

namespace {

// Runs a typed decoder of ReportDecoders.h on the byte image of the state.
template <typename Record, InputDecode (*Decode)(const std::uint8_t*, std::size_t, Record&)>
InputDecode DecodeInto(const std::uint8_t* report, std::size_t length, LastInputState& state) {
  Record record = state.As<Record>();
  const InputDecode result = Decode(report, length, record);
  if (result != InputDecode::Ignored) state.Store(record);
  return result;
}

using namespace std::chrono_literals;
using WS = WriteStrategy;

constexpr std::uint16_t kModelQueue = 25;    // the per-model classes
constexpr std::uint16_t kSharedBaseQueue = 100;  // the units opened after entry

template <typename Record, InputDecode (*Decode)(const std::uint8_t*, std::size_t, Record&)>
constexpr StateDecoder kDecoder = &DecodeInto<Record, Decode>;

constexpr std::array<DeviceClass, 18> kDeviceClasses = {{
    {1, "cGF45", false, kModelQueue, WS::FeatureDrop, 0ms, kNoInitialQuery, false,
     kDecoder<GF45InputRecord, DecodeGF45Input>, nullptr, AfterOpen::Nothing, sizeof(GF45InputRecord)},
    {8, "cGF46", false, kModelQueue, WS::FeatureRetry, 0ms, kNoInitialQuery, false,
     kDecoder<GF46InputRecord, DecodeGF46Input>, nullptr, AfterOpen::Nothing, sizeof(GF46InputRecord)},
    {5, "cGF166", false, kModelQueue, WS::FeatureRetryThrice, 0ms, kGF166InitialQuery, true,
     kDecoder<GF166InputRecord, DecodeGF166Input>, kDecoder<GF166InputRecord, DecodeGF166Feature>,
     AfterOpen::Nothing, sizeof(GF166InputRecord)},
    {2, "cGFP8", false, kModelQueue, WS::FeatureDrop, 0ms, kGFSwitchByteInitialQuery, false,
     kDecoder<GFP8InputRecord, DecodeSwitchByteInput>, kDecoder<GFP8InputRecord, DecodeSwitchByteFeature>,
     AfterOpen::Nothing, sizeof(GFP8InputRecord)},
    {3, "cGFT8", false, kModelQueue, WS::FeatureDrop, 0ms, kGFSwitchByteInitialQuery, false,
     kDecoder<GFT8InputRecord, DecodeSwitchByteInput>, kDecoder<GFT8InputRecord, DecodeSwitchByteFeature>,
     AfterOpen::Nothing, sizeof(GFT8InputRecord)},
    {7, "cGFRP48", false, kModelQueue, WS::FeatureDrop, 0ms, kGFRP48InitialQuery, false,
     kDecoder<GFRP48InputRecord, DecodeGFRP48Input>, kDecoder<GFRP48InputRecord, DecodeGFRP48Feature>,
     AfterOpen::Nothing, sizeof(GFRP48InputRecord)},
    {4, "cGFLGT", false, kModelQueue, WS::FeatureRetry, 0ms, kGFLGTInitialQuery, false,
     kDecoder<GFLGTInputRecord, DecodeGFLGTInput>, kDecoder<GFLGTInputRecord, DecodeGFLGTFeature>,
     AfterOpen::Nothing, sizeof(GFLGTInputRecord)},
    {11, "cGFLGT2", true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFLGT2InitialQuery, false,
     kDecoder<GFLGT2InputRecord, DecodeGFLGT2Input>, kDecoder<GFLGT2InputRecord, DecodeGFLGT2Feature>,
     AfterOpen::Nothing, sizeof(GFLGT2InputRecord)},
    {6, "cGFMCP", false, kModelQueue, WS::FeatureRetry, 0ms, kGFMCPInitialQuery, false,
     kDecoder<GFMCPInputRecord, DecodeGFMCPInput>, kDecoder<GFMCPInputRecord, DecodeGFMCPFeature>,
     AfterOpen::Nothing, sizeof(GFMCPInputRecord)},
    {12, "cGFMCPPro", false, kModelQueue, WS::ByDeviceVersion, 0ms, kGFMCPProInitialQuery, true,
     kDecoder<GFMCPProInputRecord, DecodeGFMCPProInput>,
     kDecoder<GFMCPProInputRecord, DecodeGFMCPProFeature>, AfterOpen::Nothing, sizeof(GFMCPProInputRecord)},
    {13, "cGFEFIS", false, kModelQueue, WS::FeatureDrop, 0ms, kGFEFISInitialQuery, true,
     kDecoder<GFEFISInputRecord, DecodeGFEFISInput>, kDecoder<GFEFISInputRecord, DecodeGFEFISFeature>,
     AfterOpen::Nothing, sizeof(GFEFISInputRecord)},
    {14, "cGFSECM", false, 0, WS::None, 0ms, kGFSECMInitialQuery, false,
     kDecoder<GFSECMInputRecord, DecodeGFSECMInput>, kDecoder<GFSECMInputRecord, DecodeGFSECMFeature>,
     AfterOpen::Nothing, sizeof(GFSECMInputRecord)},
    // The lever unit reports continuously; the pause keeps it to about 20 reports a second.
    {9, "cGFTQ6", false, 0, WS::None, 50ms, kNoInitialQuery, false,
     kDecoder<GFTQ6InputRecord, DecodeGFTQ6Input>, nullptr, AfterOpen::Nothing, sizeof(GFTQ6InputRecord)},
    {17, "cGFMESM", true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFMESMInitialQuery, false,
     kDecoder<GFMESMInputRecord, DecodeGFMESMInput>, kDecoder<GFMESMInputRecord, DecodeGFMESMFeature>,
     AfterOpen::Nothing, sizeof(GFMESMInputRecord)},
    {18, "cGFWCP", true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFSwitchByteInitialQuery, false,
     kDecoder<GFWCPInputRecord, DecodeSwitchByteInput>, kDecoder<GFWCPInputRecord, DecodeSwitchByteFeature>,
     AfterOpen::WCPLightsOff, sizeof(GFWCPInputRecord)},
    {19, "cGFDIO", true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFDIOInitialQuery, false,
     kDecoder<GFDIOInputRecord, DecodeGFDIOInput>, kDecoder<GFDIOInputRecord, DecodeGFDIOFeature>,
     AfterOpen::DIOOutputsOff, sizeof(GFDIOInputRecord)},
    // Nothing sends to these two; their write threads stay idle.
    {10, "cGFATC", false, kModelQueue, WS::FeatureRetry, 0ms, kNoInitialQuery, false,
     kDecoder<GFATCInputRecord, DecodeGFATCInput>, nullptr, AfterOpen::Nothing, sizeof(GFATCInputRecord)},
    {15, "cGFFMC", false, kModelQueue, WS::OutputRetry, 0ms, kNoInitialQuery, true,
     kDecoder<GFFMCInputRecord, DecodeGFFMCInput>, nullptr, AfterOpen::Nothing, sizeof(GFFMCInputRecord)},
}};

}  // namespace

std::size_t ReportKeyLength(const DeviceClass& deviceClass) {
  constexpr std::uint32_t kGFWCP = 18;
  return deviceClass.moduleType == kGFWCP ? 2 : 1;
}

const DeviceClass* FindDeviceClass(std::uint32_t moduleType) {
  for (const DeviceClass& deviceClass : kDeviceClasses) {
    if (deviceClass.moduleType == moduleType) return &deviceClass;
  }
  return nullptr;
}

}  // namespace drav
