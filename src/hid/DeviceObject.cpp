#include "hid/DeviceObject.h"

#include <algorithm>
#include <cctype>

#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"
#include "hid/HidState.h"
#include "hid/ReportEncoders.h"

namespace drav {

namespace {

using namespace std::chrono_literals;

// How long the write thread sleeps on its wake-up count when nothing signals it.
constexpr auto kWriteWait = 10ms;
// A read that fails (the unit is gone, its removal not yet handled) is reissued after this pause
// instead of at once, so that a vanished unit does not spin its read thread.
constexpr auto kFailedReadPause = 5ms;
// Older GF-MCPPro units need a moment after each feature report.
constexpr auto kFeatureSettlePause = 1ms;
constexpr int kDropAfterFailuresInRow = 3;
// How long a read thread waits for its turn at the input callback before the record is dropped.
constexpr std::chrono::milliseconds kReadThreadDeliveryWait{1000};

bool SendAsFeature(HidDeviceHandle* handle, const QueuedReport& report) {
  return handle != nullptr && handle->SetFeatureReport(report.bytes.data(), report.length);
}

bool SendAsOutput(HidDeviceHandle* handle, const QueuedReport& report) {
  return handle != nullptr && handle->WriteOutputReport(report.bytes.data(), report.length);
}

bool SendByKind(HidDeviceHandle* handle, const QueuedReport& report) {
  return report.kind == ReportKind::Output ? SendAsOutput(handle, report) : SendAsFeature(handle, report);
}

// The 8-byte output report of newer GF-MCPPro units: the queued bytes, then 0xDD padding.
bool SendPaddedOutput(HidDeviceHandle* handle, QueuedReport report) {
  report.length = PadGFMCPProOutputReport(report.bytes, report.length);
  return report.length != 0 && SendAsOutput(handle, report);
}

// The path as it is reported and compared: upper-cased, and never longer than a path may be.
std::string StoredPath(std::string_view path) {
  std::string upper(path.substr(0, kMaxDevicePathLength));
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return upper;
}

}  // namespace

std::chrono::milliseconds FeatureReadWait() { return CurrentHidState().featureReadWait; }
void SetFeatureReadWait(std::chrono::milliseconds wait) { CurrentHidState().featureReadWait = wait; }

std::optional<std::string> NormaliseDevicePath(std::string_view path) {
  if (path.empty() || path.size() > kMaxDevicePathLength) return std::nullopt;
  std::string upper(path);
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return upper;
}

DeviceObject::DeviceObject(const DeviceClass& deviceClass, HidBackend& backend, InputDelivery& input,
                           std::string_view path)
    : class_(deviceClass),
      backend_(backend),
      input_(input),
      openPath_(path),
      path_(StoredPath(path)),
      queue_(deviceClass.queueCapacity, deviceClass.reportKeyLength) {}

DeviceObject::~DeviceObject() {
  if (heldBy_ != nullptr) heldBy_->Forget(*this);
  Close();
}

void DeviceObject::MoveTo(std::string_view path) {
  openPath_ = std::string(path);
  path_ = StoredPath(path);
}

// ---- lifecycle ------------------------------------------------------------------------------------

void DeviceObject::Open(InitialRead initialRead) {
  std::unique_ptr<HidDeviceHandle> handle = backend_.Open(openPath_);
  if (handle != nullptr) {
    deviceInfoRead_ = ReadDeviceInfo(*handle);
    if (class_.readsSerialNumber) {
      serial_ = handle->GetSerialNumber();
      if (serial_.size() > kMaxSerialNumberLength) serial_.resize(kMaxSerialNumberLength);
    }
  }
  deviceHandle_ = std::move(handle);
  if (initialRead == InitialRead::OnReadThread) {
    initialReadPending_.store(true);
    Start();
    SendAfterOpenOutputs();
  } else if (class_.openedAfterEntry) {
    // These units run first and then read their state and set their lights.
    Start();
    ReadInitialState();
    SendAfterOpenOutputs();
  } else {
    ReadInitialState();
    Start();
    SendAfterOpenOutputs();
  }
}

bool DeviceObject::Reopen() {
  Stop();
  deviceHandle_ = backend_.Open(openPath_);
  if (deviceHandle_ == nullptr) return false;
  initialReadPending_.store(!class_.openedAfterEntry);
  Start();
  return true;
}

void DeviceObject::Close() {
  Stop();
  deviceHandle_.reset();
  queue_.Clear();
}

void DeviceObject::Start() {
  if (Running()) Stop();
  stop_.store(false);
  if (deviceHandle_ == nullptr) deviceHandle_ = backend_.Open(openPath_);
  // A unit that could not be read at open (it was failing then) is read now that it answers.
  if (deviceHandle_ != nullptr && !deviceInfoRead_) deviceInfoRead_ = ReadDeviceInfo(*deviceHandle_);
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    writeSignals_ = 0;
    sending_ = false;
    writerRunning_ = class_.writeStrategy != WriteStrategy::None;
  }
  readThread_ = std::thread(&DeviceObject::ReadLoop, this);
  if (class_.writeStrategy != WriteStrategy::None) writeThread_ = std::thread(&DeviceObject::WriteLoop, this);
}

