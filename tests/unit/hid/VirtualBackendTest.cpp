#include "hid/backend/VirtualHidBackend.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace drav {
namespace {

using Bytes = std::vector<std::uint8_t>;
using namespace std::chrono_literals;

VirtualUnitSpec PanelSpec(std::uint16_t productId = 0x0020, std::uint16_t inputLength = 4) {
  VirtualUnitSpec spec;
  spec.productId = productId;
  spec.serial = "SN-1";
  spec.capabilities = HidCapabilities{inputLength, 8, 8};
  return spec;
}

// Runs a read on another thread so that a test can check it stays blocked, then wake it.
struct BackgroundRead {
  explicit BackgroundRead(HidDeviceHandle& handle) {
    result = std::async(std::launch::async, [this, &handle] {
      started = true;
      return handle.ReadInputReport(buffer.data(), buffer.size());
    });
    while (!started) std::this_thread::yield();
  }
  bool StillBlocked() { return result.wait_for(50ms) == std::future_status::timeout; }
  int Wait() {
    EXPECT_EQ(result.wait_for(5s), std::future_status::ready) << "the read was never woken";
    return result.get();
  }
  std::array<std::uint8_t, 16> buffer{};
  std::atomic<bool> started{false};
  std::future<int> result;
};

TEST(VirtualHidBackend, EnumeratesPresentUnitsInPlugOrderAndKeepsAPathsPlaceAcrossReplug) {
  VirtualHidBackend backend;
  EXPECT_TRUE(backend.Plug("c", PanelSpec()));
  EXPECT_TRUE(backend.Plug("a", PanelSpec()));
  EXPECT_TRUE(backend.Plug("b", PanelSpec()));
  EXPECT_FALSE(backend.Plug("a", PanelSpec())) << "a present path cannot be plugged twice";
  EXPECT_EQ(backend.EnumerateDevicePaths(), (std::vector<std::string>{"c", "a", "b"}));

  EXPECT_TRUE(backend.Unplug("a"));
  EXPECT_FALSE(backend.Unplug("a"));
  EXPECT_FALSE(backend.IsPresent("a"));
  EXPECT_EQ(backend.EnumerateDevicePaths(), (std::vector<std::string>{"c", "b"}));
  EXPECT_TRUE(backend.Replug("a"));
  EXPECT_FALSE(backend.Replug("a")) << "already present";
  EXPECT_FALSE(backend.Replug("never-plugged"));
  EXPECT_EQ(backend.EnumerateDevicePaths(), (std::vector<std::string>{"c", "a", "b"}));
}

TEST(VirtualHidBackend, HandleReportsTheUnitsIdentityUntilUnplugged) {
  VirtualHidBackend backend;
  VirtualUnitSpec spec = PanelSpec(0x0064, 8);
  spec.version = 0x0203;
  spec.serial = "A1B2";
  backend.Plug("mcp", spec);
  EXPECT_EQ(backend.Open("nowhere"), nullptr);
  auto handle = backend.Open("mcp");
  ASSERT_NE(handle, nullptr);

  HidAttributes attributes;
  ASSERT_TRUE(handle->GetAttributes(&attributes));
  EXPECT_EQ(attributes.vendorId, 0x09F3);
  EXPECT_EQ(attributes.productId, 0x0064);
  EXPECT_EQ(attributes.version, 0x0203);
  HidCapabilities caps;
  ASSERT_TRUE(handle->GetCapabilities(&caps));
  EXPECT_EQ(caps.inputReportLength, 8);
  EXPECT_EQ(caps.outputReportLength, 8);
  EXPECT_EQ(caps.featureReportLength, 8);
  EXPECT_EQ(handle->GetSerialNumber(), "A1B2");
  EXPECT_FALSE(handle->GetAttributes(nullptr));

  backend.Unplug("mcp");
  EXPECT_FALSE(handle->GetAttributes(&attributes));
  EXPECT_FALSE(handle->GetCapabilities(&caps));
  EXPECT_EQ(handle->GetSerialNumber(), "");
  EXPECT_EQ(backend.Open("mcp"), nullptr);

  // A handle from before the unplug stays dead after the unit comes back; a new one works.
  backend.Replug("mcp");
  EXPECT_FALSE(handle->GetAttributes(&attributes));
  auto reopened = backend.Open("mcp");
  ASSERT_NE(reopened, nullptr);
  ASSERT_TRUE(reopened->GetAttributes(&attributes));
  EXPECT_EQ(attributes.version, 0x0203);
  EXPECT_EQ(reopened->GetSerialNumber(), "A1B2");
}

TEST(VirtualHidBackend, InputReportsArePaddedDeliveredInOrderAndCounted) {
  VirtualHidBackend backend;
  backend.Plug("p8", PanelSpec(0x0020, 4));
  auto handle = backend.Open("p8");
  ASSERT_NE(handle, nullptr);

  EXPECT_TRUE(backend.SendInput("p8", {0x01, 0x80}));
  EXPECT_TRUE(backend.SendInput("p8", {0x01, 0x02, 0x03, 0x04}));
  EXPECT_FALSE(backend.SendInput("p8", {0x01, 0x02, 0x03, 0x04, 0x05})) << "longer than the input report";
  EXPECT_FALSE(backend.SendInput("p8", {})) << "no report id";
  EXPECT_FALSE(backend.SendInput("nowhere", {0x01}));
  EXPECT_EQ(backend.PendingInput("p8"), 2u);

  std::array<std::uint8_t, 8> buffer;
  buffer.fill(0xEE);
  ASSERT_EQ(handle->ReadInputReport(buffer.data(), buffer.size()), 4);
  EXPECT_EQ(Bytes(buffer.begin(), buffer.begin() + 5), (Bytes{0x01, 0x80, 0x00, 0x00, 0xEE}));
  EXPECT_EQ(backend.InputTaken("p8"), 1u);

  // A buffer too small for a whole report fails the read and leaves the report queued.
  EXPECT_EQ(handle->ReadInputReport(buffer.data(), 3), -1);
  EXPECT_EQ(backend.PendingInput("p8"), 1u);
  ASSERT_EQ(handle->ReadInputReport(buffer.data(), buffer.size()), 4);
  EXPECT_EQ(Bytes(buffer.begin(), buffer.begin() + 4), (Bytes{0x01, 0x02, 0x03, 0x04}));
  EXPECT_EQ(backend.PendingInput("p8"), 0u);
  EXPECT_EQ(backend.InputTaken("p8"), 2u);
}

TEST(VirtualHidBackend, BlockedReadWakesOnInputCancelUnplugAndReadFault) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec(0x0020, 2));
  auto handle = backend.Open("u");
  ASSERT_NE(handle, nullptr);

  {
    BackgroundRead read(*handle);
    EXPECT_TRUE(read.StillBlocked());
    backend.SendInput("u", {0x01, 0x42});
    EXPECT_EQ(read.Wait(), 2);
    EXPECT_EQ(read.buffer[1], 0x42);
  }
  {
    BackgroundRead read(*handle);
    EXPECT_TRUE(read.StillBlocked());
    handle->CancelRead();
    EXPECT_EQ(read.Wait(), 0);
  }
  {
    BackgroundRead read(*handle);
    EXPECT_TRUE(read.StillBlocked());
    backend.SetFault("u", VirtualFault::Read, true);
    EXPECT_EQ(read.Wait(), -1);
  }
  backend.SetFault("u", VirtualFault::Read, false);
  {
    BackgroundRead read(*handle);
    EXPECT_TRUE(read.StillBlocked());
    backend.Unplug("u");
    EXPECT_EQ(read.Wait(), -1);
  }
  std::array<std::uint8_t, 4> buffer{};
  EXPECT_EQ(handle->ReadInputReport(buffer.data(), buffer.size()), -1) << "never blocks once the unit is gone";
}

