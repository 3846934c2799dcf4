// One panel unit: its device path, an open HID handle, the attributes and report lengths read from
// it, a read thread that hands every input report to the model's decoder and keeps the unit's last
// input state, and a write thread that sends the unit's queued reports one after another by the
// model's write strategy. Every model runs on this one class, parameterised by its DeviceClass row.
//
// Threads: discovery and the access interface call everything here on the simulator's main thread,
// except GFDev_DeliverInput (from the read thread) and the state accessors, which take the object's
// state lock because the read thread writes the state at the same time.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "hid/DeviceClasses.h"
#include "hid/InputDelivery.h"
#include "hid/ReportQueue.h"
#include "hid/WriterWakeBatch.h"
#include "hid/backend/HidBackend.h"

namespace drav {

// Device paths are compared ignoring case and reported upper-cased, in at most this many characters.
inline constexpr std::size_t kMaxDevicePathLength = 259;
// The upper-cased path; nothing for an empty path or one longer than kMaxDevicePathLength, which
// the layer refuses rather than cutting into the path of some other device.
std::optional<std::string> NormaliseDevicePath(std::string_view path);

// The serial number is asked for in 65 bytes of UTF-16, so it keeps at most 32 characters.
inline constexpr std::size_t kMaxSerialNumberLength = 32;
inline constexpr std::int32_t kUnassignedUnit = -99;

// How long the main thread waits for a feature read that a unit's write thread does for it; far
// below a frame. dravsim and the tests may raise it, where a loaded machine must not make an
// ordinary read look stalled. A setting of the running layer's state: a plug-in start begins from
// the short wait.
std::chrono::milliseconds FeatureReadWait();
void SetFeatureReadWait(std::chrono::milliseconds wait);

class DeviceObject {
 public:
  // Keeps the path as given (to open it) and upper-cased (to report and compare it); opens nothing.
  // The backend and the input delivery (which its read thread hands the unit's records to) must
  // outlive the object.
  DeviceObject(const DeviceClass& deviceClass, HidBackend& backend, InputDelivery& input, std::string_view path);
  ~DeviceObject();  // Close

  DeviceObject(const DeviceObject&) = delete;
  DeviceObject& operator=(const DeviceObject&) = delete;

  // Where the model's initial state is read: at once (the layer's start), or by the read thread
  // before its first read (an arrival, handled during a frame, which must not wait on the unit).
  enum class InitialRead { Now, OnReadThread };
  // Opens the device, reads its attributes, report lengths and (for some models) serial number,
  // reads the model's initial state, starts the threads and sends the model's first outputs. A
  // device that cannot be opened still yields a working object that reads nothing.
  void Open(InitialRead initialRead = InitialRead::Now);
  // The same unit is back: opens it again and restarts the threads; the read thread reads its
  // initial state again (not for the units opened after entry, which are only restarted). False,
  // with nothing started, when it cannot be opened.
  bool Reopen();
  bool HasHandle() const { return deviceHandle_ != nullptr; }
  // False while the read thread has still to read the initial state it was asked for.
  bool InitialStateSettled() const { return !initialReadPending_.load(); }
  // Stop, then release the handle and discard queued reports.
  void Close();
  // (Re)starts the threads on a freshly opened device handle; stops them first if they run.
  void Start();
  // Ends both threads (the writer flushes the queue, each report sent once until a write fails)
  // and closes the device handle. Harmless when already stopped.
  void Stop();
  // Tells both threads to end without waiting for them, so that the layer can let every unit's
  // writer finish its last write at the same time before it joins them one by one in Stop.
  void RequestStop();

  const DeviceClass& Class() const { return class_; }
  std::uint32_t ModuleType() const { return class_.moduleType; }
  const std::string& Path() const { return path_; }
  // The unit came back at another path (the system renumbered it): main thread, while stopped.
  void MoveTo(std::string_view path);
  const std::string& SerialNumber() const { return serial_; }
  // Who the unit is beyond its path: where it is attached and the serial it reported, as read when
  // it arrived. An arrival is this unit coming back only when it matches.
  struct Identity {
    std::string location;
    std::string serial;
  };
  const Identity& Who() const { return identity_; }
  void SetWho(Identity identity) { identity_ = std::move(identity); }
  const HidAttributes& Attributes() const { return attributes_; }
  const HidCapabilities& Capabilities() const { return capabilities_; }

  std::int32_t Unit() const { return unit_.load(); }
  void SetUnit(std::int32_t unit) { unit_.store(unit); }
  bool Present() const { return present_.load(); }
  void SetPresent(bool present) { present_.store(present); }
  bool Running() const { return readThread_.joinable() || writeThread_.joinable(); }

  // ---- output ----------------------------------------------------------------------------------
  // Queues a report for the write thread. False when it was dropped (queue full, no writer, too
  // long); callers of the access interface still answer success for a full queue. Inside a
  // WriterWakeBatch the writer is woken when the batch ends, else at once.
  bool Enqueue(std::span<const std::uint8_t> report, ReportKind kind = ReportKind::Feature);
  std::size_t QueuedReports() const { return queue_.Count(); }
  // How often queued reports woke the write thread: once per report, or once per WriterWakeBatch.
  std::uint64_t ReportWakeUps() const { return reportWakeUps_.load(); }
  // Reads a feature report on the device handle (buffer[0] = report id). False on failure.
  bool ReadFeature(std::uint8_t* buffer, std::size_t length);
  // Main thread: the same, but the unit's write thread reads it, so that a unit that stalls (or
  // whose writer sits in a stalled write on the same handle) never holds up the frame. Waits at
  // most FeatureReadWait() for the answer; without one in time it answers with the last answer to
  // the same report id (false when there is none) and the answer comes in for a later call. Units
  // without a write thread read at once.
  bool ReadFeatureBounded(std::uint8_t* buffer, std::size_t length);
  // Waits until the queue is empty and nothing is being sent, or the writer is not running.
  bool WaitForOutputIdle(std::chrono::steady_clock::time_point deadline);

