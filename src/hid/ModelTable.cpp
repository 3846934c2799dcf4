#include "hid/ModelTable.h"

#include <array>

#include "hid/InputRecords.h"
#include "hid/PortOperations.h"

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

template <typename Record, InputDecode (*Decode)(const std::uint8_t*, std::size_t, Record&)>
constexpr StateDecoder kDecoder = &DecodeInto<Record, Decode>;

using namespace std::chrono_literals;
using WS = WriteStrategy;

constexpr std::uint16_t kModelQueue = 25;        // the per-model classes
constexpr std::uint16_t kSharedBaseQueue = 100;  // the units opened after entry

// The model number is written once per row; its device class takes it from there.
constexpr PanelModel Model(ModuleType type, const char* name, const char* logWord, const char* sectionFormat,
                           std::uint16_t productId, int slots, DeviceClass deviceClass, PortModel port = {}) {
  deviceClass.moduleType = type;
  return {type, name, logWord, sectionFormat, productId, slots, deviceClass, port};
}

// ---- the ports' operations (PortOperations.h) --------------------------------------------------

template <std::uint8_t ReportId>
constexpr PortModel SwitchPanel(std::int32_t (*setIndicators)(DeviceObject&, std::uint32_t)) {
  return {.setIndicators = setIndicators,
          .setBrightness = &SendBrightness<ReportId>,
          .readBrightness = &ReadBrightnessReport<ReportId>};
}

// The GF-P8, T8, RP48 and LGT2 light their eight buttons with one byte.
constexpr PortModel kSwitchPanelPort = SwitchPanel<kGFSwitchPanelBrightnessReport>(
    &SendIndicators<EncodeIndicatorBits<kGFSwitchPanelIndicatorReport>>);

}  // namespace

