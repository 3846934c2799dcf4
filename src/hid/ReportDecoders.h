// Decoders of the units' raw reports: one input report, or the feature report read at open, into
// the model's input record (see InputRecords.h). Pure functions: no threads, no I/O, no allocation.
//
// How a device object uses them, on its read thread:
//   GF46InputRecord next = lastState;          // a copy of the unit's last input state
//   if (DecodeGF46Input(buffer, bytesRead, next) == InputDecode::Deliver) {
//     lastState = next;                         // store it ...
//     GFDev_DeliverInput(8, unit, &next);       // ... and hand the stack copy to the callback
//   }
// `state` is in and out: on entry the unit's previous state (the GF-SECM rotary position and the
// GF-MESM selectors keep their previous value when a report does not define a new one), on return
// the new state, which is also the record to deliver. Every other field is replaced, never
// accumulated.
//
// Reports are byte arrays whose byte 0 is the report id; positions count from it. Each model needs
// a minimum length (the highest position it reads plus one, given below). A shorter report is
// ignored as a whole: it changes nothing and delivers nothing. A unit that sends less than its
// model's report is not speaking the format we know, and inventing zeros for the missing bytes
// would fake released switches and lever positions of 0. A null report is ignored the same way.
#pragma once

#include <cstddef>
#include <cstdint>

#include "hid/InputRecords.h"