  // What the unit was last told, kept for the access interface (main thread only).
  struct OutputMemory {
    std::uint16_t brightness = 0;  // the last brightness read back from the unit
    std::uint16_t wcpBrightness = 0;
    std::array<std::uint8_t, 6> wcpColours{};
    std::array<std::uint8_t, 4> dioOutputs{};
    std::uint32_t mcpProIndicators = 0;
  };
  OutputMemory& Outputs() { return outputs_; }

  // GF-WCP: stores the brightness and resends the six indicators at the new intensity.
  void SetWCPBrightness(std::uint16_t value);
  // GF-WCP: 11 for an indicator outside 1..6; 0 (nothing sent or stored) for a colour of 8 or more.
  std::int32_t SetWCPColour(std::uint8_t indicator, std::uint8_t colour);
  // GF-DIO: an output report of the device's own length; 2 when no report can be built for it.
  std::int32_t SetDIOOutputs(const std::array<std::uint8_t, 4>& outputs);

  // ---- input state -----------------------------------------------------------------------------
  template <typename Record>
  Record State() const {
    std::lock_guard<std::mutex> lock(stateMutex_);
    return state_.As<Record>();
  }
  // Runs edit(Record&) on the state under the state lock (the getters that clear use it).
  template <typename Record, typename Edit>
  void EditState(Edit&& edit) {
    std::lock_guard<std::mutex> lock(stateMutex_);
    Record record = state_.As<Record>();
    edit(record);
    state_.Store(record);
  }
  // Input reports the read thread has finished with (decoded and delivered, or dropped).
  std::uint64_t InputReportsHandled() const { return inputReportsHandled_.load(); }
  // Main thread: when the callback refused the unit's last record, hands the newest state over
  // again without waiting. True when nothing is left to hand over.
  bool RedeliverRefusedInput();

 private:
  friend class WriterWakeBatch;
  void WakeWriter() {
    reportWakeUps_.fetch_add(1);
    writeWake_.notify_one();
  }

  bool ReadDeviceInfo(HidDeviceHandle& handle);
  void ReadInitialState();
  void SendAfterOpenOutputs();
  void ProcessInputReport(const std::uint8_t* report, std::size_t length);
  void DecodeAndDeliver(StateDecoder decode, const std::uint8_t* report, std::size_t length);
  bool Deliver(const LastInputState& record, std::chrono::milliseconds wait);

  void ReadLoop();
  void PauseReading(std::chrono::milliseconds pause);

  void WriteLoop();
  void ServeFeatureRead();
  void WaitForWriteSignal();
  std::optional<QueuedReport> TakeForSending();
  void FinishSending(const QueuedReport* pushBack);
  bool SendRunning(QueuedReport& report, std::unique_ptr<HidDeviceHandle>& own, int& failuresInRow);
  void Flush(std::unique_ptr<HidDeviceHandle>& own);
  bool FlushOne(const QueuedReport& report, std::unique_ptr<HidDeviceHandle>& own);
  void DropQueued();
  bool UsesOwnHandle() const;
  bool SendsOutputByVersion() const;

  const DeviceClass& class_;
  HidBackend& backend_;
  InputDelivery& input_;
  std::string openPath_;
  std::string path_;
  Identity identity_;
  std::string serial_;
  HidAttributes attributes_;
  HidCapabilities capabilities_;
  bool deviceInfoRead_ = false;

  // Set and reset on the main thread only while no thread runs; the threads use it in between.
  std::unique_ptr<HidDeviceHandle> deviceHandle_;
  std::vector<std::uint8_t> inputBuffer_;  // the read thread's, InputReportByteLength bytes

  std::atomic<std::int32_t> unit_{kUnassignedUnit};
  std::atomic<bool> present_{false};
  std::atomic<bool> stop_{false};
  std::atomic<std::uint64_t> inputReportsHandled_{0};
  std::atomic<bool> initialReadPending_{false};
  std::atomic<std::uint64_t> reportWakeUps_{0};

  std::thread readThread_;
  std::thread writeThread_;

  // Guards the writer's wake-up count (a semaphore bounded by the queue capacity), whether a report
  // is being sent, and whether the writer runs; the three condition variables wait on it.
  mutable std::mutex threadMutex_;
  std::condition_variable writeWake_;
  std::condition_variable readWake_;
  std::condition_variable outputIdle_;
  std::size_t writeSignals_ = 0;
  bool sending_ = false;
  bool writerRunning_ = false;

  // A feature read the main thread asked the writer for, and the last answer; under threadMutex_.
  struct FeatureRead {
    std::array<std::uint8_t, kMaxQueuedReportLength> bytes{};
    std::size_t length = 0;
    bool ok = false;
  };
  std::condition_variable featureAnswered_;
  std::optional<FeatureRead> featureRequest_;
  std::optional<FeatureRead> featureAnswer_;
  std::uint64_t featureAnswers_ = 0;

  ReportQueue queue_;

  mutable std::mutex stateMutex_;
  LastInputState state_;
  // Held from decoding a record to its delivery, so that a state handed over again after a refusal
  // never overtakes a newer one on its way from the read thread.
  std::mutex deliveryMutex_;
  std::atomic<bool> inputRefused_{false};

  OutputMemory outputs_;

  // The batch that will wake this unit's writer, and the next unit it holds (its thread only).
  WriterWakeBatch* heldBy_ = nullptr;
  DeviceObject* nextHeld_ = nullptr;
};

}  // namespace drav
