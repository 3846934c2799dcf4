#include "ui/DialogDeviceList.h"

#include <algorithm>
#include <cstdio>

#include "base/HostState.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

const char* LabelFormat(std::uint32_t moduleType, const DeviceLabelContext& context) {
  const ModelDescriptor* model = FindProductionModel(moduleType);
  return model != nullptr && model->deviceLabel != nullptr ? model->deviceLabel(context) : kUnitLabelFormat;
}

}  // namespace

DialogUnitCounts CurrentDialogUnitCounts() {
  DialogUnitCounts counts{};
  const ModuleManager& manager = TheModuleManager();
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    counts[type] = manager.UnitCount(type);
  }
  return counts;
}

DeviceLabelContext CurrentDeviceLabelContext() {
  DeviceLabelContext context;
  const HostFlags& flags = CurrentHostFlags();
  context.efisDisabled = flags.efisDisabled != 0;
  context.x737McpDirect = flags.x737McpDirect != 0;
  context.mcpProDisabled = flags.mcpProDisabled != 0;
  context.xplaneVersion = CurrentSimulatorVersions().xplaneVersion;
  return context;
}

std::vector<DialogDevice> BuildDialogDeviceList(const DialogUnitCounts& counts) {
  std::vector<DialogDevice> devices;
  for (std::uint32_t type : DialogDeviceOrder()) {
    const std::int32_t units = std::max<std::int32_t>(0, counts[type]);
    for (std::int32_t unit = 1; unit <= units; ++unit) {
      if (static_cast<int>(devices.size()) >= kMaxDialogDevices) return devices;
      devices.push_back({type, unit});
    }
  }
  return devices;
}

const char* DialogModelName(std::uint32_t moduleType) {
  const bool hasRows = IsKnownModuleType(moduleType) && moduleType != kModuleGFFMC && moduleType != kModuleGFTPM;
  return hasRows ? ModelName(moduleType) : "???";
}

std::string DeviceItemText(const DialogDevice& device, const DeviceLabelContext& context) {
  char text[64];
  std::snprintf(text, sizeof text, LabelFormat(device.moduleType, context), DialogModelName(device.moduleType),
                static_cast<int>(device.unit));
  return text;
}

std::string DeviceListText(const std::vector<DialogDevice>& devices, const DeviceLabelContext& context) {
  if (devices.empty()) return kNoDevicesItem;
  std::string text;
  for (const DialogDevice& device : devices) {
    text += DeviceItemText(device, context);
    text += ';';
  }
  return text;
}

}  // namespace drav
