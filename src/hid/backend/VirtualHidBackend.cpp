// In-memory panels. One mutex (the backend's) guards every unit and every handle's cancel flag, and
// one condition variable wakes blocked reads whenever something a read waits for changes: an input
// report arrives, a read is cancelled, the unit goes away or its reads are made to fail. Readers
// re-check their own condition, so waking all of them is always correct.
//
// Handles hold the unit's state through a shared_ptr (an unplugged unit may be replaced by a new
// one at the same path while an old handle is still open) and the backend through a plain pointer:
// every handle must be closed before the backend is destroyed, as the device layer does at its stop.
//
// Choices the virtual unit makes where a real device driver has its own:
// - A handle belongs to one "plugging" of its unit: after an unplug it fails for good, even when the
//   same unit is replugged (a new Open is needed), as a removed device's handle does.
// - A read needs a buffer that holds a whole input report; a smaller one fails (-1) without taking
//   the report.
// - Output and feature writes of zero bytes, or longer than the declared report length (when one is
//   declared), fail and are not recorded; failed writes are never recorded.
// - Feature answers: `SetFeatureAnswer(id, bytes)` takes the bytes the unit answers. When the first
//   byte equals the report id they are the whole report, id included; otherwise they are the bytes
//   that follow the id. Either way the stored answer is the whole report, id first. A read fills the
//   caller's buffer with the answer, cut or padded with zeros to the requested length.
// - Pending input reports are dropped when the unit is unplugged. The count of reports taken keeps
//   counting across unplug and replug (so a waiter comparing counts never sees it go back); a new
//   Plug starts a new unit and a new count.
#include "hid/backend/VirtualHidBackend.h"

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>

namespace drav {

namespace {

constexpr std::size_t kFaultCount = 6;

std::size_t FaultIndex(VirtualFault fault) { return static_cast<std::size_t>(fault); }

std::vector<std::uint8_t> WholeFeatureReport(std::uint8_t reportId, std::vector<std::uint8_t> bytes) {
  if (!bytes.empty() && bytes.front() == reportId) return bytes;
  bytes.insert(bytes.begin(), reportId);
  return bytes;
}

bool FitsDeclaredLength(std::size_t length, std::uint16_t declared) {
  return length > 0 && (declared == 0 || length <= declared);
}

}  // namespace

struct VirtualHidBackend::Unit {
  VirtualUnitSpec spec;
  bool present = true;
  std::uint64_t plugging = 0;  // counts pluggings; a handle is valid only for the one it opened in
  std::array<bool, kFaultCount> faults{};
  std::map<std::uint8_t, std::vector<std::uint8_t>> featureAnswers;  // whole reports, id first
  std::deque<std::vector<std::uint8_t>> pendingInput;
  std::uint64_t inputTaken = 0;
  std::size_t blockedWrites = 0;
  std::size_t blockedFeatureReads = 0;
  std::vector<VirtualSentReport> sent;

  bool Failing(VirtualFault fault) const { return faults[FaultIndex(fault)]; }
};

class VirtualHidBackend::Handle : public HidDeviceHandle {
 public:
  Handle(VirtualHidBackend* backend, std::shared_ptr<Unit> unit)
      : backend_(backend), unit_(std::move(unit)), plugging_(unit_->plugging) {}

  bool GetAttributes(HidAttributes* out) override {
    std::lock_guard lock(backend_->mutex_);
    if (out == nullptr || !Usable()) return false;
    *out = HidAttributes{unit_->spec.vendorId, unit_->spec.productId, unit_->spec.version};
    return true;
  }

  bool GetCapabilities(HidCapabilities* out) override {
    std::lock_guard lock(backend_->mutex_);
    if (out == nullptr || !Usable()) return false;
    *out = unit_->spec.capabilities;
    return true;
  }

  std::string GetSerialNumber() override {
    std::lock_guard lock(backend_->mutex_);
    return Usable() ? unit_->spec.serial : std::string();
  }

  std::string GetLocation() override {
    std::lock_guard lock(backend_->mutex_);
    return Usable() ? unit_->spec.location : std::string();
  }

  int ReadInputReport(std::uint8_t* buffer, std::size_t capacity) override {
    std::unique_lock lock(backend_->mutex_);
    backend_->inputArrived_.wait(lock, [this] {
      return cancelled_ || !Usable() || unit_->Failing(VirtualFault::Read) || !unit_->pendingInput.empty();
    });
    if (cancelled_) {
      cancelled_ = false;
      return 0;
    }
    if (!Usable() || unit_->Failing(VirtualFault::Read) || buffer == nullptr) return -1;
    const std::vector<std::uint8_t>& report = unit_->pendingInput.front();
    if (capacity < report.size()) return -1;
    std::copy(report.begin(), report.end(), buffer);
    const int length = static_cast<int>(report.size());
    unit_->pendingInput.pop_front();
    ++unit_->inputTaken;
    return length;
  }