namespace drav {

enum class InputDecode : std::uint8_t {
  Ignored,  // too short (or null): state untouched, nothing to deliver
  Stored,   // state updated, but the record is not delivered (GF-SECM without a rotary bit, and
            // the open-time feature reads, which never deliver unless stated otherwise)
  Deliver,  // state updated; deliver it to the input callback
};

// ---- input reports ---------------------------------------------------------------------------
// Minimum lengths: GF-45 3, GF-46 and GF-166 4, GF-P8/T8/WCP 2, GF-RP48 6, GF-LGT and GF-ATC 3,
// GF-LGT2 5, GF-MCP 8, GF-MCPPro 8, GF-EFIS 8, GF-SECM 4, GF-MESM 2, GF-TQ6 8, GF-DIO 8, GF-FMC 2.

// int16 <- sint8 byte 1, int16 <- sint8 byte 2.
InputDecode DecodeGF45Input(const std::uint8_t* report, std::size_t length, GF45InputRecord& state);
// int16 <- sint8 byte 1, int16 <- sint8 byte 2, buttons <- byte 3 (GF-46 and GF-166).
InputDecode DecodeGF46Input(const std::uint8_t* report, std::size_t length, GF46InputRecord& state);
InputDecode DecodeGF166Input(const std::uint8_t* report, std::size_t length, GF166InputRecord& state);
// switches <- byte 1 (GF-P8, GF-T8, GF-WCP).
InputDecode DecodeSwitchByteInput(const std::uint8_t* report, std::size_t length,
                                  GFSwitchByteInputRecord& state);
// encoders <- sint8 bytes 1..4, buttons <- byte 5.
InputDecode DecodeGFRP48Input(const std::uint8_t* report, std::size_t length, GFRP48InputRecord& state);
// value <- sint8 byte 1, switches <- byte 2 (GF-LGT and GF-ATC).
InputDecode DecodeGFLGTInput(const std::uint8_t* report, std::size_t length, GFLGTInputRecord& state);
InputDecode DecodeGFATCInput(const std::uint8_t* report, std::size_t length, GFATCInputRecord& state);
// values <- sint8 bytes 1..3, switches <- byte 4.
InputDecode DecodeGFLGT2Input(const std::uint8_t* report, std::size_t length, GFLGT2InputRecord& state);
// encoders <- sint8 bytes 1..5, buttons1 <- byte 6, buttons2 <- byte 7.
InputDecode DecodeGFMCPInput(const std::uint8_t* report, std::size_t length, GFMCPInputRecord& state);
// encoders <- signed nibbles in the order hi(1), hi(2), lo(1), hi(3), lo(2), lo(3);
// switches <- bytes 4..7 big-endian.
InputDecode DecodeGFMCPProInput(const std::uint8_t* report, std::size_t length,
                                GFMCPProInputRecord& state);
// encoders <- sint8 bytes 3, 4; switches and selectors composed from bytes 5..7.
InputDecode DecodeGFEFISInput(const std::uint8_t* report, std::size_t length, GFEFISInputRecord& state);
// Bytes 1..3 into the five fields. Answers Deliver only when byte 1 had a rotary bit (mask 0x7C);
// otherwise the state is still updated and the answer is Stored.
InputDecode DecodeGFSECMInput(const std::uint8_t* report, std::size_t length, GFSECMInputRecord& state);
// Byte 1 into the three selector values. Bits 4-5 both set define no second value: it keeps its
// previous one.
InputDecode DecodeGFMESMInput(const std::uint8_t* report, std::size_t length, GFMESMInputRecord& state);
// levers <- bytes 1..6; switches <- bits 0..3 of byte 7 reversed and moved up by one (bit 0 ->
// 0x10, bit 1 -> 0x08, bit 2 -> 0x04, bit 3 -> 0x02).
InputDecode DecodeGFTQ6Input(const std::uint8_t* report, std::size_t length, GFTQ6InputRecord& state);
// states <- bytes 1..7.
InputDecode DecodeGFDIOInput(const std::uint8_t* report, std::size_t length, GFDIOInputRecord& state);
// key <- byte 1 alone (bytes 2..4 are not part of it). The report buffer is not modified.
InputDecode DecodeGFFMCInput(const std::uint8_t* report, std::size_t length, GFFMCInputRecord& state);

// ---- the state read at open ------------------------------------------------------------------
// The device object reads one feature report into a zero-filled buffer of `length` bytes whose
// byte 0 is `reportId`, and, when the read succeeded, passes it to the model's decoder below. A
// failed read leaves the state as it was (zero after construction). These decoders answer Stored
// (or Ignored when the report is too short), except the GF-SECM's, which follows the delivery rule
// of its input report.
struct InitialStateQuery {
  std::uint8_t reportId;
  std::uint8_t length;  // 0: the device's own FeatureReportByteLength (GF-LGT2)
};

inline constexpr InitialStateQuery kGFSwitchByteInitialQuery{4, 2};  // GF-P8, GF-T8, GF-WCP
inline constexpr InitialStateQuery kGFRP48InitialQuery{4, 2};
inline constexpr InitialStateQuery kGFLGTInitialQuery{4, 2};
inline constexpr InitialStateQuery kGFLGT2InitialQuery{4, 0};
inline constexpr InitialStateQuery kGF166InitialQuery{8, 4};
inline constexpr InitialStateQuery kGFMCPInitialQuery{14, 8};
inline constexpr InitialStateQuery kGFMCPProInitialQuery{16, 8};
inline constexpr InitialStateQuery kGFEFISInitialQuery{2, 8};
inline constexpr InitialStateQuery kGFSECMInitialQuery{2, 4};
inline constexpr InitialStateQuery kGFMESMInitialQuery{2, 2};
inline constexpr InitialStateQuery kGFDIOInitialQuery{4, 8};

// switches <- byte 1 (GF-P8, GF-T8, GF-WCP).
InputDecode DecodeSwitchByteFeature(const std::uint8_t* report, std::size_t length,
                                    GFSwitchByteInputRecord& state);
// buttons <- byte 1; the four encoders start at 0.
InputDecode DecodeGFRP48Feature(const std::uint8_t* report, std::size_t length, GFRP48InputRecord& state);
// switches <- byte 1; the value starts at 0.
InputDecode DecodeGFLGTFeature(const std::uint8_t* report, std::size_t length, GFLGTInputRecord& state);
// values <- sint8 bytes 1..3, switches <- byte 4 (needs 5 bytes).
InputDecode DecodeGFLGT2Feature(const std::uint8_t* report, std::size_t length, GFLGT2InputRecord& state);
// buttons <- byte 3; the two encoders start at 0.
InputDecode DecodeGF166Feature(const std::uint8_t* report, std::size_t length, GF166InputRecord& state);
// encoders <- bytes 1..5 taken UNSIGNED (0..255), buttons <- bytes 6, 7.
InputDecode DecodeGFMCPFeature(const std::uint8_t* report, std::size_t length, GFMCPInputRecord& state);
// encoders <- signed nibbles in the plain order hi(1), lo(1), hi(2), lo(2), hi(3), lo(3);
// switches <- bytes 4..7 big-endian.
InputDecode DecodeGFMCPProFeature(const std::uint8_t* report, std::size_t length,
                                  GFMCPProInputRecord& state);
// As the input report, except that bytes 3 and 4 are taken UNSIGNED (0..255).
InputDecode DecodeGFEFISFeature(const std::uint8_t* report, std::size_t length, GFEFISInputRecord& state);
// Exactly the input report's decoding, delivery rule included.
InputDecode DecodeGFSECMFeature(const std::uint8_t* report, std::size_t length, GFSECMInputRecord& state);
// The input report's decoding, never delivered.
InputDecode DecodeGFMESMFeature(const std::uint8_t* report, std::size_t length, GFMESMInputRecord& state);
// states <- bytes 1..7.
InputDecode DecodeGFDIOFeature(const std::uint8_t* report, std::size_t length, GFDIOInputRecord& state);

}  // namespace drav
