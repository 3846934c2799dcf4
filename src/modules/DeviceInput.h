// The input callback that the device layer calls on its read threads: one input record of one unit
// in, at most one event into the input queue out.
#pragma once

#include <cstdint>

#include "modules/InputEventQueue.h"
#include "modules/ModuleManager.h"

namespace drav {

// Matches GFDevInputCallback. Returns 1, or kGFDevInputRefused without decoding anything when
// the queue is full. A null record, a unit without module object and a record without change
// queue nothing.
int OnDeviceInput(std::uint32_t moduleType, std::uint16_t unit, const void* record);

// The same against a given manager and queue (OnDeviceInput uses the plug-in's own).
int DeliverDeviceInput(const ModuleManager& manager, InputEventQueue& queue, std::uint32_t moduleType,
                       std::uint16_t unit, const void* record);

}  // namespace drav