  void CancelRead() override {
    {
      std::lock_guard lock(backend_->mutex_);
      cancelled_ = true;
    }
    backend_->inputArrived_.notify_all();
  }

  bool GetFeatureReport(std::uint8_t* buffer, std::size_t length) override {
    std::unique_lock lock(backend_->mutex_);
    if (!WaitWhileBlocked(lock, VirtualFault::FeatureBlock)) return false;
    if (buffer == nullptr || length == 0 || !Usable() || unit_->Failing(VirtualFault::Feature)) return false;
    const std::uint8_t reportId = buffer[0];
    std::fill(buffer, buffer + length, std::uint8_t{0});
    buffer[0] = reportId;
    const auto answer = unit_->featureAnswers.find(reportId);
    if (answer != unit_->featureAnswers.end()) {
      std::copy_n(answer->second.begin(), std::min(length, answer->second.size()), buffer);
    }
    return true;
  }

  bool SetFeatureReport(const std::uint8_t* data, std::size_t length) override {
    return Record(VirtualSentReport::Kind::Feature, data, length);
  }

  bool WriteOutputReport(const std::uint8_t* data, std::size_t length) override {
    return Record(VirtualSentReport::Kind::Output, data, length);
  }

 private:
  // Caller holds the backend's mutex.
  bool Usable() const { return unit_->present && unit_->plugging == plugging_; }

  bool Record(VirtualSentReport::Kind kind, const std::uint8_t* data, std::size_t length) {
    std::unique_lock lock(backend_->mutex_);
    if (!WaitWhileBlocked(lock, VirtualFault::Block)) return false;
    if (data == nullptr || !Usable() || unit_->Failing(VirtualFault::Write)) return false;
    const HidCapabilities& caps = unit_->spec.capabilities;
    const std::uint16_t declared =
        kind == VirtualSentReport::Kind::Output ? caps.outputReportLength : caps.featureReportLength;
    if (!FitsDeclaredLength(length, declared)) return false;
    unit_->sent.push_back(VirtualSentReport{kind, std::vector<std::uint8_t>(data, data + length)});
    return true;
  }

  // Caller holds the backend's mutex through `lock`. False when the write must fail instead.
  bool WaitWhileBlocked(std::unique_lock<std::mutex>& lock, VirtualFault block) {
    if (!unit_->Failing(block)) return true;
    std::size_t& blocked = block == VirtualFault::Block ? unit_->blockedWrites : unit_->blockedFeatureReads;
    ++blocked;
    const bool released = backend_->writesMayGo_.wait_for(lock, kBlockedWriteTimeout, [&] {
      return !Usable() || !unit_->Failing(block);
    });
    --blocked;
    return released && Usable();
  }

