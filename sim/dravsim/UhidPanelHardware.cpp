// Panels as uhid devices: the kernel's HID core parses their report descriptors, hidraw gives them
// nodes, and the plug-in reaches them through the platform's hidraw backend exactly as it reaches a
// USB panel. Each plugging is one open of /dev/uhid (closing it destroys the device), served by a
// thread that answers the kernel's get- and set-report requests and records what the plug-in wrote.
//
// What uhid can and cannot stand in for:
// - Output reports reach us as UHID_OUTPUT events that the kernel queues without waiting for an
//   answer, so an output write can neither fail nor stall; feature writes (UHID_SET_REPORT) and
//   reads (UHID_GET_REPORT) wait for our reply, which may carry an error or be held back (the
//   kernel gives up after its own 5 s, as a USB control transfer times out).
// - Reads from a hidraw node fail only when the device goes, so a read fault cannot be faked.
// - A node the user may not open is faked by taking its permissions away, which root ignores.
// - The release number lives in the USB device above the HID device; a uhid device has none, so
//   only the default version can be shown.
#ifdef __linux__

#include <fcntl.h>
#include <linux/uhid.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>

#include "dravsim/PanelHardware.h"

namespace dravsim {

namespace {

constexpr const char* kUhidNode = "/dev/uhid";
constexpr const char* kSysfsHidraw = "/sys/class/hidraw";
constexpr std::uint16_t kBusUsb = 0x03;
constexpr std::uint16_t kDefaultVersion = 0x0100;
constexpr auto kNodeWait = std::chrono::seconds(5);
// How long the kernel waits for the answer to a get- or set-report request before it fails it.
constexpr auto kKernelReportTimeout = std::chrono::seconds(5);

// A vendor-defined application collection with one unnumbered input, output and feature report of
// the given lengths (report id byte included, as the device layer counts them).
std::vector<std::uint8_t> ReportDescriptor(const drav::HidCapabilities& lengths) {
  const auto dataBytes = [](std::uint16_t length) { return static_cast<std::uint8_t>(length > 1 ? length - 1 : 1); };
  return {0x06, 0x00, 0xFF,  // usage page: vendor defined
          0x09, 0x01,        // usage 1
          0xA1, 0x01,        // collection: application
          0x15, 0x00, 0x26, 0xFF, 0x00,  // logical 0..255
          0x75, 0x08,        // report size: 8 bits
          0x95, dataBytes(lengths.inputReportLength), 0x09, 0x01, 0x81, 0x02,    // input
          0x95, dataBytes(lengths.outputReportLength), 0x09, 0x01, 0x91, 0x02,   // output
          0x95, dataBytes(lengths.featureReportLength), 0x09, 0x01, 0xB1, 0x02,  // feature
          0xC0};
}

std::vector<std::uint8_t> WholeFeatureReport(std::uint8_t reportId, std::vector<std::uint8_t> bytes) {
  if (bytes.empty() || bytes.front() != reportId) bytes.insert(bytes.begin(), reportId);
  return bytes;
}

std::string ReadText(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string UeventValue(const std::string& uevent, std::string_view key) {
  std::istringstream lines(uevent);
  std::string line;
  while (std::getline(lines, line)) {
    if (line.size() > key.size() && line.compare(0, key.size(), key) == 0 && line[key.size()] == '=') {
      return line.substr(key.size() + 1);
    }
  }
  return {};
}

std::string UpperCased(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

bool WriteEvent(int fd, const uhid_event& event) {
  ssize_t written;
  do {
    written = write(fd, &event, sizeof event);
  } while (written < 0 && errno == EINTR);
  return written == static_cast<ssize_t>(sizeof event);
}

class UhidUnit {
 public:
  UhidUnit(drav::VirtualUnitSpec spec, std::string phys) : spec_(std::move(spec)), phys_(std::move(phys)) {}
  ~UhidUnit() { Destroy(); }
  UhidUnit(const UhidUnit&) = delete;
  UhidUnit& operator=(const UhidUnit&) = delete;

  bool Create(const std::vector<std::string>& nodesInUse) {
    fd_ = open(kUhidNode, O_RDWR | O_CLOEXEC);
    stopFd_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (fd_ < 0 || stopFd_ < 0) return Destroy(), false;
    uhid_event event{};
    event.type = UHID_CREATE2;
    auto& create = event.u.create2;
    std::snprintf(reinterpret_cast<char*>(create.name), sizeof create.name, "dravsim %04x:%04x", spec_.vendorId,
                  spec_.productId);
    std::snprintf(reinterpret_cast<char*>(create.phys), sizeof create.phys, "%s", phys_.c_str());
    std::snprintf(reinterpret_cast<char*>(create.uniq), sizeof create.uniq, "%s", spec_.serial.c_str());
    const auto descriptor = ReportDescriptor(spec_.capabilities);
    std::memcpy(create.rd_data, descriptor.data(), descriptor.size());
    create.rd_size = static_cast<std::uint16_t>(descriptor.size());
    create.bus = kBusUsb;
    create.vendor = spec_.vendorId;
    create.product = spec_.productId;
    create.version = spec_.version;
    if (!WriteEvent(fd_, event)) return Destroy(), false;
    server_ = std::thread([this] { Serve(); });
    node_ = WaitForNode(nodesInUse);
    if (node_.empty()) return Destroy(), false;
    if (Faulted(drav::VirtualFault::Open)) chmod(node_.c_str(), 0);
    return true;
  }

  void Destroy() {
    if (server_.joinable()) {
      const std::uint64_t one = 1;
      [[maybe_unused]] const ssize_t signalled = write(stopFd_, &one, sizeof one);
      server_.join();
    }
    if (fd_ >= 0) {
      uhid_event event{};
      event.type = UHID_DESTROY;
      WriteEvent(fd_, event);
      close(fd_);
    }
    if (stopFd_ >= 0) close(stopFd_);
    fd_ = stopFd_ = -1;
    WaitForNodeGone();
    lastNode_ = node_;
    node_.clear();
  }

  bool Present() const { return fd_ >= 0; }
  void SetPhys(std::string phys) { phys_ = std::move(phys); }
  const std::string& Node() const { return node_; }
  // Where the device layer last knew the unit: after an unplug, where its removal notice is awaited.
  const std::string& LastNode() const { return node_.empty() ? lastNode_ : node_; }
  const drav::VirtualUnitSpec& Spec() const { return spec_; }

  bool SendInput(const std::vector<std::uint8_t>& report) {
    if (!Present() || report.empty()) return false;
    uhid_event event{};
    event.type = UHID_INPUT2;
    // Unnumbered reports go without their id byte, as a USB panel's do, and always whole: the
    // panel's interrupt transfer has the declared length (the HID core passes a short one on short).
    const std::size_t declared = spec_.capabilities.inputReportLength > 1 ? spec_.capabilities.inputReportLength - 1u : 0u;
    const std::size_t length = std::min<std::size_t>(std::max(report.size() - 1, declared), sizeof event.u.input2.data);
    std::copy_n(report.begin() + 1, std::min(report.size() - 1, length), event.u.input2.data);
    event.u.input2.size = static_cast<std::uint16_t>(length);
    if (!WriteEvent(fd_, event)) return false;
    ++inputSent_;
    return true;
  }
  std::uint64_t InputSent() const { return inputSent_; }

  void SetFeatureAnswer(std::uint8_t reportId, std::vector<std::uint8_t> bytes) {
    std::lock_guard lock(mutex_);
    featureAnswers_[reportId] = WholeFeatureReport(reportId, std::move(bytes));
  }

  // Returns how many held set-report requests the kernel gave up on before the block was lifted.
  std::size_t SetFault(drav::VirtualFault fault, bool on) {
    std::vector<std::uint32_t> released;
    std::size_t expired = 0;
    {
      std::lock_guard lock(mutex_);
      faults_[fault] = on;
      if (fault == drav::VirtualFault::Block && !on) {
        const auto now = std::chrono::steady_clock::now();
        for (const auto& [id, report] : held_) {
          released.push_back(id);
          if (now - report.since >= kKernelReportTimeout) ++expired;
        }
      }
    }
    for (const std::uint32_t id : released) ReplySetReport(id, 0);
    if (fault == drav::VirtualFault::Open && !node_.empty()) chmod(node_.c_str(), on ? 0 : 0600);
    return expired;
  }

  std::size_t BlockedWrites() const {
    std::lock_guard lock(mutex_);
    const auto now = std::chrono::steady_clock::now();
    return static_cast<std::size_t>(std::count_if(held_.begin(), held_.end(), [&](const auto& entry) {
      return now - entry.second.since < kKernelReportTimeout;
    }));
  }

  std::vector<drav::VirtualSentReport> Sent() const {
    std::lock_guard lock(mutex_);
    return sent_;
  }
  void ClearSent() {
    std::lock_guard lock(mutex_);
    sent_.clear();
  }

 private:
  bool Faulted(drav::VirtualFault fault) const {
    const auto found = faults_.find(fault);
    return found != faults_.end() && found->second;
  }

  // The hidraw node of this plugging: one whose HID device has our physical path and serial and is
  // not another live unit's node.
  std::string FindNode(const std::vector<std::string>& nodesInUse) const {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(kSysfsHidraw, error), end; !error && entry != end;
         entry.increment(error)) {
      const std::string uevent = ReadText(entry->path() / "device" / "uevent");
      if (UeventValue(uevent, "HID_PHYS") != phys_ || UeventValue(uevent, "HID_UNIQ") != spec_.serial) continue;
      const std::string node = "/dev/" + entry->path().filename().string();
      if (std::find(nodesInUse.begin(), nodesInUse.end(), node) != nodesInUse.end()) continue;
      if (access(node.c_str(), F_OK) == 0) return node;
    }
    return {};
  }

  std::string WaitForNode(const std::vector<std::string>& nodesInUse) const {
    const auto deadline = std::chrono::steady_clock::now() + kNodeWait;
    for (;;) {
      std::string node = FindNode(nodesInUse);
      if (!node.empty() || std::chrono::steady_clock::now() >= deadline) return node;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }

  void WaitForNodeGone() const {
    const auto deadline = std::chrono::steady_clock::now() + kNodeWait;
    while (!node_.empty() && access(node_.c_str(), F_OK) == 0 && std::chrono::steady_clock::now() < deadline) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }

  void Serve() {
    for (;;) {
      pollfd watched[2] = {{fd_, POLLIN, 0}, {stopFd_, POLLIN, 0}};
      if (poll(watched, 2, -1) < 0 && errno != EINTR) return;
      if (watched[1].revents != 0) return;
      if (watched[0].revents & (POLLERR | POLLHUP | POLLNVAL)) return;
      if (!(watched[0].revents & POLLIN)) continue;
      uhid_event event{};
      if (read(fd_, &event, sizeof event) <= 0) continue;
      Handle(event);
    }
  }

  void Handle(const uhid_event& event) {
    switch (event.type) {
      case UHID_OUTPUT: {
        const auto& output = event.u.output;
        Record(drav::VirtualSentReport::Kind::Output, output.data, output.size);
        break;
      }
      case UHID_SET_REPORT: AnswerSetReport(event.u.set_report); break;
      case UHID_GET_REPORT: AnswerGetReport(event.u.get_report); break;
      default: break;  // start, stop, open, close: nothing to do
    }
  }

  void Record(drav::VirtualSentReport::Kind kind, const std::uint8_t* data, std::size_t size) {
    std::lock_guard lock(mutex_);
    sent_.push_back({kind, std::vector<std::uint8_t>(data, data + std::min<std::size_t>(size, UHID_DATA_MAX))});
  }

  void AnswerSetReport(const uhid_set_report_req& request) {
    {
      std::lock_guard lock(mutex_);
      if (Faulted(drav::VirtualFault::Write)) {
        ReplySetReportLocked(request.id, EIO);
        return;
      }
      if (Faulted(drav::VirtualFault::Block)) {
        held_[request.id] = {std::chrono::steady_clock::now(),
                             std::vector<std::uint8_t>(request.data,
                                                       request.data + std::min<std::size_t>(request.size, UHID_DATA_MAX))};
        return;
      }
    }
    Record(drav::VirtualSentReport::Kind::Feature, request.data, request.size);
    ReplySetReport(request.id, 0);
  }

  void ReplySetReport(std::uint32_t id, std::uint16_t error) {
    std::lock_guard lock(mutex_);
    // A request the kernel gave up on failed for the writer; answering it late changes nothing.
    const auto held = held_.find(id);
    if (held != held_.end()) {
      const bool inTime = std::chrono::steady_clock::now() - held->second.since < kKernelReportTimeout;
      if (error == 0 && inTime) sent_.push_back({drav::VirtualSentReport::Kind::Feature, held->second.bytes});
      held_.erase(held);
    }
    ReplySetReportLocked(id, error);
  }

  void ReplySetReportLocked(std::uint32_t id, std::uint16_t error) {
    uhid_event reply{};
    reply.type = UHID_SET_REPORT_REPLY;
    reply.u.set_report_reply.id = id;
    reply.u.set_report_reply.err = error;
    WriteEvent(fd_, reply);
  }

  void AnswerGetReport(const uhid_get_report_req& request) {
    uhid_event reply{};
    reply.type = UHID_GET_REPORT_REPLY;
    auto& answer = reply.u.get_report_reply;
    answer.id = request.id;
    {
      std::lock_guard lock(mutex_);
      if (Faulted(drav::VirtualFault::Feature)) {
        answer.err = EIO;
      } else {
        std::vector<std::uint8_t> bytes(spec_.capabilities.featureReportLength, 0);
        if (bytes.empty()) bytes.resize(1);
        bytes[0] = request.rnum;
        const auto found = featureAnswers_.find(request.rnum);
        if (found != featureAnswers_.end()) {
          std::copy_n(found->second.begin(), std::min(bytes.size(), found->second.size()), bytes.begin());
        }
        std::copy(bytes.begin(), bytes.end(), answer.data);
        answer.size = static_cast<std::uint16_t>(bytes.size());
      }
    }
    WriteEvent(fd_, reply);
  }

  drav::VirtualUnitSpec spec_;
  std::string phys_;
  int fd_ = -1;
  int stopFd_ = -1;
  std::thread server_;
  std::string node_;
  std::string lastNode_;
  std::uint64_t inputSent_ = 0;

  mutable std::mutex mutex_;
  std::map<drav::VirtualFault, bool> faults_;
  std::map<std::uint8_t, std::vector<std::uint8_t>> featureAnswers_;
  struct HeldReport {
    std::chrono::steady_clock::time_point since;
    std::vector<std::uint8_t> bytes;
  };
  std::map<std::uint32_t, HeldReport> held_;
  std::vector<drav::VirtualSentReport> sent_;
};

constexpr std::string_view kCannotRead =
    "uhid cannot make a hidraw read fail (only the device's removal does)";
constexpr std::string_view kCannotFailOutput =
    "uhid cannot make an output report fail (the kernel queues UHID_OUTPUT without waiting for an answer)";
constexpr std::string_view kStallOutlasted =
    "the stall outlasted the kernel's 5 s set-report timeout, which the scenario's timing assumes it "
    "does not (a slow virtual machine)";
constexpr std::string_view kCannotDenyRoot = "a node the user may not open cannot be faked for root";
constexpr std::string_view kFeatureStallNotFaked =
    "a stalled feature read (a get-report held unanswered) is not faked on uhid yet";

class UhidPanelHardware : public PanelHardware {
 public:
  UhidPanelHardware() { drav::InstallHidBackend(nullptr); }

  bool Plug(const std::string& key, const drav::VirtualUnitSpec& spec) override {
    if (units_.count(key) != 0) return false;
    const std::string phys =
        spec.location.empty() ? "usb-dravsim-" + std::to_string(units_.size() + 1) + "/input0" : spec.location;
    auto unit = std::make_unique<UhidUnit>(spec, phys);
    if (!unit->Create(NodesInUse())) return false;
    units_.emplace(key, std::move(unit));
    return true;
  }

  bool Unplug(const std::string& key) override {
    UhidUnit* unit = Find(key);
    if (unit == nullptr || !unit->Present()) return false;
    unit->Destroy();
    return true;
  }

  bool Replug(const std::string& key) override {
    UhidUnit* unit = Find(key);
    return unit != nullptr && !unit->Present() && unit->Create(NodesInUse());
  }

  // The kernel gives each new device the lowest free node by itself; the key only names the unit.
  bool Renumber(const std::string& key, const std::string& newKey) override {
    const auto found = units_.find(key);
    if (found == units_.end() || found->second->Present() || units_.count(newKey) != 0) return false;
    units_.emplace(newKey, std::move(found->second));
    units_.erase(found);
    return true;
  }

  bool SetLocation(const std::string& key, const std::string& location) override {
    UhidUnit* unit = Find(key);
    if (unit == nullptr || unit->Present()) return false;
    unit->SetPhys(location);
    return true;
  }

  void SetFeatureAnswer(const std::string& key, std::uint8_t reportId, std::vector<std::uint8_t> bytes) override {
    if (UhidUnit* unit = Find(key)) unit->SetFeatureAnswer(reportId, std::move(bytes));
  }

  std::string SetFault(const std::string& key, drav::VirtualFault fault, bool on) override {
    UhidUnit* unit = Find(key);
    if (unit == nullptr) return {};
    if (on && fault == drav::VirtualFault::Read) return std::string(kCannotRead);
    if (on && fault == drav::VirtualFault::Write) return std::string(kCannotFailOutput);
    if (on && fault == drav::VirtualFault::Open && geteuid() == 0) return std::string(kCannotDenyRoot);
    if (on && fault == drav::VirtualFault::FeatureBlock) return std::string(kFeatureStallNotFaked);
    if (unit->SetFault(fault, on) > 0) return std::string(kStallOutlasted);
    return {};
  }

  bool SendInput(const std::string& key, std::vector<std::uint8_t> report) override {
    UhidUnit* unit = Find(key);
    return unit != nullptr && unit->SendInput(report);
  }
  // The kernel hands an input report to every open hidraw handle at once: none waits here.
  std::size_t PendingInput(const std::string&) const override { return 0; }
  std::uint64_t InputTaken(const std::string& key) const override {
    const UhidUnit* unit = Find(key);
    return unit == nullptr ? 0 : unit->InputSent();
  }
  std::size_t BlockedWrites(const std::string& key) const override {
    const UhidUnit* unit = Find(key);
    return unit == nullptr ? 0 : unit->BlockedWrites();
  }
  std::size_t BlockedFeatureReads(const std::string&) const override { return 0; }
  std::vector<drav::VirtualSentReport> Sent(const std::string& key) const override {
    const UhidUnit* unit = Find(key);
    return unit == nullptr ? std::vector<drav::VirtualSentReport>() : unit->Sent();
  }
  void ClearSent() override {
    for (auto& [key, unit] : units_) unit->ClearSent();
  }
  std::string LayerPath(const std::string& key) const override {
    const UhidUnit* unit = Find(key);
    return unit == nullptr ? std::string() : UpperCased(unit->LastNode());
  }
  bool NoticesLag() const override { return true; }
  std::string Unsupported(const drav::VirtualUnitSpec& spec) const override {
    if (spec.version == kDefaultVersion) return {};
    return "a uhid device has no USB release number above it, so it shows version 0x0100 only";
  }

 private:
  UhidUnit* Find(const std::string& key) const {
    const auto found = units_.find(key);
    return found == units_.end() ? nullptr : found->second.get();
  }

  std::vector<std::string> NodesInUse() const {
    std::vector<std::string> nodes;
    for (const auto& [key, unit] : units_) {
      if (unit->Present()) nodes.push_back(unit->Node());
    }
    return nodes;
  }

  std::map<std::string, std::unique_ptr<UhidUnit>> units_;
};

}  // namespace

std::unique_ptr<PanelHardware> MakeUhidPanelHardware(std::string& error) {
  const int probe = open(kUhidNode, O_RDWR | O_CLOEXEC);
  if (probe < 0) {
    error = std::string("cannot open ") + kUhidNode + ": " + std::strerror(errno);
    return nullptr;
  }
  close(probe);
  return std::make_unique<UhidPanelHardware>();
}

}  // namespace dravsim

#else  // not Linux

#include "dravsim/PanelHardware.h"

namespace dravsim {

std::unique_ptr<PanelHardware> MakeUhidPanelHardware(std::string& error) {
  error = "uhid panels exist only on Linux";
  return nullptr;
}

}  // namespace dravsim

#endif
