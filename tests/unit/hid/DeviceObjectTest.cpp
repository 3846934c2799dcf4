// The device object on virtual units: write strategies, stopping, the state read at open, decoding.
// A counting wrapper around the virtual backend tells how often a report was tried, so the retry
// rules are checked by counting attempts rather than by timing.
#include "hid/DeviceObject.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

#include "VirtualPanels.h"
#include "hid/DeviceClasses.h"
#include "hid/HidState.h"

namespace drav {
namespace {

using testing::CallbackRecorder;
using testing::SpecOf;
using testing::WaitUntil;
using Bytes = std::vector<std::uint8_t>;

// Counts the write attempts of every handle it opens, failed ones included.
class CountingBackend : public HidBackend {
 public:
  explicit CountingBackend(HidBackend& inner) : inner_(inner) {}
  std::vector<std::string> EnumerateDevicePaths() override { return inner_.EnumerateDevicePaths(); }
  std::unique_ptr<HidDeviceHandle> Open(const std::string& path) override {
    std::unique_ptr<HidDeviceHandle> handle = inner_.Open(path);
    if (handle == nullptr) return nullptr;
    return std::make_unique<Handle>(std::move(handle), attempts_);
  }
  void StartNotifications() override {}
  void StopNotifications() override {}
  void TakeDeviceChanges(std::vector<HidDeviceChange>&) override {}
  int Attempts() const { return attempts_.load(); }

 private:
  class Handle : public HidDeviceHandle {
   public:
    Handle(std::unique_ptr<HidDeviceHandle> inner, std::atomic<int>& attempts)
        : inner_(std::move(inner)), attempts_(attempts) {}
    bool GetAttributes(HidAttributes* out) override { return inner_->GetAttributes(out); }
    bool GetCapabilities(HidCapabilities* out) override { return inner_->GetCapabilities(out); }
    std::string GetSerialNumber() override { return inner_->GetSerialNumber(); }
    int ReadInputReport(std::uint8_t* buffer, std::size_t capacity) override {
      return inner_->ReadInputReport(buffer, capacity);
    }
    void CancelRead() override { inner_->CancelRead(); }
    bool GetFeatureReport(std::uint8_t* buffer, std::size_t length) override {
      return inner_->GetFeatureReport(buffer, length);
    }
    bool SetFeatureReport(const std::uint8_t* data, std::size_t length) override {
      ++attempts_;
      return inner_->SetFeatureReport(data, length);
    }
    bool WriteOutputReport(const std::uint8_t* data, std::size_t length) override {
      ++attempts_;
      return inner_->WriteOutputReport(data, length);
    }

   private:
    std::unique_ptr<HidDeviceHandle> inner_;
    std::atomic<int>& attempts_;
  };

  HidBackend& inner_;
  std::atomic<int> attempts_{0};
};

class DeviceObjectTest : public ::testing::Test {
 protected:
  void SetUp() override { CallbackRecorder::Instance().Clear(); }
  void TearDown() override { GFDev_Stop(); }

  // An object of the model's class on a freshly plugged unit (not opened yet).
  std::unique_ptr<DeviceObject> Make(std::uint32_t moduleType, std::uint16_t version = 0x0100,
                                     std::string serial = {}) {
    EXPECT_TRUE(panels_.Plug(path_, SpecOf(moduleType, version, std::move(serial))));
    return std::make_unique<DeviceObject>(*FindDeviceClass(moduleType), counting_, CurrentHidState().input, path_);
  }
  void Queue(DeviceObject& object, Bytes report, ReportKind kind = ReportKind::Feature) {
    ASSERT_TRUE(object.Enqueue(report, kind));
  }
  bool Idle(DeviceObject& object) {
    return object.WaitForOutputIdle(std::chrono::steady_clock::now() + std::chrono::seconds(2));
  }
  std::vector<VirtualSentReport> Sent() { return panels_.Sent(path_); }
  Bytes SentBytes(std::size_t i) {
    auto sent = Sent();
    return i < sent.size() ? sent[i].bytes : Bytes{};
  }
  void Fail(VirtualFault fault, bool on) { panels_.SetFault(path_, fault, on); }