// A stalled write waits until the block is lifted (then it is recorded), or until the unit goes
// away (then it fails and nothing is recorded); BlockedWrites lets a waiter see the stall.
TEST(VirtualHidBackend, BlockedWriteWaitsForReleaseOrUnplug) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec());
  auto handle = backend.Open("u");
  ASSERT_NE(handle, nullptr);
  const Bytes report{0x02, 0x55};
  const auto writeInBackground = [&] {
    return std::async(std::launch::async, [&] { return handle->WriteOutputReport(report.data(), report.size()); });
  };
  const auto waitForStall = [&] {
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    while (backend.BlockedWrites("u") == 0 && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    return backend.BlockedWrites("u");
  };

  backend.SetFault("u", VirtualFault::Block, true);
  auto released = writeInBackground();
  ASSERT_EQ(waitForStall(), 1u);
  EXPECT_EQ(released.wait_for(50ms), std::future_status::timeout);
  EXPECT_TRUE(backend.Sent("u").empty());
  backend.SetFault("u", VirtualFault::Block, false);
  EXPECT_TRUE(released.get());
  EXPECT_EQ(backend.BlockedWrites("u"), 0u);
  ASSERT_EQ(backend.Sent("u").size(), 1u);
  EXPECT_EQ(backend.Sent("u")[0].bytes, report);

  backend.ClearSent();
  backend.SetFault("u", VirtualFault::Block, true);
  auto abandoned = writeInBackground();
  ASSERT_EQ(waitForStall(), 1u);
  backend.Unplug("u");
  EXPECT_FALSE(abandoned.get());
  EXPECT_TRUE(backend.Sent("u").empty());
  EXPECT_EQ(backend.BlockedWrites("u"), 0u);
}

