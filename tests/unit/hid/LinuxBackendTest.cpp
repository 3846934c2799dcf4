// The parts of the hidraw backend that need no device: sysfs text, report descriptors, node names
// and order, the change bookkeeping, the cancellable read (on a pipe) and the folder watcher (on a
// folder of the test's own).
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <optional>
#include <set>
#include <thread>

#include "hid/backend/HidDeviceChangeQueue.h"
#include "hid/backend/HidReportDescriptor.h"
#include "hid/backend/HidrawIdentity.h"
#include "hid/backend/HidrawNodeEvents.h"

#ifdef __linux__
#include <sys/eventfd.h>
#include <unistd.h>

#include "hid/backend/LinuxHidBackend.h"
#endif

namespace drav {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Lengths = std::vector<int>;
using namespace std::chrono_literals;

// Each notice as "arrive PATH" or "remove PATH", in order.
using Notices = std::vector<std::string>;
Notices Described(const std::vector<HidDeviceChange>& changes) {
  Notices notices;
  for (const HidDeviceChange& change : changes) {
    notices.push_back((change.kind == HidDeviceChange::Kind::Arrival ? "arrive " : "remove ") + change.path);
  }
  return notices;
}

// Input, output and feature report lengths of a parsed descriptor.
Lengths LengthsOf(const std::optional<HidReportLayout>& layout) {
  if (!layout) return {};
  return {layout->lengths.inputReportLength, layout->lengths.outputReportLength, layout->lengths.featureReportLength};
}

// ---- sysfs text and node names -----------------------------------------------------------------

TEST(HidrawIdentity, ParsesIdsNameSerialAndLocationFromUevent) {
  const auto identity = ParseHidUevent(
      "DRIVER=hid-generic\nHID_ID=0003:000009F3:00000064\nHID_NAME=Panel Maker MCP\n"
      "HID_PHYS=usb-0000:00:14.0-2/input0\nHID_UNIQ=A1B2C3\nMODALIAS=hid:b0003g0001v000009F3p00000064\n");
  ASSERT_TRUE(identity);
  EXPECT_EQ(identity->bus, 0x0003);
  EXPECT_EQ(identity->vendorId, 0x09F3);
  EXPECT_EQ(identity->productId, 0x0064);
  EXPECT_EQ(identity->name, "Panel Maker MCP");
  EXPECT_EQ(identity->serial, "A1B2C3");
  EXPECT_EQ(identity->location, "usb-0000:00:14.0-2/input0");
}

TEST(HidrawIdentity, SerialIsEmptyWhenAbsentAndLineEndsAreTolerated) {
  const auto identity = ParseHidUevent("HID_ID=0003:000009F3:00000020\r\nHID_UNIQ=\r\n");
  ASSERT_TRUE(identity);
  EXPECT_EQ(identity->productId, 0x0020);
  EXPECT_EQ(identity->serial, "");
  const auto noUniq = ParseHidUevent("HID_ID=0003:000009F3:00000020");
  ASSERT_TRUE(noUniq);
  EXPECT_EQ(noUniq->serial, "");
  EXPECT_EQ(noUniq->location, "") << "no HID_PHYS: the unit is known by its node alone";
}

TEST(HidrawIdentity, RejectsUeventWithoutUsableIds) {
  for (const char* uevent : {"", "HID_NAME=x\nHID_UNIQ=y\n", "HID_ID=0003:000009F3\n", "HID_ID=0003:0009F3:zz20\n",
                              "HID_ID=0003:000109F3:00000020\n",  // vendor wider than 16 bits
                              "HID_ID=0003::00000020\n"}) {
    EXPECT_FALSE(ParseHidUevent(uevent)) << uevent;
  }
}

TEST(HidrawIdentity, ParsesReleaseNumbers) {
  EXPECT_EQ(ParseBcdAttribute("0100\n"), 0x0100);
  EXPECT_EQ(ParseBcdAttribute("0203"), 0x0203);
  for (const char* bad : {"", "\n", "1.00\n", "10000\n"}) EXPECT_FALSE(ParseBcdAttribute(bad)) << bad;
}

TEST(HidrawIdentity, OrdersNodesByNumberAndSkipsOtherNames) {
  EXPECT_EQ(HidrawNodeNumber("hidraw0"), 0);
  EXPECT_EQ(HidrawNodeNumber("hidraw12"), 12);
  for (const char* other : {"hidraw", "hidraw1a", "hidraw-1", "myhidraw1", "hidraw99999999999999"}) {
    EXPECT_FALSE(HidrawNodeNumber(other)) << other;
  }

  EXPECT_EQ(SortedHidrawPaths("/dev", {"hidraw10", "tty0", "hidraw2", "hidraw", "hidraw0", "hidraw1x"}),
            (std::vector<std::string>{"/dev/hidraw0", "/dev/hidraw2", "/dev/hidraw10"}));
  EXPECT_TRUE(SortedHidrawPaths("/dev", {}).empty());
}

TEST(HidrawIdentity, CanonicalPathUndoesUpperCasingOfHidrawPathsOnly) {
  EXPECT_EQ(CanonicalHidrawPath("/DEV/HIDRAW3"), "/dev/hidraw3");
  for (const char* unchanged : {"/dev/hidraw3", "/DEV/TTY0", "/dev/hidraw", "/tmp/hidraw3"}) {
    EXPECT_EQ(CanonicalHidrawPath(unchanged), unchanged);
  }
  EXPECT_EQ(HidrawNodeNameOfPath("/Dev/HidRaw7"), "hidraw7");
  EXPECT_EQ(HidrawNodeNameOfPath("/dev/"), "");
}

// ---- report descriptors ------------------------------------------------------------------------

TEST(HidReportDescriptor, NumberedReportsTakeTheLongestOfEachKindPlusTheIdByte) {
  const Bytes descriptor{
      0x05, 0x01,        // Usage Page (Generic Desktop)
      0x09, 0x00,        // Usage (Undefined)
      0xA1, 0x01,        // Collection (Application)
      0x85, 0x01,        //   Report ID 1
      0x75, 0x08,        //   Report Size 8
      0x95, 0x03,        //   Report Count 3
      0x81, 0x02,        //   Input: 3 bytes
      0x95, 0x07,        //   Report Count 7
      0x91, 0x02,        //   Output: 7 bytes
      0x85, 0x02,        //   Report ID 2
      0x75, 0x01,        //   Report Size 1
      0x95, 0x0C,        //   Report Count 12
      0x81, 0x02,        //   Input: 12 bits
      0x75, 0x04,        //   Report Size 4
      0x95, 0x01,        //   Report Count 1
      0x81, 0x03,        //   Input: 4 bits of padding, 2 bytes in all
      0x85, 0x04,        //   Report ID 4
      0x75, 0x08,        //   Report Size 8
      0x96, 0x07, 0x00,  //   Report Count 7 (two data bytes)
      0xB1, 0x02,        //   Feature: 7 bytes
      0xC0,              // End Collection
  };
  const auto layout = ParseHidReportDescriptor(descriptor);
  ASSERT_TRUE(layout);
  EXPECT_TRUE(layout->numberedReports);
  EXPECT_EQ(LengthsOf(layout), (Lengths{4, 8, 8}));
}

TEST(HidReportDescriptor, UnnumberedReportsStillCountAnIdByteAndMissingKindsAreZero) {
  const Bytes descriptor{0x06, 0x00, 0xFF,  // Usage Page (vendor, two bytes)
                         0xA1, 0x01, 0x75, 0x01, 0x95, 0x0D, 0x81, 0x02,  // 13 bits in
                         0xC0};
  const auto layout = ParseHidReportDescriptor(descriptor);
  ASSERT_TRUE(layout);
  EXPECT_FALSE(layout->numberedReports);
  EXPECT_EQ(LengthsOf(layout), (Lengths{3, 0, 0}));
}

TEST(HidReportDescriptor, PushAndPopRestoreSizeCountAndId) {
  const Bytes descriptor{0x85, 0x03, 0x75, 0x08, 0x95, 0x04,  // id 3, 4 x 8 bits
                         0xA4,                                // Push
                         0x85, 0x05, 0x95, 0x01, 0x81, 0x02,  // id 5: 1 byte in
                         0xB4,                                // Pop: back to id 3, 4 x 8
                         0x81, 0x02,                          // id 3: 4 bytes in
                         0x97, 0x0A, 0x00, 0x00, 0x00,        // Report Count 10 (four data bytes)
                         0x81, 0x02};                         // id 3: 14 bytes in
  EXPECT_EQ(LengthsOf(ParseHidReportDescriptor(descriptor)), (Lengths{15, 0, 0}));
}

TEST(HidReportDescriptor, SkipsLongItemsAndRejectsMalformedDescriptors) {
  const Bytes withLongItem{0xFE, 0x02, 0x10, 0x81, 0x02,  // a long item whose data looks like Input
                           0x75, 0x08, 0x95, 0x02, 0xB1, 0x02};
  EXPECT_EQ(LengthsOf(ParseHidReportDescriptor(withLongItem)), (Lengths{0, 0, 3}));

  EXPECT_FALSE(ParseHidReportDescriptor(Bytes{0x75, 0x08, 0x95})) << "item cut off";
  EXPECT_FALSE(ParseHidReportDescriptor(Bytes{0x97, 0x01, 0x00})) << "four-byte item cut off";
  EXPECT_FALSE(ParseHidReportDescriptor(Bytes{0xFE, 0x05, 0x10, 0x00})) << "long item cut off";
  EXPECT_FALSE(ParseHidReportDescriptor(Bytes{0xFE, 0x00})) << "long item header cut off";
  EXPECT_FALSE(ParseHidReportDescriptor(Bytes{0xB4})) << "pop without push";

  EXPECT_EQ(LengthsOf(ParseHidReportDescriptor(Bytes{})), (Lengths{0, 0, 0}));
}

TEST(HidReportDescriptor, HugeSizesSaturateInsteadOfWrapping) {
  const Bytes descriptor{0x77, 0xFF, 0xFF, 0xFF, 0xFF,   // Report Size 2^32 - 1
                         0x97, 0xFF, 0xFF, 0xFF, 0xFF,   // Report Count 2^32 - 1
                         0x81, 0x02, 0x81, 0x02};
  EXPECT_EQ(LengthsOf(ParseHidReportDescriptor(descriptor)), (Lengths{0xFFFF, 0, 0}));
}

// ---- change bookkeeping ------------------------------------------------------------------------

TEST(HidDeviceChangeQueue, HandsOverNoticesInOrderOnceAndAppends) {
  HidDeviceChangeQueue queue;
  std::vector<HidDeviceChange> out{{HidDeviceChange::Kind::Removal, "earlier"}};
  queue.TakeAll(out);
  EXPECT_EQ(out.size(), 1u);
  EXPECT_FALSE(queue.HasChanges());

  queue.Push({HidDeviceChange::Kind::Arrival, "/dev/hidraw1"});
  queue.Push({HidDeviceChange::Kind::Removal, "/dev/hidraw0"});
  EXPECT_TRUE(queue.HasChanges());
  queue.TakeAll(out);
  EXPECT_EQ(Described(out), (Notices{"remove earlier", "arrive /dev/hidraw1", "remove /dev/hidraw0"}));
  EXPECT_FALSE(queue.HasChanges());
  queue.TakeAll(out);
  EXPECT_EQ(out.size(), 3u);

  queue.Push({HidDeviceChange::Kind::Arrival, "x"});
  queue.Clear();
  EXPECT_FALSE(queue.HasChanges());
  std::vector<HidDeviceChange> none;
  queue.TakeAll(none);
  EXPECT_TRUE(none.empty());
}

TEST(HidDeviceChangeQueue, NoNoticeIsLostBetweenAProducerAndTheTakingThread) {
  HidDeviceChangeQueue queue;
  constexpr int kNotices = 2000;
  std::thread producer([&] {
    for (int i = 0; i < kNotices; ++i) queue.Push({HidDeviceChange::Kind::Arrival, std::to_string(i)});
  });
  std::vector<HidDeviceChange> taken;
  const auto deadline = std::chrono::steady_clock::now() + 10s;
  while (taken.size() < static_cast<std::size_t>(kNotices) && std::chrono::steady_clock::now() < deadline) {
    queue.TakeAll(taken);
  }
  producer.join();
  queue.TakeAll(taken);
  ASSERT_EQ(taken.size(), static_cast<std::size_t>(kNotices));
  for (int i = 0; i < kNotices; ++i) EXPECT_EQ(taken[i].path, std::to_string(i));
}

TEST(HidrawNodeEvents, AnnouncesANewNodeOnceItIsUsableOrWaitedLongEnough) {
  HidrawNodeEvents events("/dev", 1000ms);
  const auto start = HidrawNodeEvents::Clock::now();
  std::set<std::string> usable;
  const auto check = [&](const std::string& path) { return usable.count(path) > 0; };
  std::vector<HidDeviceChange> out;

  events.Created("hidraw3", start);
  events.Created("hidraw4", start);
  events.Created("hidraw3", start);  // seen twice, announced once
  events.Created("tty5", start);     // not a hidraw node
  EXPECT_TRUE(events.Waiting());
  events.Settle(start + 10ms, check, out);
  EXPECT_TRUE(out.empty()) << "no permissions yet";

  usable.insert("/dev/hidraw4");
  events.Settle(start + 20ms, check, out);
  EXPECT_EQ(Described(out), Notices{"arrive /dev/hidraw4"});

  events.Settle(start + 1000ms, check, out);
  EXPECT_EQ(Described(out), (Notices{"arrive /dev/hidraw4", "arrive /dev/hidraw3"}))
      << "patience ran out: announced anyway";
  EXPECT_FALSE(events.Waiting());
}

TEST(HidrawNodeEvents, ANodeAnnouncedUnusableIsAnnouncedAgainWhenItsPermissionsAreFixed) {
  HidrawNodeEvents events("/dev", 1000ms);
  const auto start = HidrawNodeEvents::Clock::now();
  std::set<std::string> usable;
  const auto check = [&](const std::string& path) { return usable.count(path) > 0; };
  std::vector<HidDeviceChange> out;

  events.Created("hidraw2", start);
  events.Created("hidraw7", start);
  usable.insert("/dev/hidraw7");
  events.Settle(start + 1000ms, check, out);
  ASSERT_EQ(out.size(), 2u);
  out.clear();

  events.AttributesChanged("hidraw2", check, out);
  EXPECT_TRUE(out.empty()) << "the attributes changed, but it still cannot be opened";
  events.AttributesChanged("hidraw7", check, out);
  EXPECT_TRUE(out.empty()) << "usable from the start: already announced and opened";

  usable.insert("/dev/hidraw2");
  events.AttributesChanged("hidraw2", check, out);
  EXPECT_EQ(Described(out), Notices{"arrive /dev/hidraw2"});
  events.AttributesChanged("hidraw2", check, out);
  EXPECT_EQ(out.size(), 1u) << "announced again once only";

  // A node that went away is forgotten: a later node of that name waits for its patience again.
  events.Created("hidraw3", start);
  events.Settle(start + 1000ms, check, out);
  events.Deleted("hidraw3", out);
  out.clear();
  usable.insert("/dev/hidraw3");
  events.AttributesChanged("hidraw3", check, out);
  EXPECT_TRUE(out.empty());
}

TEST(HidrawNodeEvents, RemovalOnlyForNodesWhoseArrivalWasAnnounced) {
  HidrawNodeEvents events("/dev", 1000ms);
  const auto start = HidrawNodeEvents::Clock::now();
  std::vector<HidDeviceChange> out;
  events.Created("hidraw1", start);
  events.Deleted("hidraw1", out);
  EXPECT_TRUE(out.empty()) << "came and went before it was usable: nothing to tell";
  EXPECT_FALSE(events.Waiting());

  events.Deleted("hidraw0", out);  // a node present before the watch began
  events.Deleted("null", out);
  EXPECT_EQ(Described(out), Notices{"remove /dev/hidraw0"});
}

#ifdef __linux__

// ---- the cancellable read, on a pipe -----------------------------------------------------------

class HidrawRead : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(pipe(pipe_), 0);
    cancelFd_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    ASSERT_GE(cancelFd_, 0);
  }
  void TearDown() override {
    CloseWriter();
    close(pipe_[0]);
    close(cancelFd_);
  }
  void Send(const Bytes& bytes) { ASSERT_EQ(write(pipe_[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size())); }
  void CloseWriter() {
    if (pipe_[1] >= 0) close(pipe_[1]);
    pipe_[1] = -1;
  }
  int Read(bool numbered, std::size_t capacity = 8) {
    return hidraw::ReadReport(pipe_[0], cancelFd_, numbered, buffer_.data(), capacity);
  }

  int pipe_[2] = {-1, -1};
  int cancelFd_ = -1;
  std::array<std::uint8_t, 8> buffer_{};
};

