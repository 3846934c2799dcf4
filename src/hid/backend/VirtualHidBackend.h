// In-memory panels for the tests and dravsim: each virtual unit has a model's ids and report
// lengths, a version, a serial, feature reports it answers, a queue of input reports to deliver and a
// record of every report written to it, and can be told to fail.
//
// Thread safety: every member may be called from any thread. The scenario side (plug, unplug,
// SendInput, Sent...) normally runs on the main thread, the device layer's threads read and write.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "hid/backend/HidBackend.h"

namespace drav {

// Block: output and feature writes stall, as on a unit whose endpoint stops taking reports, until
// the fault is switched off (they then succeed), the unit is unplugged (they fail), or
// kBlockedWriteTimeout passes (they fail, as a real write times out; this keeps a forgotten block
// from hanging the device layer's stop). FeatureBlock: feature-report reads stall the same way (a
// unit that stops answering control requests); when released by the timeout they fail.
enum class VirtualFault { Open, Read, Write, Feature, Block, FeatureBlock };
inline constexpr std::chrono::seconds kBlockedWriteTimeout{5};

struct VirtualSentReport {
  enum class Kind { Output, Feature };
  Kind kind = Kind::Output;
  std::vector<std::uint8_t> bytes;  // exactly as the device layer wrote them, report id first
};

struct VirtualUnitSpec {
  std::uint16_t vendorId = 0x09F3;
  std::uint16_t productId = 0;
  std::uint16_t version = 0x0100;
  std::string serial;
  // The USB port and interface the unit sits in ("usb-0000:00:14.0-2/input0"); empty for none.
  std::string location;
  HidCapabilities capabilities;  // report lengths, report id included
};

class VirtualHidBackend : public HidBackend {
 public:
  VirtualHidBackend();
  ~VirtualHidBackend() override;

  // ---- the scenario's side ---------------------------------------------------------------------
  // A unit becomes present at `path` (a new path, or one that was unplugged). While notifications are
  // on, an arrival notice is queued. Returns false when the path is already present.
  bool Plug(const std::string& path, const VirtualUnitSpec& spec);
  // The unit at `path` goes away: open handles fail from now on (a blocked read returns -1) and a
  // removal notice is queued. False when no unit is present there.
  bool Unplug(const std::string& path);
  // The same unit comes back at its path (same spec, same answers), with an arrival notice.
  bool Replug(const std::string& path);
  bool IsPresent(const std::string& path) const;
  // While unplugged, the unit is given another path (its old one freed for another device, as the
  // kernel hands a freed node to the next device) or moved to another port; no notice. False when
  // the unit is present or missing, or the new path is taken.
  bool Renumber(const std::string& path, const std::string& newPath);
  bool SetLocation(const std::string& path, std::string location);

  // What the unit answers when feature report `reportId` is read (zero bytes unless set).
  void SetFeatureAnswer(const std::string& path, std::uint8_t reportId, std::vector<std::uint8_t> bytes);
  void SetFault(const std::string& path, VirtualFault fault, bool on);

  // Queues one input report (byte 0 = report id; padded with zeros to the input report length, a
  // longer one is refused with false) for the unit's next read.
  bool SendInput(const std::string& path, std::vector<std::uint8_t> report);
  // Input reports queued and not yet taken by a read.
  std::size_t PendingInput(const std::string& path) const;
  // Input reports taken by reads since the unit was plugged.
  std::uint64_t InputTaken(const std::string& path) const;

  // Writes to the unit now waiting on a `VirtualFault::Block`.
  std::size_t BlockedWrites(const std::string& path) const;
  // Feature reads of the unit now waiting on a `VirtualFault::FeatureBlock`.
  std::size_t BlockedFeatureReads(const std::string& path) const;

  // Every report written to the unit since the last ClearSent, in order.
  std::vector<VirtualSentReport> Sent(const std::string& path) const;
  void ClearSent();  // for every unit

  // ---- HidBackend ------------------------------------------------------------------------------
  std::vector<std::string> EnumerateDevicePaths() override;  // present units, in plug order
  std::unique_ptr<HidDeviceHandle> Open(const std::string& path) override;
  // A unit told to fail opening is refused as the platform refuses a user without access.
  HidOpenFailure DescribeOpenFailure(const std::string& path) override;
  void StartNotifications() override;
  void StopNotifications() override;
  void TakeDeviceChanges(std::vector<HidDeviceChange>& out) override;

 private:
  struct Unit;
  class Handle;
  friend class Handle;

  mutable std::mutex mutex_;
  std::condition_variable inputArrived_;
  std::condition_variable writesMayGo_;  // wakes writes stalled by a Block fault
  std::vector<std::string> plugOrder_;
  std::map<std::string, std::shared_ptr<Unit>> units_;
  std::vector<HidDeviceChange> changes_;
  bool notifying_ = false;
};

}  // namespace drav