TEST(VirtualHidBackend, CancelBeforeReadMakesOnlyTheNextReadReturnZero) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec(0x0020, 2));
  auto first = backend.Open("u");
  auto second = backend.Open("u");
  first->CancelRead();
  backend.SendInput("u", {0x01, 0x07});
  std::array<std::uint8_t, 4> buffer{};
  EXPECT_EQ(first->ReadInputReport(buffer.data(), buffer.size()), 0) << "the cancel wins over queued input";
  EXPECT_EQ(backend.PendingInput("u"), 1u);
  EXPECT_EQ(second->ReadInputReport(buffer.data(), buffer.size()), 2) << "cancel is per handle";
  backend.SendInput("u", {0x01, 0x08});
  EXPECT_EQ(first->ReadInputReport(buffer.data(), buffer.size()), 2) << "the cancel was used up";
}

TEST(VirtualHidBackend, UnplugDropsPendingInputAndRefusesNewInput) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec(0x0020, 2));
  backend.SendInput("u", {0x01});
  backend.Unplug("u");
  EXPECT_EQ(backend.PendingInput("u"), 0u);
  EXPECT_FALSE(backend.SendInput("u", {0x01}));
}

TEST(VirtualHidBackend, FeatureReadsAnswerZerosOrTheAnswerGivenWithOrWithoutItsId) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec());
  auto handle = backend.Open("u");

  Bytes buffer(8, 0xEE);
  buffer[0] = 4;
  ASSERT_TRUE(handle->GetFeatureReport(buffer.data(), buffer.size()));
  EXPECT_EQ(buffer, (Bytes{4, 0, 0, 0, 0, 0, 0, 0})) << "no answer set: zero bytes after the id";

  backend.SetFeatureAnswer("u", 4, {0x04, 0x11, 0x22});  // the whole report, id first
  backend.SetFeatureAnswer("u", 2, {0x33, 0x44});        // the bytes after the id
  buffer.assign(8, 0xEE);
  buffer[0] = 4;
  ASSERT_TRUE(handle->GetFeatureReport(buffer.data(), buffer.size()));
  EXPECT_EQ(buffer, (Bytes{4, 0x11, 0x22, 0, 0, 0, 0, 0}));
  buffer.assign(8, 0xEE);
  buffer[0] = 2;
  ASSERT_TRUE(handle->GetFeatureReport(buffer.data(), buffer.size()));
  EXPECT_EQ(buffer, (Bytes{2, 0x33, 0x44, 0, 0, 0, 0, 0}));

  // An answer longer than the caller's buffer is cut, never written past it.
  backend.SetFeatureAnswer("u", 9, Bytes(20, 0x55));
  Bytes shortBuffer(3, 0);
  shortBuffer[0] = 9;
  ASSERT_TRUE(handle->GetFeatureReport(shortBuffer.data(), shortBuffer.size()));
  EXPECT_EQ(shortBuffer, (Bytes{9, 0x55, 0x55}));

  EXPECT_FALSE(handle->GetFeatureReport(buffer.data(), 0));
  EXPECT_FALSE(handle->GetFeatureReport(nullptr, 8));

  backend.SetFault("u", VirtualFault::Feature, true);
  EXPECT_FALSE(handle->GetFeatureReport(buffer.data(), buffer.size()));
  EXPECT_TRUE(handle->WriteOutputReport(buffer.data(), 2)) << "a feature fault leaves writes alone";
  backend.SetFault("u", VirtualFault::Feature, false);
  EXPECT_TRUE(handle->GetFeatureReport(buffer.data(), buffer.size()));
}

