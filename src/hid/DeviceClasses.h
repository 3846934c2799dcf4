// What sets the panel models' device objects apart, as data: the output queue's capacity, how the
// write thread sends (and what it does when a send fails), the pause after each input report, the
// state read when the unit is opened, whether the unit's serial number is asked for, the decoder of
// its input reports, and the outputs sent right after opening. One device object class
// (DeviceObject.h) runs every model from the device class in its row of the model table.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "hid/ReportDecoders.h"

namespace drav {

// How the write thread sends a report and what happens when the send fails. Every strategy but
// the first keeps a handle of its own, opened at the start of any pass that finds it closed, so a
// unit that comes back after a failed send is written again without any other action.
enum class WriteStrategy : std::uint8_t {
  None,                // no write thread (input-only units)
  FeatureDrop,         // feature report on the device handle; a failed report is dropped
  FeatureRetry,        // feature report on the own handle; a failed report goes back to the head
                       // of the queue and the own handle is reopened at the next pass
  FeatureRetryThrice,  // as FeatureRetry, but after three failures in a row reports are dropped
                       // until one send succeeds
  OutputRetry,         // output report on the own handle; a failure as FeatureRetry
  ByDeviceVersion,     // version >= 0x0200: 8-byte padded output report, dropped on failure;
                       // older: feature report as FeatureRetry, 1 ms pause after each success
  ByReportKind,        // output or feature report as queued; a failure as FeatureRetry
};

// The unit's last decoded input, kept in the record layout of its model (InputRecords.h).
struct LastInputState {
  static constexpr std::size_t kCapacity = 16;  // the largest record, the GF-MCPPro's
  alignas(8) std::array<std::uint8_t, kCapacity> bytes{};

  template <typename Record>
  Record As() const {
    static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) <= kCapacity);
    Record record;
    std::memcpy(&record, bytes.data(), sizeof(Record));
    return record;
  }
  template <typename Record>
  void Store(const Record& record) {
    static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) <= kCapacity);
    std::memcpy(bytes.data(), &record, sizeof(Record));
  }
};

// Decodes a report into the state (in and out), as the model's decoder in ReportDecoders.h does.
using StateDecoder = InputDecode (*)(const std::uint8_t* report, std::size_t length, LastInputState& state);

// Outputs a unit receives once it has been opened, so that its lights start from a known state.
enum class AfterOpen : std::uint8_t {
  Nothing,
  WCPLightsOff,    // brightness 15, then indicators 1..6 to colour 0
  DIOOutputsOff,   // all four outputs 0
};

inline constexpr InitialStateQuery kNoInitialQuery{0, 0};

// A model's row in the one model table (ModelTable.h) carries its device class.
struct DeviceClass {
  // The units whose objects discovery opens only after entering them in their table, which are
  // not re-opened on replug, and whose output report length the extended device info reports.
  bool openedAfterEntry;
  std::uint16_t queueCapacity;  // 0 with WriteStrategy::None
  WriteStrategy writeStrategy;
  std::chrono::milliseconds readPause;  // after every read pass, whatever its outcome
  InitialStateQuery initialQuery;       // report id 0: none
  bool readsSerialNumber;
  StateDecoder decodeInput;
  StateDecoder decodeInitialState;  // null with no initial query
  AfterOpen afterOpen;
  std::uint8_t recordSize;  // bytes of the model's input record
  // The leading bytes of an output report that name what it sets: its report id, and on the GF-WCP,
  // whose colour report addresses one of six lights, the light as well. A newer report with the same
  // leading bytes overrides an older one.
  std::uint8_t reportKeyLength = 1;
  std::uint32_t moduleType = 0;  // filled in from the model's row
};

// Null for GF-TPM (16) and numbers outside 1..19: those have no table (ModelTable.h).
const DeviceClass* FindDeviceClass(std::uint32_t moduleType);

}  // namespace drav