TEST_F(HidrawRead, NumberedReportsArriveAsTheyAre) {
  Send({0x04, 0x11, 0x22});
  ASSERT_EQ(Read(true), 3);
  EXPECT_EQ(Bytes(buffer_.begin(), buffer_.begin() + 3), (Bytes{0x04, 0x11, 0x22}));
}

TEST_F(HidrawRead, UnnumberedReportsGetAZeroIdInFront) {
  Send({0xAA, 0xBB});
  ASSERT_EQ(Read(false), 3);
  EXPECT_EQ(Bytes(buffer_.begin(), buffer_.begin() + 3), (Bytes{0x00, 0xAA, 0xBB}));
  EXPECT_EQ(Read(false, 1), -1) << "no room for any data after the id";
  EXPECT_EQ(hidraw::ReadReport(pipe_[0], cancelFd_, true, nullptr, 8), -1);
}

TEST_F(HidrawRead, CancelBeforeTheReadReturnsZeroOnceAndWinsOverData) {
  hidraw::SignalCancel(cancelFd_);
  hidraw::SignalCancel(cancelFd_);  // two cancels before a read still wake only that read
  Send({0x01, 0x02});
  EXPECT_EQ(Read(true), 0);
  EXPECT_EQ(Read(true), 2);
}

TEST_F(HidrawRead, CancelWakesABlockedReadAndAClosedDeviceFailsIt) {
  auto blocked = std::async(std::launch::async, [this] { return Read(true); });
  EXPECT_EQ(blocked.wait_for(50ms), std::future_status::timeout);
  hidraw::SignalCancel(cancelFd_);
  ASSERT_EQ(blocked.wait_for(5s), std::future_status::ready);
  EXPECT_EQ(blocked.get(), 0);

  auto failing = std::async(std::launch::async, [this] { return Read(true); });
  EXPECT_EQ(failing.wait_for(50ms), std::future_status::timeout);
  CloseWriter();
  ASSERT_EQ(failing.wait_for(5s), std::future_status::ready);
  EXPECT_EQ(failing.get(), -1);
}

