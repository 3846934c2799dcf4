// The builders a model's file writes its device-layer row with (PanelModel, ModelTable.h): the
// decoders over the unit's last input, the queue sizes, and the port of the switch panels that
// light their buttons with one byte. The operations a port names are in PortOperations.h.
#pragma once

#include <chrono>
#include <cstdint>

#include "hid/InputRecords.h"
#include "hid/ModelTable.h"
#include "hid/PortOperations.h"

namespace drav {

namespace model_rows {

// Runs a typed decoder of ReportDecoders.h on the byte image of the state.
template <typename Record, InputDecode (*Decode)(const std::uint8_t*, std::size_t, Record&)>
InputDecode DecodeInto(const std::uint8_t* report, std::size_t length, LastInputState& state) {
  Record record = state.As<Record>();
  const InputDecode result = Decode(report, length, record);
  if (result != InputDecode::Ignored) state.Store(record);
  return result;
}

}  // namespace model_rows

template <typename Record, InputDecode (*Decode)(const std::uint8_t*, std::size_t, Record&)>
inline constexpr StateDecoder kDecoder = &model_rows::DecodeInto<Record, Decode>;

inline constexpr std::uint16_t kModelQueue = 25;        // a unit opened at entry
inline constexpr std::uint16_t kSharedBaseQueue = 100;  // a unit of the models opened after entry

// The model number is written once per row; its device class takes it from there.
constexpr PanelModel Model(ModuleType type, const char* name, const char* logWord, const char* sectionFormat,
                           std::uint16_t productId, int slots, DeviceClass deviceClass, PortModel port = {}) {
  deviceClass.moduleType = type;
  return {type, name, logWord, sectionFormat, productId, slots, deviceClass, port};
}

// A panel that lights its buttons through `setIndicators` and has a brightness feature report.
template <std::uint8_t ReportId>
constexpr PortModel SwitchPanel(std::int32_t (*setIndicators)(DeviceObject&, std::uint32_t)) {
  return {.setIndicators = setIndicators,
          .setBrightness = &SendBrightness<ReportId>,
          .readBrightness = &ReadBrightnessReport<ReportId>};
}

// The GF-P8, T8, RP48 and LGT2 light their eight buttons with one byte.
inline constexpr PortModel kSwitchPanelPort = SwitchPanel<kGFSwitchPanelBrightnessReport>(
    &SendIndicators<EncodeIndicatorBits<kGFSwitchPanelIndicatorReport>>);

}  // namespace drav