void DeviceObject::RequestStop() {
  stop_.store(true);
  if (deviceHandle_ != nullptr) deviceHandle_->CancelRead();
  {
    // Taking the lock orders the flag before a thread's check-then-wait.
    std::lock_guard<std::mutex> lock(threadMutex_);
  }
  readWake_.notify_all();
  writeWake_.notify_all();
}

void DeviceObject::Stop() {
  RequestStop();
  if (readThread_.joinable()) readThread_.join();
  if (writeThread_.joinable()) writeThread_.join();
  deviceHandle_.reset();
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    writerRunning_ = false;
    sending_ = false;
    featureRequest_.reset();
  }
  outputIdle_.notify_all();
}

bool DeviceObject::ReadDeviceInfo(HidDeviceHandle& handle) {
  HidAttributes attributes;
  HidCapabilities capabilities;
  if (!handle.GetCapabilities(&capabilities) || !handle.GetAttributes(&attributes)) return false;
  attributes_ = attributes;
  capabilities_ = capabilities;
  inputBuffer_.assign(capabilities.inputReportLength, 0);
  return true;
}

void DeviceObject::ReadInitialState() {
  if (class_.decodeInitialState == nullptr || class_.initialQuery.reportId == 0) return;
  const std::size_t length =
      class_.initialQuery.length != 0 ? class_.initialQuery.length : capabilities_.featureReportLength;
  if (length == 0) return;
  std::vector<std::uint8_t> buffer(length, 0);
  buffer[0] = class_.initialQuery.reportId;
  if (!ReadFeature(buffer.data(), buffer.size())) return;  // the state stays at zero

  // Only the GF-SECM delivers its open-time state, with the unit number it has at that moment.
  DecodeAndDeliver(class_.decodeInitialState, buffer.data(), buffer.size());
}

void DeviceObject::DecodeAndDeliver(StateDecoder decode, const std::uint8_t* report, std::size_t length) {
  std::lock_guard<std::mutex> delivering(deliveryMutex_);
  LastInputState record;
  InputDecode result;
  {
    std::lock_guard<std::mutex> lock(stateMutex_);
    result = decode(report, length, state_);
    record = state_;
  }
  // The callback gets a copy, so that a getter clearing the state cannot change it underneath.
  if (result == InputDecode::Deliver) Deliver(record, kReadThreadDeliveryWait);
}

bool DeviceObject::Deliver(const LastInputState& record, std::chrono::milliseconds wait) {
  const bool taken = input_.DeliverWithin(class_.moduleType, static_cast<std::uint16_t>(unit_.load()), record.bytes.data(), wait);
  inputRefused_.store(!taken);
  if (!taken) input_.NoteRefused();
  return taken;
}

bool DeviceObject::RedeliverRefusedInput() {
  if (!inputRefused_.load()) return true;
  // A read thread delivering right now hands over a state at least as new: leave it to that.
  std::unique_lock<std::mutex> delivering(deliveryMutex_, std::try_to_lock);
  if (!delivering.owns_lock()) return false;
  if (!inputRefused_.load()) return true;
  LastInputState record;
  {
    std::lock_guard<std::mutex> lock(stateMutex_);
    record = state_;
  }
  return Deliver(record, std::chrono::milliseconds(0));
}

