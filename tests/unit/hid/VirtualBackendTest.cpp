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