TEST(VirtualHidBackend, ReplugKeepsSpecAnswersAndFaultsButANewPlugStartsAfresh) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec());
  backend.SetFeatureAnswer("u", 4, {0x99});
  backend.SetFault("u", VirtualFault::Write, true);
  backend.Unplug("u");
  backend.Replug("u");
  auto handle = backend.Open("u");
  ASSERT_NE(handle, nullptr);
  Bytes buffer(8, 0);
  buffer[0] = 4;
  ASSERT_TRUE(handle->GetFeatureReport(buffer.data(), buffer.size()));
  EXPECT_EQ(buffer[1], 0x99);
  EXPECT_FALSE(handle->WriteOutputReport(buffer.data(), 2));

  backend.Unplug("u");
  backend.Plug("u", PanelSpec(0x0030));
  auto fresh = backend.Open("u");
  ASSERT_NE(fresh, nullptr);
  HidAttributes attributes;
  ASSERT_TRUE(fresh->GetAttributes(&attributes));
  EXPECT_EQ(attributes.productId, 0x0030);
  buffer.assign(8, 0);
  buffer[0] = 4;
  ASSERT_TRUE(fresh->GetFeatureReport(buffer.data(), buffer.size()));
  EXPECT_EQ(buffer[1], 0);
  EXPECT_TRUE(fresh->WriteOutputReport(buffer.data(), 2));
}

TEST(VirtualHidBackend, RecordsEveryWrittenReportExactlyAndOnlyWhenItSucceeds) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec());
  backend.Plug("v", PanelSpec());
  auto handle = backend.Open("u");

  const Bytes output{0x01, 0x02, 0x03};
  const Bytes feature{0x04, 0x0F};
  EXPECT_TRUE(handle->WriteOutputReport(output.data(), output.size()));
  EXPECT_TRUE(handle->SetFeatureReport(feature.data(), feature.size()));
  const Bytes tooLong(9, 0x01);
  EXPECT_FALSE(handle->WriteOutputReport(tooLong.data(), tooLong.size())) << "longer than the output report";
  EXPECT_FALSE(handle->SetFeatureReport(tooLong.data(), tooLong.size()));
  EXPECT_FALSE(handle->WriteOutputReport(output.data(), 0));

  backend.SetFault("u", VirtualFault::Write, true);
  EXPECT_FALSE(handle->WriteOutputReport(output.data(), output.size()));
  EXPECT_FALSE(handle->SetFeatureReport(feature.data(), feature.size()));
  Bytes buffer(8, 0);
  EXPECT_TRUE(handle->GetFeatureReport(buffer.data(), buffer.size())) << "a write fault leaves feature reads alone";
  backend.SetFault("u", VirtualFault::Write, false);

  const auto sent = backend.Sent("u");
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_EQ(sent[0].kind, VirtualSentReport::Kind::Output);
  EXPECT_EQ(sent[0].bytes, output);
  EXPECT_EQ(sent[1].kind, VirtualSentReport::Kind::Feature);
  EXPECT_EQ(sent[1].bytes, feature);
  EXPECT_TRUE(backend.Sent("v").empty());
  EXPECT_TRUE(backend.Sent("nowhere").empty());

  backend.Unplug("u");
  EXPECT_FALSE(handle->WriteOutputReport(output.data(), output.size()));
  EXPECT_EQ(backend.Sent("u").size(), 2u) << "the record survives the unplug";
  backend.ClearSent();
  EXPECT_TRUE(backend.Sent("u").empty());
}

