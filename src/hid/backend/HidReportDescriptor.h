// The report lengths a HID report descriptor declares, computed the way the Windows HID class driver
// reports them: for each kind (input, output, feature) the longest report in bytes plus one byte for
// the report id, which is there (as 0) even when the device numbers no reports; 0 for a kind the
// device has no report of. Linux's hidraw gives only the raw descriptor, so we read it ourselves.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "hid/backend/HidBackend.h"

namespace drav {

struct HidReportLayout {
  HidCapabilities lengths;
  bool numberedReports = false;  // a Report ID item appears: byte 0 of every report is its id
};

// Empty when the descriptor is malformed (an item cut off at the end, a Pop without a Push).
std::optional<HidReportLayout> ParseHidReportDescriptor(std::span<const std::uint8_t> descriptor);

}  // namespace drav
