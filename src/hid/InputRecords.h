// The input records that the device layer hands to the input callback, one plain record per model,
// and that each device object also keeps as its unit's last input state.
//
// The module classes read these records through the callback's `const void*`, so the layouts are
// part of the interface: fields in this order, natural alignment, nothing else. A record is valid
// only during the callback.
//
// Signed 16-bit fields fed from one report byte hold that byte sign-extended (0xFF -> -1): encoder
// steps since the last report. Unsigned bytes are switch and button bits as the unit sends them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace drav {

// GF-45: the two encoders' steps.
struct GF45InputRecord {
  std::int16_t encoder1;
  std::int16_t encoder2;
};

// GF-46 and GF-166: the two encoders' steps and the button byte.
struct GF46InputRecord {
  std::int16_t encoder1;
  std::int16_t encoder2;
  std::uint8_t buttons;
};
using GF166InputRecord = GF46InputRecord;

// GF-P8, GF-T8 and GF-WCP: one byte of switch bits.
struct GFSwitchByteInputRecord {
  std::uint8_t switches;
};
using GFP8InputRecord = GFSwitchByteInputRecord;
using GFT8InputRecord = GFSwitchByteInputRecord;
using GFWCPInputRecord = GFSwitchByteInputRecord;

// GF-RP48: four encoders and the button byte.
struct GFRP48InputRecord {
  std::int16_t encoders[4];
  std::uint8_t buttons;
};

// GF-LGT (trim wheel steps and the switch byte) and GF-ATC (encoder and button byte).
struct GFLGTInputRecord {
  std::int16_t value;
  std::uint8_t switches;
};
using GFATCInputRecord = GFLGTInputRecord;

// GF-LGT2: three signed values and the switch byte.
struct GFLGT2InputRecord {
  std::int16_t values[3];
  std::uint8_t switches;
};

// GF-MCP: five encoders and two button bytes.
struct GFMCPInputRecord {
  std::int16_t encoders[5];
  std::uint8_t buttons1;
  std::uint8_t buttons2;
};

// GF-MCPPro: six encoders (signed nibbles, -8..7) and 32 switch bits.
struct GFMCPProInputRecord {
  std::int16_t encoders[6];
  std::uint32_t switches;
};

// GF-EFIS: two encoders, 16 switch bits and 8 selector bits, each composed from several bytes.
struct GFEFISInputRecord {
  std::int16_t encoder1;
  std::int16_t encoder2;
  std::uint16_t switches;
  std::uint8_t selectors;
};

// GF-SECM: the rotary position (1..5, 0 until first seen), three two- or three-way switches and
// 16 switch bits. This record is the unit's state itself.
struct GFSECMInputRecord {
  std::uint8_t rotary;
  std::uint8_t second;
  std::uint8_t third;
  std::uint8_t fourth;
  std::uint16_t switches;
};

// GF-MESM: three selector positions, each counted from 1.
struct GFMESMInputRecord {
  std::uint8_t values[3];
};

// GF-TQ6: six lever positions (0..255) and the composed switch byte.
struct GFTQ6InputRecord {
  std::uint8_t levers[6];
  std::uint8_t switches;
};

// GF-DIO: the seven input state bytes.
struct GFDIOInputRecord {
  std::uint8_t states[7];
};

// GF-FMC: the key code in the low byte, the other bytes 0.
struct GFFMCInputRecord {
  std::uint32_t key;
};

// The module classes cast the callback's pointer to these layouts: keep them exact.
static_assert(sizeof(GF45InputRecord) == 4);
static_assert(sizeof(GF46InputRecord) == 6 && offsetof(GF46InputRecord, buttons) == 4);
static_assert(sizeof(GFSwitchByteInputRecord) == 1);
static_assert(sizeof(GFRP48InputRecord) == 10 && offsetof(GFRP48InputRecord, buttons) == 8);
static_assert(sizeof(GFLGTInputRecord) == 4 && offsetof(GFLGTInputRecord, switches) == 2);
static_assert(sizeof(GFLGT2InputRecord) == 8 && offsetof(GFLGT2InputRecord, switches) == 6);
static_assert(sizeof(GFMCPInputRecord) == 12 && offsetof(GFMCPInputRecord, buttons2) == 11);
static_assert(sizeof(GFMCPProInputRecord) == 16 && offsetof(GFMCPProInputRecord, switches) == 12);
static_assert(sizeof(GFEFISInputRecord) == 8 && offsetof(GFEFISInputRecord, selectors) == 6);
static_assert(sizeof(GFSECMInputRecord) == 6 && offsetof(GFSECMInputRecord, switches) == 4);
static_assert(sizeof(GFMESMInputRecord) == 3);
static_assert(sizeof(GFTQ6InputRecord) == 7);
static_assert(sizeof(GFDIOInputRecord) == 7);
static_assert(sizeof(GFFMCInputRecord) == 4);

}  // namespace drav
