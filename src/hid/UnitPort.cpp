// The port's one way into the device tables, and the operations its model rows (ModelTable.cpp)
// name.
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
#include "hid/PortOperations.h"
#include "hid/ReportEncoders.h"

namespace drav {

// ---- the operations a port row names ---------------------------------------------------------

std::int32_t QueueReport(DeviceObject& object, const PortReport& report, std::size_t length) {
  if (length == 0) return kGFDevNoMemory;
  object.Enqueue({report.data(), length});
  return kGFDevDone;
}

std::size_t EncodeGFLGTLights(PortSpan out, std::uint32_t mask) {
  return EncodeGFLGTIndicators(out, static_cast<std::uint8_t>(mask));
}

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
  PortReport report{};
  return QueueReport(object, report, EncodeGF166EncoderType(report, first, second));
}

std::int32_t ReadFeatureBrightness(DeviceObject& object, std::uint8_t reportId, std::uint32_t& level) {
  std::array<std::uint8_t, 2> report{reportId, 0};
  if (!object.ReadFeatureBounded(report.data(), report.size())) return kGFDevFeatureReadFailed;
  object.Outputs().brightness = report[1];
  level = report[1];
  return kGFDevDone;
}

std::int32_t SetGFWCPBrightness(DeviceObject& object, std::int32_t value) {
  object.SetWCPBrightness(static_cast<std::uint16_t>(value));
  return kGFDevDone;
}

std::int32_t ReadGFWCPBrightness(DeviceObject& object, std::uint32_t& level) {
  level = object.Outputs().wcpBrightness;
  return kGFDevDone;
}

namespace {

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
  if (model != nullptr && unit >= 0 && unit < model->slots) model_ = &model->port;
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
