#include "hid/ReportQueue.h"

#include <algorithm>

namespace drav {

ReportQueue::ReportQueue(std::size_t capacity) : capacity_(capacity), ring_(capacity + 1) {}

bool ReportQueue::Append(std::span<const std::uint8_t> bytes, ReportKind kind) {
  if (bytes.empty() || bytes.size() > kMaxQueuedReportLength) return false;
  std::lock_guard<std::mutex> lock(mutex_);
  if (count_ >= capacity_) return false;
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
