// The port's per-model rows and its one way into the device tables.
//
// A port keeps (model, unit), not the device object, and reads the slot again on every call. The
// read is one index into the model's table (DeviceTables::At), and it is what keeps a port right
// across the layer's whole life: a module is made for every unit the model may show, also for a
// slot that is still empty, and live hot-plug fills such a slot while the module keeps its port; a
// unit that comes back finds its old slot and so the same port; and a port that outlives the layer
// (after GFDev_Stop, or one a test made before GFDev_Start) answers 3 instead of reaching a
// destroyed object. A kept pointer would need every one of those paths to rebind the modules.
#include "hid/UnitPort.h"

#include <algorithm>
#include <span>
#include <utility>

#include "hid/DeviceObject.h"
#include "hid/DeviceTables.h"
#include "hid/GFDev.h"
#include "hid/InputRecords.h"
#include "hid/ModelTable.h"
#include "hid/ModuleTypes.h"
#include "hid/ReportEncoders.h"

namespace drav {

// What one model can be told, each operation run on a present unit's object; null: the model
// cannot (the port answers 2, as for an encoder that built nothing).
struct PortModel {
  std::int32_t (*setDisplay)(DeviceObject& object, int display, const char* text) = nullptr;
  std::int32_t (*setIndicators)(DeviceObject& object, std::uint32_t mask) = nullptr;
  std::int32_t (*setIndicatorColour)(DeviceObject& object, std::uint8_t indicator, std::uint8_t colour) = nullptr;
  std::int32_t (*setOutputs)(DeviceObject& object, const std::array<std::uint8_t, 4>& outputs) = nullptr;
  std::int32_t (*setEncoderType)(DeviceObject& object, std::uint8_t first, std::uint8_t second) = nullptr;
  std::int32_t (*setBrightness)(DeviceObject& object, std::int32_t value) = nullptr;
  std::int32_t (*readBrightness)(DeviceObject& object, std::uint32_t& level) = nullptr;
};

namespace {

using ReportBuffer = std::array<std::uint8_t, kMaxFixedReportLength>;
using Span = std::span<std::uint8_t>;

// Queues what an encoder built; an encoder that could build nothing answers 2. A full queue drops
// the report silently: the caller still sees success.
std::int32_t Queue(DeviceObject& object, const ReportBuffer& report, std::size_t length) {
  if (length == 0) return kGFDevNoMemory;
  object.Enqueue({report.data(), length});
  return kGFDevDone;
}

// ---- displays --------------------------------------------------------------------------------

template <std::size_t (*Encode)(Span, int, const char*)>
std::int32_t SendDisplay(DeviceObject& object, int display, const char* text) {
  ReportBuffer report{};
  return Queue(object, report, Encode(report, display, text));
}

// The radios' two displays have an encoder each.
template <std::size_t (*First)(Span, const char*), std::size_t (*Second)(Span, const char*)>
std::size_t EncodeRadioDisplay(Span out, int display, const char* text) {
  if (display == 1) return First(out, text);
  if (display == 2) return Second(out, text);
  return 0;
}

// ---- indicators ------------------------------------------------------------------------------

template <std::size_t (*Encode)(Span, std::uint32_t)>
std::int32_t SendIndicators(DeviceObject& object, std::uint32_t mask) {
  ReportBuffer report{};
  return Queue(object, report, Encode(report, mask));
}

template <std::uint8_t ReportId>
std::size_t EncodeIndicatorBits(Span out, std::uint32_t mask) {
  return EncodeIndicatorByte(out, ReportId, static_cast<std::uint8_t>(mask));
}

std::size_t EncodeGFLGTLights(Span out, std::uint32_t mask) {
  return EncodeGFLGTIndicators(out, static_cast<std::uint8_t>(mask));
}

// The GF-MCPPro's 32 indicator bits are remembered once sent.
std::int32_t SendGFMCPProIndicators(DeviceObject& object, std::uint32_t mask) {
  const std::int32_t result = SendIndicators<EncodeGFMCPProIndicators>(object, mask);
  if (result == kGFDevDone) object.Outputs().mcpProIndicators = mask;
  return result;
}

std::int32_t SendGFWCPColour(DeviceObject& object, std::uint8_t indicator, std::uint8_t colour) {
  return object.SetWCPColour(indicator, colour);
}

std::int32_t SendGFDIOOutputs(DeviceObject& object, const std::array<std::uint8_t, 4>& outputs) {
  return object.SetDIOOutputs(outputs);
}

std::int32_t SendGF166EncoderType(DeviceObject& object, std::uint8_t first, std::uint8_t second) {
  ReportBuffer report{};
  return Queue(object, report, EncodeGF166EncoderType(report, first, second));
}

// ---- brightness ------------------------------------------------------------------------------

template <std::uint8_t ReportId>
std::int32_t SendBrightness(DeviceObject& object, std::int32_t value) {
  ReportBuffer report{};
  return Queue(object, report, EncodeBrightness(report, ReportId, value));
}

// Reads the brightness feature report through the unit's write thread, never waiting on a stalled
// unit.
template <std::uint8_t ReportId>
std::int32_t ReadFeatureBrightness(DeviceObject& object, std::uint32_t& level) {
  std::array<std::uint8_t, 2> report{ReportId, 0};
  if (!object.ReadFeatureBounded(report.data(), report.size())) return kGFDevFeatureReadFailed;
  object.Outputs().brightness = report[1];
  level = report[1];
  return kGFDevDone;
}

// The GF-WCP keeps its level in the object and relights its indicators with it; it always answers 0.
std::int32_t SetGFWCPBrightness(DeviceObject& object, std::int32_t value) {
  object.SetWCPBrightness(static_cast<std::uint16_t>(value));
  return kGFDevDone;
}

std::int32_t ReadGFWCPBrightness(DeviceObject& object, std::uint32_t& level) {
  level = object.Outputs().wcpBrightness;
  return kGFDevDone;
}

// ---- the rows --------------------------------------------------------------------------------

template <std::uint8_t ReportId>
constexpr PortModel SwitchPanel(std::int32_t (*setIndicators)(DeviceObject&, std::uint32_t)) {
  return {.setIndicators = setIndicators,
          .setBrightness = &SendBrightness<ReportId>,
          .readBrightness = &ReadFeatureBrightness<ReportId>};
}

constexpr auto kPortModels = [] {
  std::array<PortModel, kLastModuleType + 1> rows{};
  rows[kModuleGF45] = {
      .setDisplay = &SendDisplay<EncodeRadioDisplay<EncodeSixteenSegmentDisplay, EncodeGF45Display2>>,
      .setBrightness = &SendBrightness<kGF45BrightnessReport>};  // the unit cannot tell its level
  rows[kModuleGF46] = {
      .setDisplay = &SendDisplay<EncodeRadioDisplay<EncodeSixteenSegmentDisplay, EncodeGF46Display2>>,
      .setBrightness = &SendBrightness<kGF46BrightnessReport>,
      .readBrightness = &ReadFeatureBrightness<kGF46BrightnessReport>};
  rows[kModuleGF166] = {.setDisplay = &SendDisplay<EncodeGF166Display>,
                        .setIndicators = &SendIndicators<EncodeIndicatorBits<kGF166IndicatorReport>>,
                        .setEncoderType = &SendGF166EncoderType,
                        .setBrightness = &SendBrightness<kGF166BrightnessReport>,
                        .readBrightness = &ReadFeatureBrightness<kGF166BrightnessReport>};
  constexpr auto kSwitchPanelLights = &SendIndicators<EncodeIndicatorBits<kGFSwitchPanelIndicatorReport>>;
  rows[kModuleGFP8] = SwitchPanel<kGFSwitchPanelBrightnessReport>(kSwitchPanelLights);
  rows[kModuleGFT8] = SwitchPanel<kGFSwitchPanelBrightnessReport>(kSwitchPanelLights);
  rows[kModuleGFRP48] = SwitchPanel<kGFSwitchPanelBrightnessReport>(kSwitchPanelLights);
  rows[kModuleGFLGT2] = SwitchPanel<kGFSwitchPanelBrightnessReport>(kSwitchPanelLights);
  rows[kModuleGFLGT] = SwitchPanel<kGFSwitchPanelBrightnessReport>(&SendIndicators<EncodeGFLGTLights>);
  rows[kModuleGFMCP] = {.setDisplay = &SendDisplay<EncodeGFMCPDisplay>,
                        .setIndicators = &SendIndicators<EncodeIndicatorBits<kGFMCPIndicatorReport>>,
                        .setBrightness = &SendBrightness<kGFMCPBrightnessReport>,
                        .readBrightness = &ReadFeatureBrightness<kGFMCPBrightnessReport>};
  rows[kModuleGFMCPPro] = {.setDisplay = &SendDisplay<EncodeGFMCPProDisplay>,
                           .setIndicators = &SendGFMCPProIndicators,
                           .setBrightness = &SendBrightness<kGFMCPProBrightnessReport>,
                           .readBrightness = &ReadFeatureBrightness<kGFMCPProBrightnessReport>};
  rows[kModuleGFWCP] = {.setIndicatorColour = &SendGFWCPColour,
                        .setBrightness = &SetGFWCPBrightness,
                        .readBrightness = &ReadGFWCPBrightness};
  rows[kModuleGFDIO] = {.setOutputs = &SendGFDIOOutputs};
  return rows;
}();

// ---- input: which fields count steps, to be cleared once taken ---------------------------------

template <typename Record>
void ClearSteps(Record&) {}  // switch and selector bits, lever positions: states, not counts
void ClearSteps(GF45InputRecord& record) { record.encoder1 = record.encoder2 = 0; }
void ClearSteps(GF46InputRecord& record) { record.encoder1 = record.encoder2 = 0; }
void ClearSteps(GFEFISInputRecord& record) { record.encoder1 = record.encoder2 = 0; }
void ClearSteps(GFLGTInputRecord& record) { record.value = 0; }
void ClearSteps(GFRP48InputRecord& record) { std::ranges::fill(record.encoders, 0); }
void ClearSteps(GFMCPInputRecord& record) { std::ranges::fill(record.encoders, 0); }
void ClearSteps(GFMCPProInputRecord& record) { std::ranges::fill(record.encoders, 0); }
void ClearSteps(GFLGT2InputRecord& record) { std::ranges::fill(record.values, 0); }

// Runs the model's operation on a present unit.
template <typename Operation, typename... Args>
std::int32_t RunOnPresentUnit(const UnitPort& port, const PortModel* model, Operation PortModel::*operation,
                              Args&&... args) {
  std::int32_t result = kGFDevDone;
  DeviceObject* object = port.PresentObject(result);
  if (object == nullptr) return result;
  const Operation run = model->*operation;
  return run != nullptr ? run(*object, std::forward<Args>(args)...) : std::int32_t{kGFDevNoMemory};
}

}  // namespace

UnitPort::UnitPort(std::uint32_t moduleType, std::int32_t unit) : moduleType_(moduleType), unit_(unit) {
  const PanelModel* model = FindPanelModel(moduleType);
  if (model != nullptr && unit >= 0 && unit < model->slots) model_ = &kPortModels[moduleType];
}

// The one place the port reaches the layer's tables.
DeviceObject* UnitPort::SlotObject(std::int32_t& result) const {
  if (model_ == nullptr) {
    result = kGFDevUnitOutOfRange;
    return nullptr;
  }
  DeviceObject* object = TheDeviceTables().At(moduleType_, unit_);
  result = object == nullptr ? kGFDevNoDevice : kGFDevDone;
  return object;
}

DeviceObject* UnitPort::PresentObject(std::int32_t& result) const {
  DeviceObject* object = SlotObject(result);
  if (object == nullptr) return nullptr;
  if (!object->Present()) {
    result = kGFDevNoDevice;
    return nullptr;
  }
  return object;
}

bool UnitPort::Present() const {
  std::int32_t result = kGFDevDone;
  return PresentObject(result) != nullptr;
}

std::int32_t UnitPort::SetDisplay(int display, const char* text) const {
  return RunOnPresentUnit(*this, model_, &PortModel::setDisplay, display, text);
}

std::int32_t UnitPort::SetIndicators(std::uint32_t mask) const {
  return RunOnPresentUnit(*this, model_, &PortModel::setIndicators, mask);
}

std::int32_t UnitPort::SetIndicatorColour(std::uint8_t indicator, std::uint8_t colour) const {
  return RunOnPresentUnit(*this, model_, &PortModel::setIndicatorColour, indicator, colour);
}

std::int32_t UnitPort::SetOutputs(const std::array<std::uint8_t, 4>& outputs) const {
  return RunOnPresentUnit(*this, model_, &PortModel::setOutputs, outputs);
}

std::int32_t UnitPort::SetEncoderType(std::uint8_t first, std::uint8_t second) const {
  return RunOnPresentUnit(*this, model_, &PortModel::setEncoderType, first, second);
}

std::int32_t UnitPort::ReadBrightness(std::uint32_t& raw) const {
  return RunOnPresentUnit(*this, model_, &PortModel::readBrightness, raw);
}

// The level of an unplugged unit is simply not sent.
std::int32_t UnitPort::SetBrightness(std::int32_t value) const {
  std::int32_t result = kGFDevDone;
  DeviceObject* object = SlotObject(result);
  if (object == nullptr) return result;
  if (!object->Present()) return kGFDevDone;
  return model_->setBrightness != nullptr ? model_->setBrightness(*object, value) : std::int32_t{kGFDevNoMemory};
}

template <typename Record>
std::int32_t UnitPort::TakeInput(Record& out) const {
  std::int32_t result = kGFDevDone;
  DeviceObject* object = PresentObject(result);
  if (object == nullptr) return result;
  object->EditState<Record>([&](Record& state) {
    out = state;
    ClearSteps(state);
  });
  return kGFDevDone;
}

template std::int32_t UnitPort::TakeInput(GF45InputRecord&) const;
template std::int32_t UnitPort::TakeInput(GF46InputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFSwitchByteInputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFRP48InputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFLGTInputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFLGT2InputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFMCPInputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFMCPProInputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFEFISInputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFSECMInputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFMESMInputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFTQ6InputRecord&) const;
template std::int32_t UnitPort::TakeInput(GFDIOInputRecord&) const;

}  // namespace drav