// ---- the backend on a folder of the test's own -------------------------------------------------

class LinuxBackendFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() /
              ("drav-hidraw-" + std::to_string(getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }
  void Touch(const std::string& name) { std::ofstream(folder_ / name).put('x'); }
  std::string PathOf(const std::string& name) const { return (folder_ / name).string(); }

  // Takes notices until `count` arrived or a few seconds passed.
  static std::vector<HidDeviceChange> TakeUntil(LinuxHidBackend& backend, std::size_t count) {
    std::vector<HidDeviceChange> changes;
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    while (changes.size() < count && std::chrono::steady_clock::now() < deadline) {
      backend.TakeDeviceChanges(changes);
      std::this_thread::sleep_for(5ms);
    }
    return changes;
  }

  std::filesystem::path folder_;
};

TEST_F(LinuxBackendFolder, EnumeratesHidrawNodesInNumberOrder) {
  for (const char* name : {"hidraw11", "hidraw3", "ttyS0", "hidraw0", "hidrawx"}) Touch(name);
  LinuxHidBackend backend(folder_.string());
  EXPECT_EQ(backend.EnumerateDevicePaths(),
            (std::vector<std::string>{PathOf("hidraw0"), PathOf("hidraw3"), PathOf("hidraw11")}));
  LinuxHidBackend missing((folder_ / "absent").string());
  EXPECT_TRUE(missing.EnumerateDevicePaths().empty());
}

