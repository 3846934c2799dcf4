// The input that the device layer hands over on its read threads: one input record of one unit in,
// at most one event into the input queue out.
#pragma once

#include <cstdint>

#include "hid/InputDelivery.h"
#include "modules/InputEventQueue.h"
#include "modules/ModuleManager.h"

namespace drav {

// Returns 1, or kGFDevInputRefused without decoding anything when the queue is full. A null
// record, a unit without module object and a record without change queue nothing.
int DeliverDeviceInput(const ModuleManager& manager, InputEventQueue& queue, std::uint32_t moduleType,
                       std::uint16_t unit, const void* record);

// The plug-in's receiver of the layer's input: its manager and queue are given to it when it is
// made, so that the read threads that call it never look for them.
class DeviceInputReceiver final : public InputReceiver {
 public:
  DeviceInputReceiver(const ModuleManager& manager, InputEventQueue& queue) : manager_(manager), queue_(queue) {}
  // Taken away from the layer first, so that no read thread is still in it when it goes.
  ~DeviceInputReceiver() override;
  DeviceInputReceiver(const DeviceInputReceiver&) = delete;
  DeviceInputReceiver& operator=(const DeviceInputReceiver&) = delete;

  // Main thread: the current device layer hands its input here from now on (until it stops).
  void Connect();

  int Receive(std::uint32_t moduleType, std::uint16_t unit, const void* record) override {
    return DeliverDeviceInput(manager_, queue_, moduleType, unit, record);
  }

 private:
  const ModuleManager& manager_;
  InputEventQueue& queue_;
  InputDelivery* connectedTo_ = nullptr;
};

// Main thread: connects the running plug-in's receiver (ModuleState) to the device layer.
void ReceiveDeviceInput();

}  // namespace drav
