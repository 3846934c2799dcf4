// What Linux tells about a hidraw node outside the device itself: the node names under /dev, the
// kernel's uevent text of the HID device (bus, ids, name, serial) and the USB device's release
// number. Pure text handling, so that it is tested without devices.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace drav {

struct HidrawIdentity {
  std::uint16_t bus = 0;
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
  std::string name;    // HID_NAME
  std::string serial;  // HID_UNIQ, empty when the device has none
  std::string location;  // HID_PHYS: the USB port and interface ("usb-0000:00:14.0-2/input0")
};

// Parses the uevent of a HID device ("HID_ID=0003:000009F3:00000020", "HID_NAME=...",
// "HID_UNIQ=...", "HID_PHYS=..."; one KEY=VALUE per line). Empty when HID_ID is missing or malformed, or an id does
// not fit 16 bits.
std::optional<HidrawIdentity> ParseHidUevent(std::string_view text);

// A release number attribute ("bcdDevice": four hex digits and a line end). Empty when malformed.
std::optional<std::uint16_t> ParseBcdAttribute(std::string_view text);

// "hidraw12" -> 12; empty for any other name (no prefix, no digits, trailing characters).
std::optional<int> HidrawNodeNumber(std::string_view nodeName);

// The paths (folder + "/" + name) of the given node names that are hidraw nodes, in node-number
// order (hidraw2 before hidraw10), which is the order units are numbered in.
std::vector<std::string> SortedHidrawPaths(const std::string& folder, const std::vector<std::string>& nodeNames);

// "/dev/hidraw3" for any spelling of it that differs only in case ("/DEV/HIDRAW3"), because the
// device layer keeps paths upper-cased and Linux paths are case sensitive; other paths unchanged.
std::string CanonicalHidrawPath(std::string_view path);

// "hidraw3" for "/dev/hidraw3" (any case); empty when the path names no hidraw node.
std::string HidrawNodeNameOfPath(std::string_view path);

}  // namespace drav
