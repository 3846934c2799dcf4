#include "hid/ReportQueue.h"

#include <algorithm>

namespace drav {

ReportQueue::ReportQueue(std::size_t capacity, std::size_t keyLength)
    : capacity_(capacity), keyLength_(keyLength), ring_(capacity + 1) {}

bool ReportQueue::SameKey(const QueuedReport& a, std::span<const std::uint8_t> b, ReportKind kind) const {
  if (keyLength_ == 0 || a.kind != kind || a.length != b.size() || b.size() < keyLength_) return false;
  return std::equal(b.begin(), b.begin() + static_cast<std::ptrdiff_t>(keyLength_), a.bytes.begin());
}

// The oldest report that a later queued one, or the newest, overrides goes; the others close up
// behind it in their order.
bool ReportQueue::DropOldestOverridden(std::span<const std::uint8_t> newest, ReportKind kind) {
  for (std::size_t i = 0; i < count_; ++i) {
    const QueuedReport& candidate = At(i);
    bool overridden = SameKey(candidate, newest, kind);
    for (std::size_t later = i + 1; later < count_ && !overridden; ++later) {
      overridden = SameKey(candidate, At(later).Data(), At(later).kind);
    }
    if (!overridden) continue;
    for (std::size_t j = i; j + 1 < count_; ++j) At(j) = At(j + 1);
    --count_;
    return true;
  }
  return false;
}

bool ReportQueue::Append(std::span<const std::uint8_t> bytes, ReportKind kind) {
  if (bytes.empty() || bytes.size() > kMaxQueuedReportLength) return false;
  std::lock_guard<std::mutex> lock(mutex_);
  while (count_ >= capacity_) {
    if (!DropOldestOverridden(bytes, kind)) return false;
  }
  QueuedReport& slot = ring_[(head_ + count_) % ring_.size()];
  std::copy(bytes.begin(), bytes.end(), slot.bytes.begin());
  slot.length = bytes.size();
  slot.kind = kind;
  ++count_;
  return true;
}

bool ReportQueue::PushFront(const QueuedReport& report) {
  std::lock_guard<std::mutex> lock(mutex_);
  if (count_ >= ring_.size()) return false;
  head_ = (head_ + ring_.size() - 1) % ring_.size();
  ring_[head_] = report;
  ++count_;
  return true;
}

std::optional<QueuedReport> ReportQueue::TakeFront() {
  std::lock_guard<std::mutex> lock(mutex_);
  if (count_ == 0) return std::nullopt;
  QueuedReport report = ring_[head_];
  head_ = (head_ + 1) % ring_.size();
  --count_;
  return report;
}

std::size_t ReportQueue::Count() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return count_;
}

void ReportQueue::Clear() {
  std::lock_guard<std::mutex> lock(mutex_);
  head_ = 0;
  count_ = 0;
}

}  // namespace drav