void DeviceObject::SendAfterOpenOutputs() {
  switch (class_.afterOpen) {
    case AfterOpen::Nothing:
      return;
    case AfterOpen::WCPLightsOff:
      SetWCPBrightness(kGFWCPInitialBrightness);
      for (std::uint8_t indicator = 1; indicator <= kGFWCPIndicatorCount; ++indicator) SetWCPColour(indicator, 0);
      return;
    case AfterOpen::DIOOutputsOff:
      SetDIOOutputs({0, 0, 0, 0});
      return;
  }
}

// ---- output -----------------------------------------------------------------------------------

bool DeviceObject::Enqueue(std::span<const std::uint8_t> report, ReportKind kind) {
  if (class_.writeStrategy == WriteStrategy::None) return false;
  if (!queue_.Append(report, kind)) return false;
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    if (writeSignals_ < queue_.Capacity()) ++writeSignals_;
  }
  if (WriterWakeBatch* batch = WriterWakeBatch::OpenOnThisThread()) {
    batch->Hold(*this);
  } else {
    WakeWriter();
  }
  return true;
}

bool DeviceObject::ReadFeature(std::uint8_t* buffer, std::size_t length) {
  return deviceHandle_ != nullptr && buffer != nullptr && length != 0 &&
         deviceHandle_->GetFeatureReport(buffer, length);
}

bool DeviceObject::ReadFeatureBounded(std::uint8_t* buffer, std::size_t length) {
  if (buffer == nullptr || length == 0 || length > kMaxQueuedReportLength) return false;
  std::unique_lock<std::mutex> lock(threadMutex_);
  if (!writerRunning_) {
    lock.unlock();
    return ReadFeature(buffer, length);
  }
  const std::uint8_t reportId = buffer[0];
  const std::uint64_t answersBefore = featureAnswers_;
  if (!featureRequest_) {
    FeatureRead request;
    std::copy_n(buffer, length, request.bytes.begin());
    request.length = length;
    featureRequest_ = request;
    writeWake_.notify_one();
  }
  featureAnswered_.wait_for(lock, FeatureReadWait(), [&] { return featureAnswers_ != answersBefore; });
  if (!featureAnswer_ || featureAnswer_->length != length || featureAnswer_->bytes[0] != reportId) return false;
  std::copy_n(featureAnswer_->bytes.begin(), length, buffer);
  return featureAnswer_->ok;
}

void DeviceObject::ServeFeatureRead() {
  std::optional<FeatureRead> request;
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    request = featureRequest_;
  }
  if (!request) return;
  request->ok = ReadFeature(request->bytes.data(), request->length);
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    featureAnswer_ = request;
    featureRequest_.reset();
    ++featureAnswers_;
  }
  featureAnswered_.notify_all();
}

bool DeviceObject::WaitForOutputIdle(std::chrono::steady_clock::time_point deadline) {
  std::unique_lock<std::mutex> lock(threadMutex_);
  return outputIdle_.wait_until(lock, deadline,
                                [&] { return !writerRunning_ || (!sending_ && queue_.Count() == 0); });
}

void DeviceObject::SetWCPBrightness(std::uint16_t value) {
  outputs_.wcpBrightness = value;
  for (std::uint8_t indicator = 1; indicator <= kGFWCPIndicatorCount; ++indicator) {
    std::array<std::uint8_t, kMaxFixedReportLength> report{};
    const std::size_t length = EncodeGFWCPColour(report, indicator, outputs_.wcpColours[indicator - 1], value);
    if (length != 0) Enqueue({report.data(), length}, ReportKind::Output);
  }
}

std::int32_t DeviceObject::SetWCPColour(std::uint8_t indicator, std::uint8_t colour) {
  if (!IsGFWCPIndicator(indicator)) return kGFDevBadArgument;
  std::array<std::uint8_t, kMaxFixedReportLength> report{};
  const std::size_t length = EncodeGFWCPColour(report, indicator, colour, outputs_.wcpBrightness);
  if (length == 0) return kGFDevDone;  // no such colour: nothing sent, nothing kept
  outputs_.wcpColours[indicator - 1] = colour;
  Enqueue({report.data(), length}, ReportKind::Output);
  return kGFDevDone;
}

std::int32_t DeviceObject::SetDIOOutputs(const std::array<std::uint8_t, 4>& outputs) {
  std::array<std::uint8_t, kMaxQueuedReportLength> report{};
  const std::size_t length = EncodeGFDIOOutputs(report, capabilities_.outputReportLength, outputs);
  if (length == 0) return kGFDevNoMemory;
  Enqueue({report.data(), length}, ReportKind::Output);
  outputs_.dioOutputs = outputs;
  return kGFDevDone;
}

