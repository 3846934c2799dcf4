// Notes on hidraw that shape this file:
// - Attributes: HIDIOCGRAWINFO gives bus, vendor and product but no version. The version is the
//   USB device's release number (bcdDevice), found two levels above the HID device in sysfs (HID
//   device -> USB interface -> USB device), or one level for other transports; 0x0100 when neither
//   exists, which is also what an unconfigured panel reports.
// - Report lengths: computed from the report descriptor as the Windows driver computes them (the id
//   byte included), see HidReportDescriptor.
// - Report ids: reads of a device without numbered reports come without the id byte, so one is put
//   in front. Writes and feature requests keep byte 0 as given: hidraw expects the report number
//   there (0 for such a device) and the USB HID driver drops it itself before the transfer, and it
//   keeps byte 0 in feature answers, so those already look as the layer expects.
// - The serial is HID_UNIQ of the device's uevent in sysfs, the location (USB port and interface)
//   HID_PHYS: a unit that comes back gets the lowest free node, often not its old one, but its port
//   is the same.
#ifdef __linux__

#include "hid/backend/LinuxHidBackend.h"

#include <fcntl.h>
#include <linux/hidraw.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

#include "hid/backend/HidReportDescriptor.h"
#include "hid/backend/HidrawIdentity.h"
#include "hid/backend/HidrawNodeEvents.h"

