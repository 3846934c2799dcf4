#include "modules/DeviceInput.h"

#include <type_traits>

#include "hid/GFDev.h"

namespace drav {

static_assert(std::is_same_v<decltype(&OnDeviceInput), GFDevInputCallback>,
              "OnDeviceInput is registered with the device layer as its input callback");

int DeliverDeviceInput(const ModuleManager& manager, InputEventQueue& queue, std::uint32_t moduleType,
                       std::uint16_t unit, const void* record) {
  if (record == nullptr) return 1;
  std::int32_t value = 0;
  const std::int32_t control = manager.Decode(moduleType, unit, record, &value);
  if (control < 0) return 1;  // -1: nothing that the module reports changed
  // A full queue drops this event (the newest); there is no one to tell on this thread.
  PushInputEvent(queue, moduleType, unit, control, value);
  return 1;
}

int OnDeviceInput(std::uint32_t moduleType, std::uint16_t unit, const void* record) {
  return DeliverDeviceInput(TheModuleManager(), TheInputQueue(), moduleType, unit, record);
}

}  // namespace drav
