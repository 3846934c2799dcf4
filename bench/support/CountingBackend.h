// Backends for measurements: one that counts the opens of every path on the way to the virtual
// panels, and a quiet one with no device at all whose notices travel as the Linux backend's do
// (through the change queue, whose every-frame question takes no lock).
#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>

#include "hid/backend/HidDeviceChangeQueue.h"
#include "hid/backend/VirtualHidBackend.h"

namespace drav::bench {

class CountingBackend : public HidBackend {
 public:
  VirtualHidBackend& Panels() { return panels_; }
  int OpensOf(const std::string& path) const {
    std::lock_guard lock(mutex_);
    auto found = opens_.find(path);
    return found == opens_.end() ? 0 : found->second;
  }
  void ClearCounts() {
    std::lock_guard lock(mutex_);
    opens_.clear();
  }

  std::vector<std::string> EnumerateDevicePaths() override { return panels_.EnumerateDevicePaths(); }
  std::unique_ptr<HidDeviceHandle> Open(const std::string& path) override {
    {
      std::lock_guard lock(mutex_);
      ++opens_[path];
    }
    return panels_.Open(path);
  }
  void StartNotifications() override { panels_.StartNotifications(); }
  void StopNotifications() override { panels_.StopNotifications(); }
  void TakeDeviceChanges(std::vector<HidDeviceChange>& out) override { panels_.TakeDeviceChanges(out); }

 private:
  VirtualHidBackend panels_;
  mutable std::mutex mutex_;
  std::map<std::string, int> opens_;
};

class QuietBackend : public HidBackend {
 public:
  std::vector<std::string> EnumerateDevicePaths() override { return {}; }
  std::unique_ptr<HidDeviceHandle> Open(const std::string&) override { return nullptr; }
  void StartNotifications() override {}
  void StopNotifications() override { changes_.Clear(); }
  void TakeDeviceChanges(std::vector<HidDeviceChange>& out) override { changes_.TakeAll(out); }

 private:
  HidDeviceChangeQueue changes_;
};

}  // namespace drav::bench
