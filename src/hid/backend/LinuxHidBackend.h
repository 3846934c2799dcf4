// The hidraw backend: /dev/hidraw* nodes, the hidraw ioctls for ids, report descriptor and feature
// reports, sysfs for the serial and the release number, inotify on /dev for arrivals and removals.
#pragma once

#ifdef __linux__

#include <cstddef>
#include <cstdint>
#include <string>
#include <thread>

#include "hid/backend/HidBackend.h"
#include "hid/backend/HidDeviceChangeQueue.h"

namespace drav {

// The blocking read of one report, on any file descriptor, woken by an eventfd: kept apart from the
// handle so that it is tested with a pipe.
namespace hidraw {

enum class WaitResult { Readable, Cancelled, Failed };

// Waits until `fd` has data or `cancelFd` (an eventfd) was signalled; a cancel wins and is consumed.
WaitResult WaitForReport(int fd, int cancelFd);

// One whole report into `buffer`, report id first: a device without numbered reports gets a 0
// byte put in front, because hidraw gives its reports without one. Returns the length, 0 when
// cancelled, -1 on failure (device gone, buffer too small for a byte of data).
int ReadReport(int fd, int cancelFd, bool numberedReports, std::uint8_t* buffer, std::size_t capacity);

// Signals the eventfd so that the current or next ReadReport returns 0.
void SignalCancel(int cancelFd);

}  // namespace hidraw

class LinuxHidBackend : public HidBackend {
 public:
  // `devFolder` is where the hidraw nodes are; tests give a folder of their own.
  explicit LinuxHidBackend(std::string devFolder = "/dev");
  ~LinuxHidBackend() override;
  LinuxHidBackend(const LinuxHidBackend&) = delete;
  LinuxHidBackend& operator=(const LinuxHidBackend&) = delete;

  std::vector<std::string> EnumerateDevicePaths() override;
  std::unique_ptr<HidDeviceHandle> Open(const std::string& path) override;
  HidOpenFailure DescribeOpenFailure(const std::string& path) override;
  // Main thread only (as the layer's start and stop are).
  void StartNotifications() override;
  void StopNotifications() override;
  void TakeDeviceChanges(std::vector<HidDeviceChange>& out) override;

 private:
  void WatchFolder();

  std::string devFolder_;
  HidDeviceChangeQueue changes_;
  int inotifyFd_ = -1;
  int stopFd_ = -1;
  std::thread watcher_;
};

}  // namespace drav

#endif  // __linux__
