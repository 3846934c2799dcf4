#include "hid/ReportDecoders.h"

#include <array>

namespace drav {

namespace {

bool HasBytes(const std::uint8_t* report, std::size_t length, std::size_t needed) {
  return report != nullptr && length >= needed;
}

// A report byte taken as a signed 8-bit value, sign-extended.
std::int16_t SignedByte(std::uint8_t byte) { return static_cast<std::int8_t>(byte); }

// A 4-bit two's-complement number (0x8..0xF are -8..-1), sign-extended.
std::int16_t SignedNibble(unsigned nibble) {
  nibble &= 0x0F;
  return static_cast<std::int16_t>(nibble >= 8 ? static_cast<int>(nibble) - 16 : static_cast<int>(nibble));
}
unsigned HighNibble(std::uint8_t byte) { return byte >> 4; }
unsigned LowNibble(std::uint8_t byte) { return byte & 0x0Fu; }

bool Bit(std::uint8_t byte, unsigned bit) { return ((byte >> bit) & 1u) != 0; }

std::uint32_t BigEndian32(const std::uint8_t* bytes) {
  return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
         static_cast<std::uint32_t>(bytes[2]) << 8 | static_cast<std::uint32_t>(bytes[3]);
}

// The six GF-MCPPro nibbles: the input report interleaves the bytes, the open-time feature report
// does not. Entries are (byte, high nibble?).
struct NibbleSource {
  std::size_t byte;
  bool high;
};
constexpr std::array<NibbleSource, 6> kMCPProInputNibbles = {
    {{1, true}, {2, true}, {1, false}, {3, true}, {2, false}, {3, false}}};
constexpr std::array<NibbleSource, 6> kMCPProFeatureNibbles = {
    {{1, true}, {1, false}, {2, true}, {2, false}, {3, true}, {3, false}}};

void DecodeMCPPro(const std::uint8_t* report, const std::array<NibbleSource, 6>& order,
                  GFMCPProInputRecord& state) {
  for (std::size_t i = 0; i < order.size(); ++i) {
    const std::uint8_t byte = report[order[i].byte];
    state.encoders[i] = SignedNibble(order[i].high ? HighNibble(byte) : LowNibble(byte));
  }
  state.switches = BigEndian32(report + 4);
}

// GF-EFIS bytes 5..7: 16 switch bits and 8 selector bits, scattered over the three bytes.
void DecodeEFISSwitches(const std::uint8_t* report, GFEFISInputRecord& state) {
  const std::uint8_t b5 = report[5];
  const std::uint8_t b6 = report[6];
  const std::uint8_t b7 = report[7];
  unsigned word = (b5 & 0x7Fu) | (b7 & 0x3Fu) << 8;
  if (Bit(b6, 4)) word |= 1u << 14;
  if (Bit(b6, 3)) word |= 1u << 15;
  state.switches = static_cast<std::uint16_t>(word);
  state.selectors = static_cast<std::uint8_t>((b6 & 0x03u) | ((b6 >> 5) & 0x07u) << 4);
}

// GF-SECM rotary switch: bits 6..2 of byte 1 are positions 1..5; the highest set bit wins.
constexpr std::uint8_t kSECMRotaryMask = 0x7C;

std::uint8_t SECMRotaryPosition(std::uint8_t byte1, std::uint8_t previous) {
  for (unsigned bit = 6, position = 1; bit >= 2; --bit, ++position) {
    if (Bit(byte1, bit)) return static_cast<std::uint8_t>(position);
  }
  return previous;
}

// GF-SECM 16-bit word: (source byte, source bit, inverted) for result bits 0..11; 12..15 stay 0.
struct WordBitSource {
  std::uint8_t byte;
  std::uint8_t bit;
  bool inverted;
};
constexpr std::array<WordBitSource, 12> kSECMWordBits = {{
    {3, 2, false}, {3, 0, false}, {2, 6, true}, {2, 4, true}, {2, 2, true}, {2, 0, true},
    {3, 3, true}, {3, 1, true}, {2, 7, false}, {2, 5, false}, {2, 3, false}, {2, 1, false},
}};

std::uint16_t SECMSwitchWord(const std::uint8_t* report) {
  unsigned word = 0;
  for (std::size_t i = 0; i < kSECMWordBits.size(); ++i) {
    const WordBitSource& source = kSECMWordBits[i];
    if (Bit(report[source.byte], source.bit) != source.inverted) word |= 1u << i;
  }
  return static_cast<std::uint16_t>(word);
}

// GF-MESM: two-bit field -> selector position; 0 means "no position defined, keep the old one".
constexpr std::array<std::uint8_t, 4> kMESMFirst = {1, 2, 3, 4};
constexpr std::array<std::uint8_t, 4> kMESMSecond = {2, 1, 3, 0};
constexpr std::array<std::uint8_t, 4> kMESMThird = {1, 3, 2, 4};

std::uint8_t MESMPosition(const std::array<std::uint8_t, 4>& table, unsigned field, std::uint8_t previous) {
  const std::uint8_t position = table[field & 3u];
  return position != 0 ? position : previous;
}

// GF-TQ6 byte 7: bits 0..3 reversed into bits 4..1.
std::uint8_t TQ6Switches(std::uint8_t byte7) {
  std::uint8_t composed = 0;
  for (unsigned bit = 0; bit < 4; ++bit) {
    if (Bit(byte7, bit)) composed |= static_cast<std::uint8_t>(0x10u >> bit);
  }
  return composed;
}

template <std::size_t N>
void SignedBytes(const std::uint8_t* report, std::size_t first, std::int16_t (&values)[N]) {
  for (std::size_t i = 0; i < N; ++i) values[i] = SignedByte(report[first + i]);
}

template <std::size_t N>
void PlainBytes(const std::uint8_t* report, std::size_t first, std::uint8_t (&values)[N]) {
  for (std::size_t i = 0; i < N; ++i) values[i] = report[first + i];
}

}  // namespace

// ---- input reports ---------------------------------------------------------------------------

InputDecode DecodeGF45Input(const std::uint8_t* report, std::size_t length, GF45InputRecord& state) {
  if (!HasBytes(report, length, 3)) return InputDecode::Ignored;
  state.encoder1 = SignedByte(report[1]);
  state.encoder2 = SignedByte(report[2]);
  return InputDecode::Deliver;
}

InputDecode DecodeGF46Input(const std::uint8_t* report, std::size_t length, GF46InputRecord& state) {
  if (!HasBytes(report, length, 4)) return InputDecode::Ignored;
  state.encoder1 = SignedByte(report[1]);
  state.encoder2 = SignedByte(report[2]);
  state.buttons = report[3];
  return InputDecode::Deliver;
}

InputDecode DecodeGF166Input(const std::uint8_t* report, std::size_t length, GF166InputRecord& state) {
  return DecodeGF46Input(report, length, state);
}

InputDecode DecodeSwitchByteInput(const std::uint8_t* report, std::size_t length,
                                  GFSwitchByteInputRecord& state) {
  if (!HasBytes(report, length, 2)) return InputDecode::Ignored;
  state.switches = report[1];
  return InputDecode::Deliver;
}

InputDecode DecodeGFRP48Input(const std::uint8_t* report, std::size_t length, GFRP48InputRecord& state) {
  if (!HasBytes(report, length, 6)) return InputDecode::Ignored;
  SignedBytes(report, 1, state.encoders);
  state.buttons = report[5];
  return InputDecode::Deliver;
}

InputDecode DecodeGFLGTInput(const std::uint8_t* report, std::size_t length, GFLGTInputRecord& state) {
  if (!HasBytes(report, length, 3)) return InputDecode::Ignored;
  state.value = SignedByte(report[1]);
  state.switches = report[2];
  return InputDecode::Deliver;
}

InputDecode DecodeGFATCInput(const std::uint8_t* report, std::size_t length, GFATCInputRecord& state) {
  return DecodeGFLGTInput(report, length, state);
}

InputDecode DecodeGFLGT2Input(const std::uint8_t* report, std::size_t length, GFLGT2InputRecord& state) {
  if (!HasBytes(report, length, 5)) return InputDecode::Ignored;
  SignedBytes(report, 1, state.values);
  state.switches = report[4];
  return InputDecode::Deliver;
}

InputDecode DecodeGFMCPInput(const std::uint8_t* report, std::size_t length, GFMCPInputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  SignedBytes(report, 1, state.encoders);
  state.buttons1 = report[6];
  state.buttons2 = report[7];
  return InputDecode::Deliver;
}

InputDecode DecodeGFMCPProInput(const std::uint8_t* report, std::size_t length,
                                GFMCPProInputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  DecodeMCPPro(report, kMCPProInputNibbles, state);
  return InputDecode::Deliver;
}

InputDecode DecodeGFEFISInput(const std::uint8_t* report, std::size_t length, GFEFISInputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  state.encoder1 = SignedByte(report[3]);
  state.encoder2 = SignedByte(report[4]);
  DecodeEFISSwitches(report, state);
  return InputDecode::Deliver;
}

InputDecode DecodeGFSECMInput(const std::uint8_t* report, std::size_t length, GFSECMInputRecord& state) {
  if (!HasBytes(report, length, 4)) return InputDecode::Ignored;
  const std::uint8_t b1 = report[1];
  const std::uint8_t b3 = report[3];
  state.rotary = SECMRotaryPosition(b1, state.rotary);
  state.second = (Bit(b1, 1) || Bit(b3, 7)) ? 1 : 0;
  state.third = Bit(b1, 0) ? 2 : (!Bit(b3, 6) ? 1 : 0);
  state.fourth = (Bit(b3, 4) || Bit(b1, 7)) ? 1 : 0;
  state.switches = SECMSwitchWord(report);
  // The unit reports its switches continuously; only a report with a rotary position is news.
  return (b1 & kSECMRotaryMask) != 0 ? InputDecode::Deliver : InputDecode::Stored;
}

InputDecode DecodeGFMESMInput(const std::uint8_t* report, std::size_t length, GFMESMInputRecord& state) {
  if (!HasBytes(report, length, 2)) return InputDecode::Ignored;
  const std::uint8_t b1 = report[1];
  state.values[0] = MESMPosition(kMESMFirst, b1, state.values[0]);
  state.values[1] = MESMPosition(kMESMSecond, b1 >> 4, state.values[1]);
  state.values[2] = MESMPosition(kMESMThird, b1 >> 6, state.values[2]);
  return InputDecode::Deliver;
}

InputDecode DecodeGFTQ6Input(const std::uint8_t* report, std::size_t length, GFTQ6InputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  PlainBytes(report, 1, state.levers);
  state.switches = TQ6Switches(report[7]);
  return InputDecode::Deliver;
}

InputDecode DecodeGFDIOInput(const std::uint8_t* report, std::size_t length, GFDIOInputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  PlainBytes(report, 1, state.states);
  return InputDecode::Deliver;
}

InputDecode DecodeGFFMCInput(const std::uint8_t* report, std::size_t length, GFFMCInputRecord& state) {
  if (!HasBytes(report, length, 2)) return InputDecode::Ignored;
  state.key = report[1];
  return InputDecode::Deliver;
}

// ---- the state read at open ------------------------------------------------------------------

InputDecode DecodeSwitchByteFeature(const std::uint8_t* report, std::size_t length,
                                    GFSwitchByteInputRecord& state) {
  if (!HasBytes(report, length, 2)) return InputDecode::Ignored;
  state.switches = report[1];
  return InputDecode::Stored;
}

InputDecode DecodeGFRP48Feature(const std::uint8_t* report, std::size_t length, GFRP48InputRecord& state) {
  if (!HasBytes(report, length, 2)) return InputDecode::Ignored;
  state = GFRP48InputRecord{};
  state.buttons = report[1];
  return InputDecode::Stored;
}

InputDecode DecodeGFLGTFeature(const std::uint8_t* report, std::size_t length, GFLGTInputRecord& state) {
  if (!HasBytes(report, length, 2)) return InputDecode::Ignored;
  state.value = 0;
  state.switches = report[1];
  return InputDecode::Stored;
}

InputDecode DecodeGFLGT2Feature(const std::uint8_t* report, std::size_t length, GFLGT2InputRecord& state) {
  return DecodeGFLGT2Input(report, length, state) == InputDecode::Ignored ? InputDecode::Ignored
                                                                          : InputDecode::Stored;
}

InputDecode DecodeGF166Feature(const std::uint8_t* report, std::size_t length, GF166InputRecord& state) {
  if (!HasBytes(report, length, 4)) return InputDecode::Ignored;
  state.encoder1 = 0;
  state.encoder2 = 0;
  state.buttons = report[3];
  return InputDecode::Stored;
}

InputDecode DecodeGFMCPFeature(const std::uint8_t* report, std::size_t length, GFMCPInputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  for (std::size_t i = 0; i < 5; ++i) state.encoders[i] = report[1 + i];
  state.buttons1 = report[6];
  state.buttons2 = report[7];
  return InputDecode::Stored;
}

InputDecode DecodeGFMCPProFeature(const std::uint8_t* report, std::size_t length,
                                  GFMCPProInputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  DecodeMCPPro(report, kMCPProFeatureNibbles, state);
  return InputDecode::Stored;
}

InputDecode DecodeGFEFISFeature(const std::uint8_t* report, std::size_t length, GFEFISInputRecord& state) {
  if (!HasBytes(report, length, 8)) return InputDecode::Ignored;
  state.encoder1 = report[3];
  state.encoder2 = report[4];
  DecodeEFISSwitches(report, state);
  return InputDecode::Stored;
}

InputDecode DecodeGFSECMFeature(const std::uint8_t* report, std::size_t length, GFSECMInputRecord& state) {
  return DecodeGFSECMInput(report, length, state);
}

InputDecode DecodeGFMESMFeature(const std::uint8_t* report, std::size_t length, GFMESMInputRecord& state) {
  return DecodeGFMESMInput(report, length, state) == InputDecode::Ignored ? InputDecode::Ignored
                                                                          : InputDecode::Stored;
}

InputDecode DecodeGFDIOFeature(const std::uint8_t* report, std::size_t length, GFDIOInputRecord& state) {
  return DecodeGFDIOInput(report, length, state) == InputDecode::Ignored ? InputDecode::Ignored
                                                                         : InputDecode::Stored;
}

}  // namespace drav