TEST_F(LinuxBackendFolder, OpensOnlyHidDevices) {
  LinuxHidBackend backend(folder_.string());
  Touch("hidraw0");
  EXPECT_EQ(backend.Open(PathOf("hidraw0")), nullptr) << "a plain file is no HID device";
  EXPECT_EQ(backend.Open("/dev/null"), nullptr) << "a device that is not HID";
  EXPECT_EQ(backend.Open(PathOf("hidraw9")), nullptr);
  EXPECT_EQ(backend.Open(""), nullptr);
}

TEST_F(LinuxBackendFolder, NoticesNodesAppearingAndGoingWhileWatching) {
  Touch("hidraw0");
  LinuxHidBackend backend(folder_.string());
  std::vector<HidDeviceChange> changes;
  backend.TakeDeviceChanges(changes);
  EXPECT_TRUE(changes.empty()) << "not watching yet";

  backend.StartNotifications();
  backend.StartNotifications();  // a second start changes nothing
  Touch("hidraw5");
  Touch("other");
  changes = TakeUntil(backend, 1);
  EXPECT_EQ(Described(changes), Notices{"arrive " + PathOf("hidraw5")});

  std::filesystem::remove(folder_ / "hidraw0");
  std::filesystem::remove(folder_ / "hidraw5");
  changes = TakeUntil(backend, 2);
  EXPECT_EQ(Described(changes), (Notices{"remove " + PathOf("hidraw0"), "remove " + PathOf("hidraw5")}));

  backend.StopNotifications();
  Touch("hidraw6");
  std::this_thread::sleep_for(100ms);
  changes.clear();
  backend.TakeDeviceChanges(changes);
  EXPECT_TRUE(changes.empty()) << "stopped";

  backend.StartNotifications();  // watching again after a stop
  std::filesystem::remove(folder_ / "hidraw6");
  changes = TakeUntil(backend, 1);
  EXPECT_EQ(Described(changes), Notices{"remove " + PathOf("hidraw6")});
}

TEST(LinuxHidBackend, IsThePlatformBackend) {
  auto backend = MakePlatformHidBackend();
  EXPECT_NE(dynamic_cast<LinuxHidBackend*>(backend.get()), nullptr);
}

#endif  // __linux__

}  // namespace
}  // namespace drav
