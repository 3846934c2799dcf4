#include "hid/backend/HidDeviceChangeQueue.h"

#include <iterator>

namespace drav {

void HidDeviceChangeQueue::Push(HidDeviceChange change) {
  std::lock_guard lock(mutex_);
  changes_.push_back(std::move(change));
  pending_.store(true, std::memory_order_release);
}

void HidDeviceChangeQueue::TakeAll(std::vector<HidDeviceChange>& out) {
  if (!HasChanges()) return;
  std::lock_guard lock(mutex_);
  // The flag is cleared under the lock, so a push that follows is never lost: it sets it again.
  pending_.store(false, std::memory_order_release);
  std::move(changes_.begin(), changes_.end(), std::back_inserter(out));
  changes_.clear();
}

void HidDeviceChangeQueue::Clear() {
  std::lock_guard lock(mutex_);
  pending_.store(false, std::memory_order_release);
  changes_.clear();
}

}  // namespace drav
