// The way decoded input reaches the plug-in's callback, one record at a time. The main thread
// registers and clears the callback and may hold every delivery off; each unit's read thread hands
// its records over. A device object is given the layer's delivery when it is made, so that its read
// thread never looks for it.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

#include "hid/GFDev.h"
#include "hid/InputCallbackGate.h"

namespace drav {

// Takes the records in the place of a flat callback, for a receiver that keeps what it needs (the
// modules, the queue) in itself rather than in globals. Called on the read threads.
class InputReceiver {
 public:
  virtual ~InputReceiver() = default;
  // As GFDevInputCallback: kGFDevInputRefused when the record was not taken.
  virtual int Receive(std::uint32_t moduleType, std::uint16_t unit, const void* record) = 0;
};

class InputDelivery {
 public:
  InputDelivery() = default;
  InputDelivery(const InputDelivery&) = delete;
  InputDelivery& operator=(const InputDelivery&) = delete;

  // Main thread: wait for the delivery running now, then put the callback or the receiver in the
  // place of whichever was there (null: none).
  void SetCallback(GFDevInputCallback callback);
  void SetReceiver(InputReceiver* receiver);
  // Main thread: takes the receiver away if it is still the one in place.
  void Forget(const InputReceiver& receiver);
  // Main thread: no delivery runs between the two (read threads wait their turn).
  void Hold() { gate_.Enter(); }
  void Release() { gate_.Leave(); }

  // Any thread: hands the record to the callback once its turn comes within wait. False when it was
  // not taken (the wait ran out, or the callback refused it); a record without a callback is taken.
  bool DeliverWithin(std::uint32_t moduleType, std::uint16_t unit, const void* record, std::chrono::milliseconds wait);

  // Some unit's newest input was refused and waits to be handed over again.
  void NoteRefused() { refused_.store(true); }
  bool TakeRefused() { return refused_.exchange(false); }
  void ForgetRefused() { refused_.store(false); }

 private:
  InputCallbackGate gate_;
  std::atomic<bool> refused_{false};
  std::atomic<GFDevInputCallback> callback_{nullptr};
  std::atomic<InputReceiver*> receiver_{nullptr};
};

}  // namespace drav
