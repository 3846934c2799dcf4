// Arrival and removal notices on their way from the thread that notices them (a watcher thread, a
// window procedure) to the main thread that takes them every frame. The flag makes the every-frame
// question free: no lock is taken while nothing has happened.
#pragma once

#include <atomic>
#include <mutex>
#include <vector>

#include "hid/backend/HidBackend.h"

namespace drav {

class HidDeviceChangeQueue {
 public:
  // Any thread.
  void Push(HidDeviceChange change);
  // Appends the queued notices to `out` in the order they were pushed and empties the queue.
  void TakeAll(std::vector<HidDeviceChange>& out);
  void Clear();
  bool HasChanges() const { return pending_.load(std::memory_order_acquire); }

 private:
  std::mutex mutex_;
  std::vector<HidDeviceChange> changes_;
  std::atomic<bool> pending_{false};
};

}  // namespace drav
