#include "modules/InputEventQueue.h"

#include "modules/ModuleState.h"

namespace drav {

namespace {

std::int32_t NextIndex(std::int32_t index) {
  // Guards also against an index that somebody else scribbled over: it restarts at 0 instead of
  // addressing outside the ring.
  return (index >= 0 && index < kInputQueueCapacity - 1) ? index + 1 : 0;
}

std::int32_t ValidIndex(std::int32_t index) {
  return (index >= 0 && index < kInputQueueCapacity) ? index : 0;
}

}  // namespace

bool PushInputEvent(InputEventQueue& queue, std::uint32_t moduleType, std::uint32_t unit,
                    std::int32_t control, std::int32_t value) {
  // pending only shrinks behind our back, so a count below capacity means the slot at writeIndex
  // has been copied out by the consumer (see TakeInputEvent) and may be written.
  if (queue.pending.load() >= kInputQueueCapacity) return false;

  const std::int32_t slot = ValidIndex(queue.writeIndex);
  queue.slots[slot] = InputEvent{moduleType, unit, control, value};
  queue.writeIndex = NextIndex(slot);
  // Publishes the slot: the consumer reads it only after it has seen this increment.
  queue.pending.fetch_add(1);
  return true;
}

bool TakeInputEvent(InputEventQueue& queue, InputEvent* out) {
  if (queue.pending.load() <= 0) return false;

  const std::int32_t slot = ValidIndex(queue.readIndex);
  const InputEvent event = queue.slots[slot];
  queue.readIndex = NextIndex(slot);
  // The decrement comes after the copy on purpose: it is what frees the slot. A producer that
  // finds the ring full waits for this count to drop; had we decremented first (claiming the event
  // before reading it), a producer could see room and overwrite this very slot while we copy it.
  queue.pending.fetch_sub(1);

  if (out != nullptr) *out = event;
  return true;
}

InputEventQueue& TheInputQueue() { return CurrentModuleState().inputQueue; }

}  // namespace drav
