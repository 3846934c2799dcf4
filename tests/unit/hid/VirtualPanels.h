// Test support for the device layer: installs an in-memory backend, plugs virtual units of the
// panel models with their report lengths, records what reaches the input callback, and waits for
// the layer's threads without sleeping for a guessed time.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "hid/DeviceLayerControl.h"
#include "hid/DeviceObject.h"
#include "hid/GFDev.h"
#include "hid/InputRecords.h"
#include "dravsim/PanelBoard.h"
#include "hid/ModelTable.h"
#include "hid/backend/VirtualHidBackend.h"
#include "modules/ModuleRegistry.h"

namespace drav::testing {

// A unit of the model as dravsim plugs it (product id, report lengths), of this version and serial.
inline VirtualUnitSpec SpecOf(std::uint32_t moduleType, std::uint16_t version = 0x0100, std::string serial = {}) {
  const PanelModel* model = RegisteredPanelModel(moduleType);
  VirtualUnitSpec spec = model != nullptr ? dravsim::PanelUnitSpec(*model).value_or(VirtualUnitSpec{}) : VirtualUnitSpec{};
  spec.version = version;
  spec.serial = std::move(serial);
  return spec;
}

// Polls a condition the layer's threads make true; false when it did not happen in time.
inline bool WaitUntil(const std::function<bool()>& done,
                      std::chrono::milliseconds timeout = std::chrono::milliseconds(2000)) {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  while (!done()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

struct DeliveredRecord {
  std::uint32_t moduleType;
  std::uint16_t unit;
  std::vector<std::uint8_t> bytes;  // the record's first 16 bytes (the largest record)
};

// Everything the input callback received. The callback is a plain function, so the recorder is
// one per process; each fixture clears it.
class CallbackRecorder {
 public:
  static CallbackRecorder& Instance() {
    static CallbackRecorder recorder;
    return recorder;
  }
  static int Callback(std::uint32_t moduleType, std::uint16_t unit, const void* record) {
    Instance().Add(moduleType, unit, record);
    return 0;
  }
  void Add(std::uint32_t moduleType, std::uint16_t unit, const void* record) {
    DeliveredRecord entry{moduleType, unit, std::vector<std::uint8_t>(16)};
    std::memcpy(entry.bytes.data(), record, entry.bytes.size());
    std::lock_guard<std::mutex> lock(mutex_);
    records_.push_back(std::move(entry));
  }
  std::vector<DeliveredRecord> Records() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return records_;
  }
  std::size_t Count() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return records_.size();
  }
  void Clear() {
    std::lock_guard<std::mutex> lock(mutex_);
    records_.clear();
  }

 private:
  mutable std::mutex mutex_;
  std::vector<DeliveredRecord> records_;
};

// The brightness getter waits only a few milliseconds for the unit's writer; a loaded machine
// (sanitizers, parallel tests) may wake the writer later. A test that checks what the read
// answered, rather than how long the getter waited, gives it time while this object lives.
class PatientFeatureReads {
 public:
  PatientFeatureReads() : before_(FeatureReadWait()) { SetFeatureReadWait(std::chrono::seconds(2)); }
  ~PatientFeatureReads() { SetFeatureReadWait(before_); }
  PatientFeatureReads(const PatientFeatureReads&) = delete;
  PatientFeatureReads& operator=(const PatientFeatureReads&) = delete;

 private:
  std::chrono::milliseconds before_;
};

// Installs a fresh virtual backend; the layer is stopped and the platform's backend restored after.
class VirtualPanelsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto backend = std::make_unique<VirtualHidBackend>();
    panels_ = backend.get();
    InstallHidBackend(std::move(backend));
    CallbackRecorder::Instance().Clear();
  }
  void TearDown() override {
    GFDev_Stop();
    InstallHidBackend(nullptr);
  }

  VirtualHidBackend& Panels() { return *panels_; }

  std::string Plug(std::uint32_t moduleType, const std::string& path, std::uint16_t version = 0x0100,
                   std::string serial = {}) {
    EXPECT_TRUE(panels_->Plug(path, SpecOf(moduleType, version, std::move(serial))));
    return path;
  }
  // Starts the layer with the recorder as its callback.
  void StartLayer() {
    GFDev_Start(nullptr);
    GFDev_RegisterInputCallback(&CallbackRecorder::Callback);
  }
  // Sends one input report and waits until the unit's read thread has finished with it.
  void SendInputAndWait(std::uint32_t moduleType, std::int32_t unit, const std::string& path,
                        std::vector<std::uint8_t> report) {
    const std::uint64_t before = GFDev_InputReportsHandled(moduleType, unit);
    ASSERT_TRUE(panels_->SendInput(path, std::move(report)));
    ASSERT_TRUE(WaitUntil([&] { return GFDev_InputReportsHandled(moduleType, unit) > before; }));
  }
  bool OutputIdle() { return GFDev_WaitForOutputIdle(std::chrono::milliseconds(2000)); }

  static std::vector<std::vector<std::uint8_t>> AllBytes(const std::vector<VirtualSentReport>& sent) {
    std::vector<std::vector<std::uint8_t>> out;
    for (const VirtualSentReport& report : sent) out.push_back(report.bytes);
    return out;
  }

 private:
  VirtualHidBackend* panels_ = nullptr;
};

}  // namespace drav::testing