// ---- waking the writers of a run of reports once -------------------------------------------------

namespace {
// The batch open on this thread, if any. Not the plug-in's state but a thread's scratch: it points
// at a batch on that thread's stack for as long as the batch's scope lasts and is null outside it,
// so nothing of it outlives a frame, and each thread (the main one, a test's) has its own.
thread_local WriterWakeBatch* tOpenBatch = nullptr;
}  // namespace

WriterWakeBatch::WriterWakeBatch() : outermost_(tOpenBatch == nullptr) {
  if (outermost_) tOpenBatch = this;
}

WriterWakeBatch::~WriterWakeBatch() {
  if (!outermost_) return;
  tOpenBatch = nullptr;
  DeviceObject* object = first_;
  while (object != nullptr) {
    DeviceObject* next = object->nextHeld_;
    object->heldBy_ = nullptr;
    object->nextHeld_ = nullptr;
    object->WakeWriter();
    object = next;
  }
}

WriterWakeBatch* WriterWakeBatch::OpenOnThisThread() { return tOpenBatch; }

void WriterWakeBatch::Hold(DeviceObject& object) {
  if (object.heldBy_ != nullptr) return;
  object.heldBy_ = this;
  object.nextHeld_ = nullptr;
  (last_ != nullptr ? last_->nextHeld_ : first_) = &object;
  last_ = &object;
}

void WriterWakeBatch::Forget(DeviceObject& object) {
  DeviceObject* before = nullptr;
  for (DeviceObject* at = first_; at != nullptr; before = at, at = at->nextHeld_) {
    if (at != &object) continue;
    (before != nullptr ? before->nextHeld_ : first_) = at->nextHeld_;
    if (last_ == at) last_ = before;
    break;
  }
  object.heldBy_ = nullptr;
  object.nextHeld_ = nullptr;
}

// ---- read thread ------------------------------------------------------------------------------

void DeviceObject::ReadLoop() {
  if (initialReadPending_.load()) {
    ReadInitialState();
    initialReadPending_.store(false);
  }
  // A unit whose report length is unknown has no buffer to read into: its thread has nothing to do.
  if (deviceHandle_ == nullptr || inputBuffer_.empty()) return;
  HidDeviceHandle& handle = *deviceHandle_;
  while (!stop_.load()) {
    const int length = handle.ReadInputReport(inputBuffer_.data(), inputBuffer_.size());
    if (length > 0) {
      const std::size_t bytes = std::min(static_cast<std::size_t>(length), inputBuffer_.size());
      if (!stop_.load()) ProcessInputReport(inputBuffer_.data(), bytes);
      inputReportsHandled_.fetch_add(1);
    } else if (length < 0) {
      PauseReading(kFailedReadPause);
    }
    if (class_.readPause.count() > 0) PauseReading(class_.readPause);
  }
}

void DeviceObject::PauseReading(std::chrono::milliseconds pause) {
  std::unique_lock<std::mutex> lock(threadMutex_);
  readWake_.wait_for(lock, pause, [&] { return stop_.load(); });
}

void DeviceObject::ProcessInputReport(const std::uint8_t* report, std::size_t length) {
  DecodeAndDeliver(class_.decodeInput, report, length);
}

// ---- write thread -----------------------------------------------------------------------------

bool DeviceObject::UsesOwnHandle() const { return class_.writeStrategy != WriteStrategy::FeatureDrop; }

bool DeviceObject::SendsOutputByVersion() const { return GFMCPProTakesOutputReports(attributes_.version); }

void DeviceObject::WriteLoop() {
  std::unique_ptr<HidDeviceHandle> own;
  int failuresInRow = 0;
  bool failedWhileStopping = false;
  while (!stop_.load()) {
    WaitForWriteSignal();
    ServeFeatureRead();
    if (UsesOwnHandle() && own == nullptr) own = backend_.Open(openPath_);
    std::optional<QueuedReport> report = TakeForSending();
    if (report && !SendRunning(*report, own, failuresInRow) && stop_.load()) failedWhileStopping = true;
  }
  // A write that failed or timed out while the stop waited (a unit that stopped taking reports)
  // would most likely make every queued report wait out the same timeout: the rest is dropped.
  if (failedWhileStopping) {
    DropQueued();
  } else {
    Flush(own);
  }
  own.reset();
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    writerRunning_ = false;
    sending_ = false;
  }
  outputIdle_.notify_all();
}

