// The operations a model's port row can name (the row stands in the model's own file): each runs on
// a present unit's object, builds its report with an encoder of ReportEncoders.h and queues it, or reads or keeps what the
// model needs. The templates only choose the encoder or the report id; the work is in UnitPort.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "hid/ReportEncoders.h"

namespace drav {

class DeviceObject;

using PortReport = std::array<std::uint8_t, kMaxFixedReportLength>;
using PortSpan = std::span<std::uint8_t>;

// Queues the first `length` bytes that an encoder built; an encoder that could build nothing (0)
// answers 2. A full queue drops the report silently: the caller still sees success.
std::int32_t QueueReport(DeviceObject& object, const PortReport& report, std::size_t length);

// ---- displays --------------------------------------------------------------------------------

template <std::size_t (*Encode)(PortSpan, int, const char*)>
std::int32_t SendDisplay(DeviceObject& object, int display, const char* text) {
  PortReport report{};
  return QueueReport(object, report, Encode(report, display, text));
}

// The radios' two displays have an encoder each.
template <std::size_t (*First)(PortSpan, const char*), std::size_t (*Second)(PortSpan, const char*)>
std::size_t EncodeRadioDisplay(PortSpan out, int display, const char* text) {
  if (display == 1) return First(out, text);
  if (display == 2) return Second(out, text);
  return 0;
}

// ---- indicators ------------------------------------------------------------------------------

template <std::size_t (*Encode)(PortSpan, std::uint32_t)>
std::int32_t SendIndicators(DeviceObject& object, std::uint32_t mask) {
  PortReport report{};
  return QueueReport(object, report, Encode(report, mask));
}

template <std::uint8_t ReportId>
std::size_t EncodeIndicatorBits(PortSpan out, std::uint32_t mask) {
  return EncodeIndicatorByte(out, ReportId, static_cast<std::uint8_t>(mask));
}

std::size_t EncodeGFLGTLights(PortSpan out, std::uint32_t mask);
// The GF-MCPPro's 32 indicator bits are remembered once sent.
std::int32_t SendGFMCPProIndicators(DeviceObject& object, std::uint32_t mask);
std::int32_t SendGFWCPColour(DeviceObject& object, std::uint8_t indicator, std::uint8_t colour);
std::int32_t SendGFDIOOutputs(DeviceObject& object, const std::array<std::uint8_t, 4>& outputs);
std::int32_t SendGF166EncoderType(DeviceObject& object, std::uint8_t first, std::uint8_t second);

// ---- brightness ------------------------------------------------------------------------------

template <std::uint8_t ReportId>
std::int32_t SendBrightness(DeviceObject& object, std::int32_t value) {
  PortReport report{};
  return QueueReport(object, report, EncodeBrightness(report, ReportId, value));
}

// Reads the brightness feature report through the unit's write thread, never waiting on a stalled
// unit.
std::int32_t ReadFeatureBrightness(DeviceObject& object, std::uint8_t reportId, std::uint32_t& level);
template <std::uint8_t ReportId>
std::int32_t ReadBrightnessReport(DeviceObject& object, std::uint32_t& level) {
  return ReadFeatureBrightness(object, ReportId, level);
}

// The GF-WCP keeps its level in the object and relights its indicators with it; it always answers 0.
std::int32_t SetGFWCPBrightness(DeviceObject& object, std::int32_t value);
std::int32_t ReadGFWCPBrightness(DeviceObject& object, std::uint32_t& level);

}  // namespace drav
