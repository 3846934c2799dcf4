// The device pop-up of the Assign Functions dialog: which connected units it offers, in which order,
// and the label of each.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "hid/ModuleTypes.h"
#include "modules/ModelDialogRows.h"

namespace drav {

struct DialogDevice {
  std::uint32_t moduleType = kModuleNone;
  std::int32_t unit = 0;  // counted from 1
};

// More units than this can be connected; the pop-up leaves the rest out rather than grow a list that
// no screen could show.
inline constexpr int kMaxDialogDevices = 60;
inline constexpr const char* kNoDevicesItem = "(No devices found.)";

// Unit counts indexed by module type.
using DialogUnitCounts = std::array<std::int32_t, kLastModuleType + 1>;

// The running plug-in's counts (module manager) and flags (host state).
DialogUnitCounts CurrentDialogUnitCounts();
DeviceLabelContext CurrentDeviceLabelContext();

// Models in the pop-up's order, units ascending within a model, at most kMaxDialogDevices entries.
std::vector<DialogDevice> BuildDialogDeviceList(const DialogUnitCounts& counts);

// "GF-46 Unit 2", "GF-MCPPro - N/A", "GF-EFIS DSBLD" ...
std::string DeviceItemText(const DialogDevice& device, const DeviceLabelContext& context);
// Every label followed by ";", or "(No devices found.)" for an empty list.
std::string DeviceListText(const std::vector<DialogDevice>& devices, const DeviceLabelContext& context);

// The model name as the dialog shows it: "???" for a type that has no dialog rows.
const char* DialogModelName(std::uint32_t moduleType);

}  // namespace drav