void DeviceObject::WaitForWriteSignal() {
  std::unique_lock<std::mutex> lock(threadMutex_);
  writeWake_.wait_for(lock, kWriteWait,
                      [&] { return writeSignals_ > 0 || featureRequest_.has_value() || stop_.load(); });
  if (writeSignals_ > 0) --writeSignals_;
}

std::optional<QueuedReport> DeviceObject::TakeForSending() {
  std::lock_guard<std::mutex> lock(threadMutex_);
  std::optional<QueuedReport> report = queue_.TakeFront();
  sending_ = report.has_value();
  return report;
}

void DeviceObject::FinishSending(const QueuedReport* pushBack) {
  bool idle = false;
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    if (pushBack != nullptr) queue_.PushFront(*pushBack);
    sending_ = false;
    idle = queue_.Count() == 0;
  }
  if (idle) outputIdle_.notify_all();
}

bool DeviceObject::SendRunning(QueuedReport& report, std::unique_ptr<HidDeviceHandle>& own, int& failuresInRow) {
  bool sent = false;
  bool retry = true;  // a failed report goes back to the head of the queue
  switch (class_.writeStrategy) {
    case WriteStrategy::None:
      break;
    case WriteStrategy::FeatureDrop:
      sent = SendAsFeature(deviceHandle_.get(), report);
      retry = false;
      break;
    case WriteStrategy::FeatureRetry:
      sent = SendAsFeature(own.get(), report);
      break;
    case WriteStrategy::FeatureRetryThrice:
      sent = SendAsFeature(own.get(), report);
      failuresInRow = sent ? 0 : failuresInRow + 1;
      retry = failuresInRow < kDropAfterFailuresInRow;
      break;
    case WriteStrategy::OutputRetry:
      sent = SendAsOutput(own.get(), report);
      break;
    case WriteStrategy::ByDeviceVersion:
      if (SendsOutputByVersion()) {
        sent = SendPaddedOutput(own.get(), report);
        retry = false;
      } else {
        sent = SendAsFeature(own.get(), report);
        if (sent) std::this_thread::sleep_for(kFeatureSettlePause);
      }
      break;
    case WriteStrategy::ByReportKind:
      sent = SendByKind(own.get(), report);
      break;
  }
  if (!sent && retry) {
    own.reset();  // reopened at the next pass
    FinishSending(&report);
    return false;
  }
  if (!sent && class_.writeStrategy == WriteStrategy::FeatureRetryThrice) own.reset();
  FinishSending(nullptr);
  return sent;
}

void DeviceObject::DropQueued() {
  {
    std::lock_guard<std::mutex> lock(threadMutex_);
    queue_.Clear();
    sending_ = false;
  }
  outputIdle_.notify_all();
}

// Each report still queued is sent once, in order, until one fails: the unit may be gone or
// stalled, and the stop waits for this thread, so after the first failed or timed-out write the
// rest is dropped instead of each waiting out its own timeout.
void DeviceObject::Flush(std::unique_ptr<HidDeviceHandle>& own) {
  if (queue_.Count() == 0) return;
  if (UsesOwnHandle() && own == nullptr) own = backend_.Open(openPath_);
  while (std::optional<QueuedReport> report = TakeForSending()) {
    const bool sent = FlushOne(*report, own);
    FinishSending(nullptr);
    if (!sent) return DropQueued();
  }
}

bool DeviceObject::FlushOne(const QueuedReport& report, std::unique_ptr<HidDeviceHandle>& own) {
  switch (class_.writeStrategy) {
    case WriteStrategy::None:
      return true;
    case WriteStrategy::FeatureDrop:
    case WriteStrategy::FeatureRetry:
    case WriteStrategy::FeatureRetryThrice:
      return SendAsFeature(deviceHandle_.get(), report);
    case WriteStrategy::OutputRetry:
      return SendAsOutput(own.get(), report);
    case WriteStrategy::ByDeviceVersion:
      return SendsOutputByVersion() ? SendPaddedOutput(own.get(), report) : SendAsFeature(deviceHandle_.get(), report);
    case WriteStrategy::ByReportKind:
      return SendByKind(own.get(), report);
  }
  return false;
}

}  // namespace drav