  VirtualHidBackend* backend_;
  std::shared_ptr<Unit> unit_;
  std::uint64_t plugging_;
  bool cancelled_ = false;  // guarded by the backend's mutex
};

VirtualHidBackend::VirtualHidBackend() = default;
VirtualHidBackend::~VirtualHidBackend() = default;

bool VirtualHidBackend::Plug(const std::string& path, const VirtualUnitSpec& spec) {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  if (found != units_.end() && found->second->present) return false;
  auto unit = std::make_shared<Unit>();
  unit->spec = spec;
  if (found == units_.end()) {
    plugOrder_.push_back(path);
    units_.emplace(path, std::move(unit));
  } else {
    // A different unit at a path that was unplugged: the old one's handles keep the old state.
    unit->plugging = found->second->plugging + 1;
    found->second = std::move(unit);
  }
  if (notifying_) changes_.push_back({HidDeviceChange::Kind::Arrival, path});
  return true;
}

bool VirtualHidBackend::Unplug(const std::string& path) {
  {
    std::lock_guard lock(mutex_);
    auto found = units_.find(path);
    if (found == units_.end() || !found->second->present) return false;
    found->second->present = false;
    found->second->pendingInput.clear();
    if (notifying_) changes_.push_back({HidDeviceChange::Kind::Removal, path});
  }
  inputArrived_.notify_all();
  writesMayGo_.notify_all();
  return true;
}

bool VirtualHidBackend::Replug(const std::string& path) {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  if (found == units_.end() || found->second->present) return false;
  found->second->present = true;
  ++found->second->plugging;
  if (notifying_) changes_.push_back({HidDeviceChange::Kind::Arrival, path});
  return true;
}

bool VirtualHidBackend::Renumber(const std::string& path, const std::string& newPath) {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  if (found == units_.end() || found->second->present || units_.count(newPath) != 0) return false;
  units_.emplace(newPath, std::move(found->second));
  units_.erase(found);
  std::replace(plugOrder_.begin(), plugOrder_.end(), path, newPath);
  return true;
}

bool VirtualHidBackend::SetLocation(const std::string& path, std::string location) {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  if (found == units_.end() || found->second->present) return false;
  found->second->spec.location = std::move(location);
  return true;
}

bool VirtualHidBackend::IsPresent(const std::string& path) const {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  return found != units_.end() && found->second->present;
}

void VirtualHidBackend::SetFeatureAnswer(const std::string& path, std::uint8_t reportId,
                                         std::vector<std::uint8_t> bytes) {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  if (found == units_.end()) return;
  found->second->featureAnswers[reportId] = WholeFeatureReport(reportId, std::move(bytes));
}

void VirtualHidBackend::SetFault(const std::string& path, VirtualFault fault, bool on) {
  {
    std::lock_guard lock(mutex_);
    auto found = units_.find(path);
    if (found == units_.end() || FaultIndex(fault) >= kFaultCount) return;
    found->second->faults[FaultIndex(fault)] = on;
  }
  inputArrived_.notify_all();  // a blocked read starts failing at once
  writesMayGo_.notify_all();
}

std::size_t VirtualHidBackend::BlockedWrites(const std::string& path) const {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  return found == units_.end() ? 0 : found->second->blockedWrites;
}

std::size_t VirtualHidBackend::BlockedFeatureReads(const std::string& path) const {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  return found == units_.end() ? 0 : found->second->blockedFeatureReads;
}

bool VirtualHidBackend::SendInput(const std::string& path, std::vector<std::uint8_t> report) {
  {
    std::lock_guard lock(mutex_);
    auto found = units_.find(path);
    if (found == units_.end() || !found->second->present || report.empty()) return false;
    const std::size_t length = found->second->spec.capabilities.inputReportLength;
    if (report.size() > length) return false;
    report.resize(length, 0);
    found->second->pendingInput.push_back(std::move(report));
  }
  inputArrived_.notify_all();
  return true;
}

std::size_t VirtualHidBackend::PendingInput(const std::string& path) const {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  return found == units_.end() ? 0 : found->second->pendingInput.size();
}

std::uint64_t VirtualHidBackend::InputTaken(const std::string& path) const {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  return found == units_.end() ? 0 : found->second->inputTaken;
}

std::vector<VirtualSentReport> VirtualHidBackend::Sent(const std::string& path) const {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  return found == units_.end() ? std::vector<VirtualSentReport>() : found->second->sent;
}

void VirtualHidBackend::ClearSent() {
  std::lock_guard lock(mutex_);
  for (auto& entry : units_) entry.second->sent.clear();
}

std::vector<std::string> VirtualHidBackend::EnumerateDevicePaths() {
  std::lock_guard lock(mutex_);
  std::vector<std::string> paths;
  for (const std::string& path : plugOrder_) {
    if (units_.at(path)->present) paths.push_back(path);
  }
  return paths;
}

std::unique_ptr<HidDeviceHandle> VirtualHidBackend::Open(const std::string& path) {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  if (found == units_.end() || !found->second->present || found->second->Failing(VirtualFault::Open)) {
    return nullptr;
  }
  return std::make_unique<Handle>(this, found->second);
}

HidOpenFailure VirtualHidBackend::DescribeOpenFailure(const std::string& path) {
  std::lock_guard lock(mutex_);
  auto found = units_.find(path);
  if (found == units_.end() || !found->second->present) return {};
  const VirtualUnitSpec& spec = found->second->spec;
#ifdef _WIN32
  const char* refused = "access denied";
#else
  const char* refused = "permission denied";
#endif
  return {spec.vendorId, spec.productId, found->second->Failing(VirtualFault::Open) ? refused : ""};
}

void VirtualHidBackend::StartNotifications() {
  std::lock_guard lock(mutex_);
  notifying_ = true;
}

void VirtualHidBackend::StopNotifications() {
  std::lock_guard lock(mutex_);
  notifying_ = false;
  changes_.clear();  // a later start must not see notices from before this stop
}

void VirtualHidBackend::TakeDeviceChanges(std::vector<HidDeviceChange>& out) {
  std::lock_guard lock(mutex_);
  std::move(changes_.begin(), changes_.end(), std::back_inserter(out));
  changes_.clear();
}

}  // namespace drav
