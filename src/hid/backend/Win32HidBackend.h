// The Windows backend: SetupAPI lists the HID class's interfaces, the HID class driver's file handles
// and hid.dll do the rest, and a hidden window on the main thread receives the arrival and removal
// broadcasts for the HID class.
#pragma once

#ifdef _WIN32

#include <string>

#include "hid/backend/HidBackend.h"
#include "hid/backend/HidDeviceChangeQueue.h"

namespace drav {

class Win32HidBackend : public HidBackend {
 public:
  Win32HidBackend() = default;
  ~Win32HidBackend() override;
  Win32HidBackend(const Win32HidBackend&) = delete;
  Win32HidBackend& operator=(const Win32HidBackend&) = delete;

  std::vector<std::string> EnumerateDevicePaths() override;
  std::unique_ptr<HidDeviceHandle> Open(const std::string& path) override;
  HidOpenFailure DescribeOpenFailure(const std::string& path) override;
  // Main thread: the window belongs to the thread that creates it, and the simulator pumps that
  // thread's messages.
  void StartNotifications() override;
  void StopNotifications() override;
  void TakeDeviceChanges(std::vector<HidDeviceChange>& out) override;

  // Called by the window procedure for each WM_DEVICECHANGE (the parameters as they came).
  void OnDeviceChange(unsigned long long event, const void* record);

 private:
  HidDeviceChangeQueue changes_;
  // Windows handles kept as opaque pointers so that this header needs no <windows.h>.
  void* instance_ = nullptr;      // HINSTANCE of the module holding this code
  unsigned short windowClass_ = 0;  // ATOM
  void* window_ = nullptr;        // HWND
  void* notification_ = nullptr;  // HDEVNOTIFY
};

}  // namespace drav

#endif  // _WIN32
