// A unit's output queue: the reports its encoders built, waiting for the write thread.
//
// The queue is a fixed ring of report slots allocated once, so that queuing a report (which the
// module classes do every frame) never allocates. Once the queue holds `capacity` reports (a unit
// that stopped taking them), appending makes room by dropping the oldest report that a newer one
// overrides: the leading `keyLength` bytes (report id, and on some units the light the report
// addresses) name what a report sets, so a unit is still shown the newest of each kind when it
// takes reports again. Only when every queued report sets something different is the newest one
// refused (never with a key of 0 bytes, which makes every report distinct). Pushing back at the head (a report whose send failed, to be
// retried first) may use the one spare slot the ring keeps for that, because a report taken by
// the write thread leaves room that an encoder may fill before the report comes back.
//
// Every operation takes the queue's own lock, which guards the list only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace drav {

// How a report goes to the device. Only the write strategy that sends by kind looks at it.
enum class ReportKind : std::uint8_t { Output = 0, Feature = 1 };

// Longest report a queue slot holds, report id included: a full-speed HID report and its id.
inline constexpr std::size_t kMaxQueuedReportLength = 65;

struct QueuedReport {
  std::array<std::uint8_t, kMaxQueuedReportLength> bytes{};
  std::size_t length = 0;
  ReportKind kind = ReportKind::Feature;

  std::span<std::uint8_t> Data() { return {bytes.data(), length}; }
  std::span<const std::uint8_t> Data() const { return {bytes.data(), length}; }
};

class ReportQueue {
 public:
  explicit ReportQueue(std::size_t capacity, std::size_t keyLength = 0);

  ReportQueue(const ReportQueue&) = delete;
  ReportQueue& operator=(const ReportQueue&) = delete;

  std::size_t Capacity() const { return capacity_; }

  // Appends at the tail, on a full queue after dropping the oldest overridden report. False (and
  // the report dropped) when a full queue holds no overridden report, or the report is empty or
  // longer than a slot.
  bool Append(std::span<const std::uint8_t> bytes, ReportKind kind);
  // Puts a report back at the head so that it is sent first. False only when even the spare slot
  // is taken (never, while a single write thread pushes back what it took).
  bool PushFront(const QueuedReport& report);
  std::optional<QueuedReport> TakeFront();
  std::size_t Count() const;
  void Clear();

 private:
  // Caller holds the lock.
  QueuedReport& At(std::size_t position) { return ring_[(head_ + position) % ring_.size()]; }
  bool SameKey(const QueuedReport& a, std::span<const std::uint8_t> b, ReportKind kind) const;
  bool DropOldestOverridden(std::span<const std::uint8_t> newest, ReportKind kind);

  std::size_t capacity_;
  std::size_t keyLength_;
  mutable std::mutex mutex_;
  std::vector<QueuedReport> ring_;  // capacity + 1 slots
  std::size_t head_ = 0;
  std::size_t count_ = 0;
};

}  // namespace drav