// The device class: opened after entry, queue, write strategy, read pause, initial query, reads
// serial, input decoder, initial-state decoder, after open, record size[, report key length]; then
// the port: what the units can be told (none: every capability answers 2).
constexpr PanelModel kPanelModelRows[kLastModuleType + 1] = {
    Model(kModuleNone, "NONE", "Unknown", "NONE", 0, 0, {}),
    Model(kModuleGF45, "GF-45", "GF45", "GF45_%d", 0x0010, 16,
          {false, kModelQueue, WS::FeatureDrop, 0ms, kNoInitialQuery, false,
           kDecoder<GF45InputRecord, DecodeGF45Input>, nullptr, AfterOpen::Nothing, sizeof(GF45InputRecord)},
          {.setDisplay = &SendDisplay<EncodeRadioDisplay<EncodeSixteenSegmentDisplay, EncodeGF45Display2>>,
           .setBrightness = &SendBrightness<kGF45BrightnessReport>}),  // the unit cannot tell its level
    Model(kModuleGFP8, "GF-P8", "GFP8", "GFP8_%d", 0x0020, 32,
          {false, kModelQueue, WS::FeatureDrop, 0ms, kGFSwitchByteInitialQuery, false,
           kDecoder<GFP8InputRecord, DecodeSwitchByteInput>, kDecoder<GFP8InputRecord, DecodeSwitchByteFeature>,
           AfterOpen::Nothing, sizeof(GFP8InputRecord)},
          kSwitchPanelPort),
    Model(kModuleGFT8, "GF-T8", "GFT8", "GFT8_%d", 0x0030, 32,
          {false, kModelQueue, WS::FeatureDrop, 0ms, kGFSwitchByteInitialQuery, false,
           kDecoder<GFT8InputRecord, DecodeSwitchByteInput>, kDecoder<GFT8InputRecord, DecodeSwitchByteFeature>,
           AfterOpen::Nothing, sizeof(GFT8InputRecord)},
          kSwitchPanelPort),
    Model(kModuleGFLGT, "GF-LGT", "GFLGT", "GFLGT_%d", 0x0040, 16,
          {false, kModelQueue, WS::FeatureRetry, 0ms, kGFLGTInitialQuery, false,
           kDecoder<GFLGTInputRecord, DecodeGFLGTInput>, kDecoder<GFLGTInputRecord, DecodeGFLGTFeature>,
           AfterOpen::Nothing, sizeof(GFLGTInputRecord)},
          SwitchPanel<kGFSwitchPanelBrightnessReport>(&SendIndicators<EncodeGFLGTLights>)),
    Model(kModuleGF166, "GF-166", "GF166", "GF166_%d", 0x0050, 16,
          {false, kModelQueue, WS::FeatureRetryThrice, 0ms, kGF166InitialQuery, true,
           kDecoder<GF166InputRecord, DecodeGF166Input>, kDecoder<GF166InputRecord, DecodeGF166Feature>,
           AfterOpen::Nothing, sizeof(GF166InputRecord)},
          {.setDisplay = &SendDisplay<EncodeGF166Display>,
           .setIndicators = &SendIndicators<EncodeIndicatorBits<kGF166IndicatorReport>>,
           .setEncoderType = &SendGF166EncoderType,
           .setBrightness = &SendBrightness<kGF166BrightnessReport>,
           .readBrightness = &ReadBrightnessReport<kGF166BrightnessReport>}),
    Model(kModuleGFMCP, "GF-MCP", "GFMCP", "GFMCP_%d", 0x0060, 4,
          {false, kModelQueue, WS::FeatureRetry, 0ms, kGFMCPInitialQuery, false,
           kDecoder<GFMCPInputRecord, DecodeGFMCPInput>, kDecoder<GFMCPInputRecord, DecodeGFMCPFeature>,
           AfterOpen::Nothing, sizeof(GFMCPInputRecord)},
          {.setDisplay = &SendDisplay<EncodeGFMCPDisplay>,
           .setIndicators = &SendIndicators<EncodeIndicatorBits<kGFMCPIndicatorReport>>,
           .setBrightness = &SendBrightness<kGFMCPBrightnessReport>,
           .readBrightness = &ReadBrightnessReport<kGFMCPBrightnessReport>}),
    Model(kModuleGFRP48, "GF-RP48", "GFRP48", "GFRP48_%d", 0x0028, 32,
          {false, kModelQueue, WS::FeatureDrop, 0ms, kGFRP48InitialQuery, false,
           kDecoder<GFRP48InputRecord, DecodeGFRP48Input>, kDecoder<GFRP48InputRecord, DecodeGFRP48Feature>,
           AfterOpen::Nothing, sizeof(GFRP48InputRecord)},
          kSwitchPanelPort),
    Model(kModuleGF46, "GF-46", "GF46", "GF46_%d", 0x0018, 16,
          {false, kModelQueue, WS::FeatureRetry, 0ms, kNoInitialQuery, false,
           kDecoder<GF46InputRecord, DecodeGF46Input>, nullptr, AfterOpen::Nothing, sizeof(GF46InputRecord)},
          {.setDisplay = &SendDisplay<EncodeRadioDisplay<EncodeSixteenSegmentDisplay, EncodeGF46Display2>>,
           .setBrightness = &SendBrightness<kGF46BrightnessReport>,
           .readBrightness = &ReadBrightnessReport<kGF46BrightnessReport>}),
    // The lever unit reports continuously; the pause keeps it to about 20 reports a second.
    Model(kModuleGFTQ6, "GF-TQ6", "GFTQ6", "GFTQ6_%d", 0x0200, 4,
          {false, 0, WS::None, 50ms, kNoInitialQuery, false,
           kDecoder<GFTQ6InputRecord, DecodeGFTQ6Input>, nullptr, AfterOpen::Nothing, sizeof(GFTQ6InputRecord)}),
    // Nothing sends to the GF-ATC and the GF-FMC; their write threads stay idle.
    Model(kModuleGFATC, "GF-ATC", "Unknown", "GFATC_%d", 0x0070, 8,
          {false, kModelQueue, WS::FeatureRetry, 0ms, kNoInitialQuery, false,
           kDecoder<GFATCInputRecord, DecodeGFATCInput>, nullptr, AfterOpen::Nothing, sizeof(GFATCInputRecord)}),
    Model(kModuleGFLGT2, "GF-LGT2", "GFLGT2", "GFLGT2_%d", 0x0048, 8,
          {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFLGT2InitialQuery, false,
           kDecoder<GFLGT2InputRecord, DecodeGFLGT2Input>, kDecoder<GFLGT2InputRecord, DecodeGFLGT2Feature>,
           AfterOpen::Nothing, sizeof(GFLGT2InputRecord)},
          kSwitchPanelPort),
    Model(kModuleGFMCPPro, "GF-MCPPro", "GFMCPPro", "GFMCPPro_%d", 0x0064, 4,
          {false, kModelQueue, WS::ByDeviceVersion, 0ms, kGFMCPProInitialQuery, true,
           kDecoder<GFMCPProInputRecord, DecodeGFMCPProInput>, kDecoder<GFMCPProInputRecord, DecodeGFMCPProFeature>,
           AfterOpen::Nothing, sizeof(GFMCPProInputRecord)},
          {.setDisplay = &SendDisplay<EncodeGFMCPProDisplay>,
           .setIndicators = &SendGFMCPProIndicators,
           .setBrightness = &SendBrightness<kGFMCPProBrightnessReport>,
           .readBrightness = &ReadBrightnessReport<kGFMCPProBrightnessReport>}),
    Model(kModuleGFEFIS, "GF-EFIS", "GFEFIS", "GFEFIS_%d", 0x0300, 4,
          {false, kModelQueue, WS::FeatureDrop, 0ms, kGFEFISInitialQuery, true,
           kDecoder<GFEFISInputRecord, DecodeGFEFISInput>, kDecoder<GFEFISInputRecord, DecodeGFEFISFeature>,
           AfterOpen::Nothing, sizeof(GFEFISInputRecord)}),
    Model(kModuleGFSECM, "GF-SECM", "GFSECM", "GFSECM_%d", 0x0038, 8,
          {false, 0, WS::None, 0ms, kGFSECMInitialQuery, false,
           kDecoder<GFSECMInputRecord, DecodeGFSECMInput>, kDecoder<GFSECMInputRecord, DecodeGFSECMFeature>,
           AfterOpen::Nothing, sizeof(GFSECMInputRecord)}),
    Model(kModuleGFFMC, "GF-FMC", "Unknown", "GFFMC_%d", 0x0074, 4,
          {false, kModelQueue, WS::OutputRetry, 0ms, kNoInitialQuery, true,
           kDecoder<GFFMCInputRecord, DecodeGFFMCInput>, nullptr, AfterOpen::Nothing, sizeof(GFFMCInputRecord)}),
    // Known by name and section only: the layer has no table for it.
    Model(kModuleGFTPM, "GF-TPM", "Unknown", "GFTPM_%d", 0, 0, {}),
    Model(kModuleGFMESM, "GF-MESM", "GFMESM", "GFMESM_%d", 0x003C, 8,
          {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFMESMInitialQuery, false,
           kDecoder<GFMESMInputRecord, DecodeGFMESMInput>, kDecoder<GFMESMInputRecord, DecodeGFMESMFeature>,
           AfterOpen::Nothing, sizeof(GFMESMInputRecord)}),
    // Its colour report addresses one of six lights: the light is part of the report's key.
    Model(kModuleGFWCP, "GF-WCP", "GFWCP", "GFWCP_%d", 0x002C, 32,
          {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFSwitchByteInitialQuery, false,
           kDecoder<GFWCPInputRecord, DecodeSwitchByteInput>, kDecoder<GFWCPInputRecord, DecodeSwitchByteFeature>,
           AfterOpen::WCPLightsOff, sizeof(GFWCPInputRecord), 2},
          {.setIndicatorColour = &SendGFWCPColour,
           .setBrightness = &SetGFWCPBrightness,
           .readBrightness = &ReadGFWCPBrightness}),
    Model(kModuleGFDIO, "GF-DIO", "GFDIO", "GFDIO_%d", 0x002D, 4,
          {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFDIOInitialQuery, false,
           kDecoder<GFDIOInputRecord, DecodeGFDIOInput>, kDecoder<GFDIOInputRecord, DecodeGFDIOFeature>,
           AfterOpen::DIOOutputsOff, sizeof(GFDIOInputRecord)},
          {.setOutputs = &SendGFDIOOutputs}),
};