  VirtualHidBackend panels_;
  CountingBackend counting_{panels_};
  const std::string path_ = "/dev/virtual/unit0";
};

// ---- the queue and the strategy that drops ----------------------------------------------------------

TEST_F(DeviceObjectTest, FeatureDropStrategyLosesAFailedReportAndGoesOn) {
  auto object = Make(2);  // GF-P8
  object->Open();
  Fail(VirtualFault::Write, true);
  Queue(*object, {2, 0x11});
  ASSERT_TRUE(Idle(*object));
  EXPECT_EQ(counting_.Attempts(), 1);
  Fail(VirtualFault::Write, false);
  Queue(*object, {2, 0x22});
  ASSERT_TRUE(Idle(*object));
  ASSERT_EQ(Sent().size(), 1u);
  EXPECT_EQ(SentBytes(0), (Bytes{2, 0x22}));
}

// ---- retrying strategies ----------------------------------------------------------------------------

// ---- stopping ------------------------------------------------------------------------------------------

TEST_F(DeviceObjectTest, StopWakesAPendingReadAndASecondStopIsHarmless) {
  auto object = Make(8);
  object->Open();
  EXPECT_TRUE(object->Running());
  object->Stop();  // the read thread is blocked waiting for input
  EXPECT_FALSE(object->Running());
  object->Stop();
  EXPECT_FALSE(object->Running());
  EXPECT_EQ(object->ReadFeature(Bytes{6, 0}.data(), 2), false);  // the handle is closed
}

TEST_F(DeviceObjectTest, StopFlushesEachQueuedReportOnceEvenWhenTheUnitIsGone) {
  auto object = Make(8);  // GF-46, retrying
  object->Open();
  Fail(VirtualFault::Write, true);
  Queue(*object, {3, 1});
  Queue(*object, {3, 2});
  Queue(*object, {3, 3});
  ASSERT_TRUE(WaitUntil([&] { return counting_.Attempts() >= 2; }));
  ASSERT_TRUE(panels_.Unplug(path_));
  const int before = counting_.Attempts();
  object->Stop();  // must not wait for the vanished unit
  EXPECT_EQ(object->QueuedReports(), 0u);
  EXPECT_LE(counting_.Attempts() - before, 3);  // once each at most (the handles may be gone)

  // Back again, it starts with an empty queue.
  Fail(VirtualFault::Write, false);
  ASSERT_TRUE(panels_.Replug(path_));
  object->Start();
  ASSERT_TRUE(Idle(*object));
  EXPECT_TRUE(Sent().empty());
}

TEST_F(DeviceObjectTest, FlushSendsWhatIsLeftWhileTheUnitIsThere) {
  auto object = Make(8);
  object->Open();
  // The writer is held inside its first write until the stop has been asked for, so the second
  // report is certainly still queued when the loop ends and only the flush can send it.
  Fail(VirtualFault::Block, true);
  Queue(*object, {3, 1});
  Queue(*object, {3, 2});
  ASSERT_TRUE(WaitUntil([&] { return panels_.BlockedWrites(path_) == 1; }));
  object->RequestStop();
  Fail(VirtualFault::Block, false);
  object->Stop();
  auto sent = Sent();
  ASSERT_EQ(sent.size(), 2u);  // each exactly once, in order
  EXPECT_EQ(sent[0].bytes, (Bytes{3, 1}));
  EXPECT_EQ(sent[1].bytes, (Bytes{3, 2}));
}

// ---- the state read at open and input decoding ---------------------------------------------------------

// ---- waking the writer once for a run of reports ---------------------------------------------------

// A run of reports wakes each unit's writer once, when the outermost batch ends, and everything
// queued is sent in order. Outside a batch, and from another thread during one, each report wakes
// the writer at once.
TEST_F(DeviceObjectTest, ABatchWakesEachUnitOnceWhenItEndsAndLosesNothing) {
  auto first = Make(8);  // GF-46
  const std::string secondPath = "/dev/virtual/unit1";
  ASSERT_TRUE(panels_.Plug(secondPath, SpecOf(8)));
  auto second = std::make_unique<DeviceObject>(*FindDeviceClass(8), counting_, CurrentHidState().input, secondPath);
  first->Open();
  second->Open();
  const std::uint64_t firstBefore = first->ReportWakeUps();
  const std::uint64_t secondBefore = second->ReportWakeUps();
  {
    const WriterWakeBatch outer;
    {
      const WriterWakeBatch inner;
      Queue(*first, {3, 1});
      Queue(*second, {3, 1});
    }
    EXPECT_EQ(first->ReportWakeUps(), firstBefore) << "an inner batch wakes no one";
    Queue(*first, {3, 2});
    Queue(*first, {3, 3});
    std::thread([&] { Queue(*second, {3, 2}); }).join();
    EXPECT_EQ(second->ReportWakeUps(), secondBefore + 1) << "another thread's report is not held back";
    EXPECT_EQ(first->ReportWakeUps(), firstBefore);
  }
  EXPECT_EQ(first->ReportWakeUps(), firstBefore + 1);
  EXPECT_EQ(second->ReportWakeUps(), secondBefore + 2);
  ASSERT_TRUE(Idle(*first));
  ASSERT_TRUE(Idle(*second));
  auto sent = Sent();
  ASSERT_EQ(sent.size(), 3u);
  EXPECT_EQ(sent[0].bytes, (Bytes{3, 1}));
  EXPECT_EQ(sent[2].bytes, (Bytes{3, 3}));
  auto sentToSecond = panels_.Sent(secondPath);
  ASSERT_EQ(sentToSecond.size(), 2u);
  EXPECT_EQ(sentToSecond[1].bytes, (Bytes{3, 2}));

  Queue(*first, {3, 4});
  EXPECT_EQ(first->ReportWakeUps(), firstBefore + 2) << "a lone report wakes the writer at once";
}

// Units held by a batch may go away before it ends (from the middle and the end of its list); the
// end wakes the others, and a unit held after that is woken too.
TEST_F(DeviceObjectTest, AUnitThatGoesAwayDuringABatchIsLeftOutOfItsEnd) {
  std::vector<std::unique_ptr<DeviceObject>> units;
  auto add = [&] {
    const std::string path = "/dev/virtual/unit" + std::to_string(units.size() + 1);
    EXPECT_TRUE(panels_.Plug(path, SpecOf(8)));
    units.push_back(std::make_unique<DeviceObject>(*FindDeviceClass(8), counting_, CurrentHidState().input, path));
    units.back()->Open();
    return units.back().get();
  };
  DeviceObject* kept = add();
  add();
  add();
  {
    const WriterWakeBatch batch;
    for (auto& unit : units) Queue(*unit, {3, 1});
    units[1].reset();
    units[2].reset();
    DeviceObject* late = add();
    Queue(*late, {3, 2});
    Queue(*kept, {3, 2});
    EXPECT_EQ(kept->ReportWakeUps(), 0u);
  }
  EXPECT_EQ(kept->ReportWakeUps(), 1u);
  EXPECT_EQ(units[3]->ReportWakeUps(), 1u);
  ASSERT_TRUE(Idle(*kept));
  ASSERT_TRUE(Idle(*units[3]));
  EXPECT_EQ(panels_.Sent("/dev/virtual/unit1").size(), 2u);
  EXPECT_EQ(panels_.Sent("/dev/virtual/unit4").size(), 1u);
}

TEST_F(DeviceObjectTest, PathIsUpperCasedAndBounded) {
  EXPECT_EQ(NormaliseDevicePath("/dev/hidraw3"), std::optional<std::string>("/DEV/HIDRAW3"));
  EXPECT_EQ(NormaliseDevicePath(std::string(kMaxDevicePathLength, 'a')),
            std::optional<std::string>(std::string(kMaxDevicePathLength, 'A')));
  EXPECT_FALSE(NormaliseDevicePath(std::string(kMaxDevicePathLength + 1, 'a')).has_value());
  EXPECT_FALSE(NormaliseDevicePath("").has_value());
  auto object = Make(2);
  EXPECT_EQ(object->Path(), "/DEV/VIRTUAL/UNIT0");
  object->Open();  // and still opens the device by the path it was given
  EXPECT_EQ(object->Attributes().productId, 0x0020);
}

TEST_F(DeviceObjectTest, UnitThatCannotBeOpenedStillMakesAnObjectThatReadsNothing) {
  auto object = Make(2);
  Fail(VirtualFault::Open, true);
  object->Open();
  EXPECT_EQ(object->Attributes().version, 0);
  EXPECT_EQ(object->State<GFP8InputRecord>().switches, 0);
  object->Stop();
  Fail(VirtualFault::Open, false);
  object->Start();  // a restart of a unit that answers now reads its report length then
  EXPECT_EQ(object->Attributes().version, 0x0100);
  const std::uint64_t before = object->InputReportsHandled();
  ASSERT_TRUE(panels_.SendInput(path_, {0, 0x42}));
  ASSERT_TRUE(WaitUntil([&] { return object->InputReportsHandled() > before; }));
  EXPECT_EQ(object->State<GFP8InputRecord>().switches, 0x42);
}

TEST_F(DeviceObjectTest, FailedInitialReadLeavesTheStateAtZero) {
  auto p8 = Make(2);
  panels_.SetFeatureAnswer(path_, 4, {4, 0xFF});
  Fail(VirtualFault::Feature, true);
  p8->Open();
  EXPECT_EQ(p8->State<GFP8InputRecord>().switches, 0);
}

}  // namespace
}  // namespace drav