namespace drav {

namespace {

constexpr std::uint16_t kDefaultVersion = 0x0100;
constexpr const char* kSysfsHidraw = "/sys/class/hidraw/";
// Where a release number may sit, relative to /sys/class/hidraw/<node>/.
constexpr const char* kReleaseNumberFiles[] = {"device/../../bcdDevice", "device/../bcdDevice"};
// While an appeared node waits for its permissions, the watcher looks again this often.
constexpr int kSettleIntervalMs = 50;

std::optional<std::string> ReadTextFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream text;
  text << file.rdbuf();
  if (file.bad()) return std::nullopt;
  return text.str();
}

std::uint16_t ReleaseNumberOf(const std::string& nodeName) {
  for (const char* relative : kReleaseNumberFiles) {
    const auto text = ReadTextFile(kSysfsHidraw + nodeName + "/" + relative);
    if (!text) continue;
    if (const auto version = ParseBcdAttribute(*text)) return *version;
  }
  return kDefaultVersion;
}

std::optional<HidReportLayout> ReadReportLayout(int fd) {
  int size = 0;
  if (ioctl(fd, HIDIOCGRDESCSIZE, &size) < 0 || size <= 0 || size > HID_MAX_DESCRIPTOR_SIZE) return std::nullopt;
  hidraw_report_descriptor descriptor{};
  descriptor.size = static_cast<std::uint32_t>(size);
  if (ioctl(fd, HIDIOCGRDESC, &descriptor) < 0) return std::nullopt;
  return ParseHidReportDescriptor(std::span<const std::uint8_t>(descriptor.value, descriptor.size));
}

class FileDescriptor {
 public:
  explicit FileDescriptor(int fd = -1) : fd_(fd) {}
  ~FileDescriptor() {
    if (fd_ >= 0) close(fd_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int get() const { return fd_; }
  int release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

class HidrawHandle : public HidDeviceHandle {
 public:
  HidrawHandle(int fd, int cancelFd, std::string nodeName, std::optional<HidReportLayout> layout)
      : fd_(fd), cancelFd_(cancelFd), nodeName_(std::move(nodeName)), layout_(layout),
        version_(ReleaseNumberOf(nodeName_)) {}

  bool GetAttributes(HidAttributes* out) override {
    hidraw_devinfo info{};
    if (out == nullptr || ioctl(fd_.get(), HIDIOCGRAWINFO, &info) < 0) return false;
    *out = HidAttributes{static_cast<std::uint16_t>(info.vendor), static_cast<std::uint16_t>(info.product),
                         version_};
    return true;
  }

  bool GetCapabilities(HidCapabilities* out) override {
    if (out == nullptr || !layout_) return false;
    *out = layout_->lengths;
    return true;
  }

  std::string GetSerialNumber() override {
    const auto identity = ReadIdentity();
    return identity ? identity->serial : std::string();
  }

  std::string GetLocation() override {
    const auto identity = ReadIdentity();
    return identity ? identity->location : std::string();
  }

  int ReadInputReport(std::uint8_t* buffer, std::size_t capacity) override {
    // Without a descriptor, assume numbered reports: every panel of the family numbers them.
    const bool numbered = !layout_ || layout_->numberedReports;
    return hidraw::ReadReport(fd_.get(), cancelFd_.get(), numbered, buffer, capacity);
  }

  void CancelRead() override { hidraw::SignalCancel(cancelFd_.get()); }

  bool GetFeatureReport(std::uint8_t* buffer, std::size_t length) override {
    if (buffer == nullptr || length == 0) return false;
    // The kernel copies back only what the device answered; the rest of the answer reads as zeros.
    std::vector<std::uint8_t> answer(length, 0);
    answer[0] = buffer[0];
    if (ioctl(fd_.get(), HIDIOCGFEATURE(length), answer.data()) < 0) return false;
    std::copy(answer.begin(), answer.end(), buffer);
    return true;
  }

  bool SetFeatureReport(const std::uint8_t* data, std::size_t length) override {
    if (data == nullptr || length == 0) return false;
    // The set request only reads the buffer; the ioctl's prototype is not const.
    return ioctl(fd_.get(), HIDIOCSFEATURE(length), const_cast<std::uint8_t*>(data)) >= 0;
  }

  bool WriteOutputReport(const std::uint8_t* data, std::size_t length) override {
    if (data == nullptr || length == 0) return false;
    ssize_t written;
    do {
      written = write(fd_.get(), data, length);
    } while (written < 0 && errno == EINTR);
    return written == static_cast<ssize_t>(length);
  }

 private:
  std::optional<HidrawIdentity> ReadIdentity() const {
    const auto uevent = ReadTextFile(kSysfsHidraw + nodeName_ + "/device/uevent");
    return uevent ? ParseHidUevent(*uevent) : std::nullopt;
  }

  FileDescriptor fd_;
  FileDescriptor cancelFd_;
  std::string nodeName_;
  std::optional<HidReportLayout> layout_;
  std::uint16_t version_;
};

bool UsableNode(const std::string& path) { return access(path.c_str(), R_OK | W_OK) == 0; }

// Feeds every queued inotify event of the folder to `events`; removals go straight to `found`.
void DrainFolderEvents(int inotifyFd, HidrawNodeEvents& events, std::vector<HidDeviceChange>& found) {
  alignas(inotify_event) char buffer[4096];
  for (;;) {
    const ssize_t length = read(inotifyFd, buffer, sizeof buffer);
    if (length <= 0) return;  // EAGAIN: drained (or the descriptor failed: nothing more to read)
    for (ssize_t at = 0; at + static_cast<ssize_t>(sizeof(inotify_event)) <= length;) {
      const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
      at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      if (event->len == 0) continue;
      const std::string name(event->name);
      if (event->mask & IN_CREATE) events.Created(name, HidrawNodeEvents::Clock::now());
      if (event->mask & IN_DELETE) events.Deleted(name, found);
      if (event->mask & IN_ATTRIB) events.AttributesChanged(name, UsableNode, found);
    }
  }
}

}  // namespace

namespace hidraw {

WaitResult WaitForReport(int fd, int cancelFd) {
  for (;;) {
    pollfd watched[2] = {{fd, POLLIN, 0}, {cancelFd, POLLIN, 0}};
    if (poll(watched, 2, -1) < 0) {
      if (errno == EINTR) continue;
      return WaitResult::Failed;
    }
    if (watched[1].revents & POLLIN) {
      std::uint64_t count = 0;
      [[maybe_unused]] const ssize_t drained = read(cancelFd, &count, sizeof count);
      return WaitResult::Cancelled;
    }
    if (watched[0].revents & POLLIN) return WaitResult::Readable;
    if (watched[0].revents & (POLLERR | POLLHUP | POLLNVAL)) return WaitResult::Failed;
    if (watched[1].revents & (POLLERR | POLLNVAL)) return WaitResult::Failed;
  }
}

int ReadReport(int fd, int cancelFd, bool numberedReports, std::uint8_t* buffer, std::size_t capacity) {
  const std::size_t idBytes = numberedReports ? 0 : 1;
  if (buffer == nullptr || capacity <= idBytes) return -1;
  for (;;) {
    switch (WaitForReport(fd, cancelFd)) {
      case WaitResult::Cancelled: return 0;
      case WaitResult::Failed: return -1;
      case WaitResult::Readable: break;
    }
    const ssize_t length = read(fd, buffer + idBytes, capacity - idBytes);
    if (length < 0 && (errno == EAGAIN || errno == EINTR)) continue;
    if (length <= 0) return -1;  // 0: the other end is gone
    if (idBytes == 1) buffer[0] = 0;
    return static_cast<int>(length + static_cast<ssize_t>(idBytes));
  }
}

void SignalCancel(int cancelFd) {
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(cancelFd, &one, sizeof one);
}

}  // namespace hidraw

LinuxHidBackend::LinuxHidBackend(std::string devFolder) : devFolder_(std::move(devFolder)) {}

LinuxHidBackend::~LinuxHidBackend() { StopNotifications(); }

std::vector<std::string> LinuxHidBackend::EnumerateDevicePaths() {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(devFolder_, error), end; !error && entry != end;
       entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  return SortedHidrawPaths(devFolder_, names);
}

std::unique_ptr<HidDeviceHandle> LinuxHidBackend::Open(const std::string& path) {
  const std::string canonical = CanonicalHidrawPath(path);
  FileDescriptor fd(open(canonical.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
  if (fd.get() < 0) return nullptr;
  // Only a HID device answers this; anything else at the path is not one we can drive.
  hidraw_devinfo info{};
  if (ioctl(fd.get(), HIDIOCGRAWINFO, &info) < 0) return nullptr;
  FileDescriptor cancelFd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
  if (cancelFd.get() < 0) return nullptr;
  const auto layout = ReadReportLayout(fd.get());
  std::string nodeName = std::filesystem::path(canonical).filename().string();
  return std::make_unique<HidrawHandle>(fd.release(), cancelFd.release(), std::move(nodeName), layout);
}

// The ids come from sysfs, which anyone may read; the reason from trying the node once more.
HidOpenFailure LinuxHidBackend::DescribeOpenFailure(const std::string& path) {
  const std::string canonical = CanonicalHidrawPath(path);
  const std::string nodeName = std::filesystem::path(canonical).filename().string();
  const auto uevent = ReadTextFile(kSysfsHidraw + nodeName + "/device/uevent");
  const auto identity = uevent ? ParseHidUevent(*uevent) : std::nullopt;
  if (!identity) return {};
  FileDescriptor fd(open(canonical.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
  const int error = fd.get() < 0 ? errno : 0;
  HidOpenFailure failure{identity->vendorId, identity->productId, {}};
  failure.reason = error == EACCES || error == EPERM ? "permission denied"
                   : error != 0                      ? std::strerror(error)
                                                     : "not a HID device the kernel answers for";
  return failure;
}

void LinuxHidBackend::StartNotifications() {
  if (watcher_.joinable()) return;
  FileDescriptor inotifyFd(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  FileDescriptor stopFd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
  if (inotifyFd.get() < 0 || stopFd.get() < 0) return;  // no hot-plug, enumeration still works
  if (inotify_add_watch(inotifyFd.get(), devFolder_.c_str(), IN_CREATE | IN_DELETE | IN_ATTRIB) < 0) return;
  inotifyFd_ = inotifyFd.release();
  stopFd_ = stopFd.release();
  watcher_ = std::thread([this] { WatchFolder(); });
}

void LinuxHidBackend::StopNotifications() {
  if (!watcher_.joinable()) return;
  hidraw::SignalCancel(stopFd_);
  watcher_.join();
  close(inotifyFd_);
  close(stopFd_);
  inotifyFd_ = stopFd_ = -1;
  changes_.Clear();  // a later start must not see notices from before this stop
}

void LinuxHidBackend::TakeDeviceChanges(std::vector<HidDeviceChange>& out) { changes_.TakeAll(out); }

void LinuxHidBackend::WatchFolder() {
  HidrawNodeEvents events(devFolder_);
  std::vector<HidDeviceChange> found;
  for (;;) {
    pollfd watched[2] = {{inotifyFd_, POLLIN, 0}, {stopFd_, POLLIN, 0}};
    const int ready = poll(watched, 2, events.Waiting() ? kSettleIntervalMs : -1);
    if (ready < 0 && errno != EINTR) return;
    if (watched[1].revents != 0) return;
    if (watched[0].revents & (POLLERR | POLLNVAL)) return;
    if (watched[0].revents & POLLIN) DrainFolderEvents(inotifyFd_, events, found);
    events.Settle(HidrawNodeEvents::Clock::now(), UsableNode, found);
    for (HidDeviceChange& change : found) changes_.Push(std::move(change));
    found.clear();
  }
}

std::unique_ptr<HidBackend> MakePlatformHidBackend() { return std::make_unique<LinuxHidBackend>(); }

}  // namespace drav

#endif  // __linux__