namespace {

constexpr bool RowsMatchTheirIndex() {
  for (std::uint32_t i = 0; i <= kLastModuleType; ++i) {
    if (kPanelModelRows[i].moduleType != i) return false;
  }
  return true;
}
static_assert(RowsMatchTheirIndex(), "the table is indexed by the model number");

constexpr const PanelModel* Row(ModuleType type) { return &kPanelModelRows[type]; }

// The order in which a product id is tested against the models, which is also the order in which
// the tables are walked and torn down. Every model with slots appears once.
constexpr const PanelModel* kLookupOrder[] = {
    Row(kModuleGF45),   Row(kModuleGF46),    Row(kModuleGFP8),   Row(kModuleGFRP48), Row(kModuleGFWCP),
    Row(kModuleGFT8),   Row(kModuleGFLGT),   Row(kModuleGFLGT2), Row(kModuleGF166),  Row(kModuleGFMCP),
    Row(kModuleGFMCPPro), Row(kModuleGFEFIS), Row(kModuleGFATC), Row(kModuleGFSECM), Row(kModuleGFMESM),
    Row(kModuleGFFMC),  Row(kModuleGFTQ6),   Row(kModuleGFDIO),
};

constexpr bool EveryTableListedOnce() {
  for (const PanelModel& model : kPanelModelRows) {
    int listed = 0;
    for (const PanelModel* entry : kLookupOrder) listed += entry == &model ? 1 : 0;
    if (listed != (model.slots > 0 ? 1 : 0)) return false;
  }
  return true;
}
static_assert(EveryTableListedOnce(), "the lookup order holds every model with a table exactly once");

const PanelModel& RowOf(std::uint32_t type) { return kPanelModelRows[IsKnownModuleType(type) ? type : kModuleNone]; }

}  // namespace

bool IsKnownModuleType(std::uint32_t type) { return type >= kFirstModuleType && type <= kLastModuleType; }

const char* ModelName(std::uint32_t type) { return RowOf(type).name; }
const char* ModelWord(std::uint32_t type) { return RowOf(type).logWord; }
const char* SectionFormat(std::uint32_t type) { return RowOf(type).sectionFormat; }

std::span<const PanelModel* const> PanelModels() { return kLookupOrder; }

const PanelModel* FindPanelModel(std::uint32_t moduleType) {
  const PanelModel& model = RowOf(moduleType);
  return model.slots > 0 ? &model : nullptr;
}

const PanelModel* FindPanelModelByProductId(std::uint16_t productId) {
  for (const PanelModel* model : kLookupOrder) {
    if (model->productId == productId) return model;
  }
  return nullptr;
}

const DeviceClass* FindDeviceClass(std::uint32_t moduleType) {
  const PanelModel* model = FindPanelModel(moduleType);
  return model != nullptr ? &model->deviceClass : nullptr;
}

}  // namespace drav
