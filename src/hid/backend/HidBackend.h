// What the device layer needs of the platform's HID support: the present interfaces, one open
// handle per device with blocking input reads that another thread can wake, feature and output
// reports, and arrival and removal notices handed to the simulator's main thread. Each platform
// (hidraw on Linux, the HID class driver on Windows, in-memory panels for the tests) implements it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace drav {

struct HidAttributes {
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
  std::uint16_t version = 0;  // reported as the firmware version
};

// Report lengths in bytes, the report id byte included.
struct HidCapabilities {
  std::uint16_t inputReportLength = 0;
  std::uint16_t outputReportLength = 0;
  std::uint16_t featureReportLength = 0;
};

// One open handle on a device. Reads block on one thread while another may call CancelRead, write
// reports or read features; every operation is safe to call from any thread and fails (never blocks
// for ever, never crashes) once the device is gone.
class HidDeviceHandle {
 public:
  virtual ~HidDeviceHandle() = default;

  virtual bool GetAttributes(HidAttributes* out) = 0;
  virtual bool GetCapabilities(HidCapabilities* out) = 0;
  // The serial number string narrowed to 8-bit characters; empty when the device has none or the
  // query fails.
  virtual std::string GetSerialNumber() = 0;
  // Where the device is attached (the USB port and interface), which stays the same when the
  // system gives the device another path; empty where paths themselves are stable.
  virtual std::string GetLocation() { return {}; }

  // Blocks until one whole input report arrives (byte 0 = report id) and returns its length, or
  // returns 0 when CancelRead woke it, or -1 when the read failed (device gone).
  virtual int ReadInputReport(std::uint8_t* buffer, std::size_t capacity) = 0;
  // Wakes a ReadInputReport that is blocked, or makes the next one return 0 at once.
  virtual void CancelRead() = 0;

  // buffer[0] selects the report id; the answer overwrites the buffer. False on failure.
  virtual bool GetFeatureReport(std::uint8_t* buffer, std::size_t length) = 0;
  virtual bool SetFeatureReport(const std::uint8_t* data, std::size_t length) = 0;
  virtual bool WriteOutputReport(const std::uint8_t* data, std::size_t length) = 0;
};

// Why a panel could not be opened, told without opening it (from what the system says of the path).
struct HidOpenFailure {
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
  std::string reason;  // "permission denied" ...; empty when the path is no device we know of
};

struct HidDeviceChange {
  enum class Kind { Arrival, Removal };
  Kind kind = Kind::Arrival;
  std::string path;
};

class HidBackend {
 public:
  virtual ~HidBackend() = default;

  // Paths of the present HID interfaces, in a stable order (the order units are numbered in).
  virtual std::vector<std::string> EnumerateDevicePaths() = 0;
  // Opens a path for reading and writing, shared with other handles; null when it cannot be opened.
  virtual std::unique_ptr<HidDeviceHandle> Open(const std::string& path) = 0;
  // Main thread, after Open failed: the ids and the reason, for the pilot's log. Other vendors'
  // devices fail too (Linux keeps most nodes to root), so the ids tell a panel from them.
  virtual HidOpenFailure DescribeOpenFailure(const std::string& /*path*/) { return {}; }

  // Starts and stops noticing arrivals and removals (the layer's start and stop).
  virtual void StartNotifications() = 0;
  virtual void StopNotifications() = 0;
  // Main thread: moves the notices gathered since the last call into `out`, in the order they
  // happened. Cheap when nothing happened (no system call), because the plug-in asks every frame.
  virtual void TakeDeviceChanges(std::vector<HidDeviceChange>& out) = 0;
};

// The backend the device layer uses: the platform's own unless one was installed. Main thread.
HidBackend& ActiveHidBackend();
// Installs a backend (dravsim and the tests install the virtual one); null restores the platform's.
void InstallHidBackend(std::unique_ptr<HidBackend> backend);
// The platform's backend, made by the platform's source file (linux, win32).
std::unique_ptr<HidBackend> MakePlatformHidBackend();

}  // namespace drav
