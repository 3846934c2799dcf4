#include "modules/DeviceInput.h"

#include "hid/GFDev.h"
#include "hid/HidState.h"
#include "modules/ModuleState.h"

namespace drav {

int DeliverDeviceInput(const ModuleManager& manager, InputEventQueue& queue, std::uint32_t moduleType,
                       std::uint16_t unit, const void* record) {
  if (record == nullptr) return 1;
  // A full queue is seen before decoding: a decoder records the change it reports, and a change
  // recorded but never queued would leave the simulator out of step with the switch for good.
  // The layer hands the unit's newest state over again once the queue has been drained.
  if (queue.pending.load() >= kInputQueueCapacity) return kGFDevInputRefused;
  std::int32_t value = 0;
  const std::int32_t control = manager.Decode(moduleType, unit, record, &value);
  if (control < 0) return 1;  // -1: nothing that the module reports changed
  // Only the consumer takes events meanwhile, so the room seen above is still there.
  PushInputEvent(queue, moduleType, unit, control, value);
  return 1;
}

DeviceInputReceiver::~DeviceInputReceiver() {
  if (connectedTo_ != nullptr) connectedTo_->Forget(*this);
}

void DeviceInputReceiver::Connect() {
  connectedTo_ = &CurrentHidState().input;
  connectedTo_->SetReceiver(this);
}

void ReceiveDeviceInput() { CurrentModuleState().deviceInput.Connect(); }

}  // namespace drav
