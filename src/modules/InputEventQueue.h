// The hand-over of decoded inputs from the device layer's input thread to the simulator's main
// thread: a fixed ring of 128 events with one atomic count, no lock and no allocation.
//
// One producer at a time (the device layer calls OnDeviceInput only while it holds its input
// mutex) and one consumer (the main thread's every-frame flight loop).
#pragma once

#include <atomic>
#include <concepts>
#include <cstdint>

namespace drav {

struct InputEvent {
  std::uint32_t moduleType = 0;
  std::uint32_t unit = 0;
  std::int32_t control = 0;  // never -1 in the queue
  std::int32_t value = 0;

  bool operator==(const InputEvent&) const = default;
};

inline constexpr std::int32_t kInputQueueCapacity = 128;

struct InputEventQueue {
  InputEvent slots[kInputQueueCapacity] = {};
  std::int32_t readIndex = 0;              // next slot to take; consumer only
  std::int32_t writeIndex = 0;             // next slot to fill; producer only
  std::atomic<std::int32_t> pending{0};    // filled, untaken slots; the only shared field
};

// Producer side. Returns false when the event was dropped because 128 events are pending: the
// newest event is the one lost, so nothing already queued is overwritten or reordered.
bool PushInputEvent(InputEventQueue& queue, std::uint32_t moduleType, std::uint32_t unit,
                    std::int32_t control, std::int32_t value);

// Consumer side: takes the oldest pending event into *out. False when the queue is empty.
bool TakeInputEvent(InputEventQueue& queue, InputEvent* out);

// Consumer side: hands every pending event, oldest first, to handler(const InputEvent&), including
// events pushed while the drain runs. Returns true when at least one event was taken.
template <class Handler>
  requires std::invocable<Handler&, const InputEvent&>
bool DrainQueue(InputEventQueue& queue, Handler&& handler) {
  bool processed = false;
  InputEvent event;
  while (TakeInputEvent(queue, &event)) {
    handler(static_cast<const InputEvent&>(event));
    processed = true;
  }
  return processed;
}

// The running plug-in's queue (ModuleState), empty at every start.
InputEventQueue& TheInputQueue();

}  // namespace drav