TEST(VirtualHidBackend, OpenFaultRefusesNewHandlesOnly) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec());
  auto handle = backend.Open("u");
  backend.SetFault("u", VirtualFault::Open, true);
  EXPECT_EQ(backend.Open("u"), nullptr);
  HidAttributes attributes;
  EXPECT_TRUE(handle->GetAttributes(&attributes));
  backend.SetFault("u", VirtualFault::Open, false);
  EXPECT_NE(backend.Open("u"), nullptr);
}

TEST(VirtualHidBackend, NoticesAreQueuedOnlyWhileNotifyingAndTakenInOrder) {
  VirtualHidBackend backend;
  backend.Plug("early", PanelSpec());
  std::vector<HidDeviceChange> changes;
  backend.TakeDeviceChanges(changes);
  EXPECT_TRUE(changes.empty());

  backend.StartNotifications();
  backend.Plug("late", PanelSpec());
  backend.Unplug("early");
  backend.Replug("early");
  EXPECT_FALSE(backend.Unplug("nowhere"));
  backend.TakeDeviceChanges(changes);
  ASSERT_EQ(changes.size(), 3u);
  EXPECT_EQ(changes[0].kind, HidDeviceChange::Kind::Arrival);
  EXPECT_EQ(changes[0].path, "late");
  EXPECT_EQ(changes[1].kind, HidDeviceChange::Kind::Removal);
  EXPECT_EQ(changes[1].path, "early");
  EXPECT_EQ(changes[2].kind, HidDeviceChange::Kind::Arrival);
  EXPECT_EQ(changes[2].path, "early");

  std::vector<HidDeviceChange> again;
  backend.TakeDeviceChanges(again);
  EXPECT_TRUE(again.empty()) << "taken notices are gone";

  backend.Unplug("late");
  backend.StopNotifications();
  backend.Plug("after-stop", PanelSpec());
  backend.StartNotifications();
  backend.TakeDeviceChanges(again);
  EXPECT_TRUE(again.empty()) << "notices of a stopped session are dropped, none are made while off";
}

TEST(VirtualHidBackend, ConcurrentReadersWritersAndScenarioStayConsistent) {
  VirtualHidBackend backend;
  backend.Plug("u", PanelSpec(0x0020, 2));
  auto handle = backend.Open("u");
  constexpr int kReports = 500;

  std::thread reader([&] {
    std::array<std::uint8_t, 2> buffer{};
    int taken = 0;
    while (taken < kReports) {
      if (handle->ReadInputReport(buffer.data(), buffer.size()) == 2) ++taken;
    }
  });
  std::thread writer([&] {
    const Bytes report{0x01, 0x02};
    for (int i = 0; i < kReports; ++i) handle->WriteOutputReport(report.data(), report.size());
  });
  for (int i = 0; i < kReports; ++i) {
    backend.SendInput("u", {0x01, static_cast<std::uint8_t>(i)});
    if (i % 50 == 0) handle->CancelRead();
  }
  reader.join();
  writer.join();
  EXPECT_EQ(backend.InputTaken("u"), static_cast<std::uint64_t>(kReports));
  EXPECT_EQ(backend.Sent("u").size(), static_cast<std::size_t>(kReports));
}

TEST(HidBackendInstall, InstalledBackendIsTheActiveOneUntilReplaced) {
  auto owned = std::make_unique<VirtualHidBackend>();
  VirtualHidBackend* virtualBackend = owned.get();
  InstallHidBackend(std::move(owned));
  EXPECT_EQ(&ActiveHidBackend(), virtualBackend);
  InstallHidBackend(nullptr);
  EXPECT_EQ(dynamic_cast<VirtualHidBackend*>(&ActiveHidBackend()), nullptr) << "the platform's own again";
}

}  // namespace
}  // namespace drav
