#include "dravsim/PanelModels.h"

#include <cstddef>

namespace dravsim {
namespace {

// N inputs on consecutive bits, eight to a byte, starting at bit 0 of `firstByte`.
template <std::size_t N>
constexpr std::array<InputBit, N> BitRun(std::uint8_t firstByte) {
  std::array<InputBit, N> bits{};
  for (std::size_t i = 0; i < N; ++i) {
    bits[i] = {static_cast<std::uint8_t>(firstByte + i / 8), static_cast<std::uint8_t>(i % 8), false};
  }
  return bits;
}

// N inputs of a big-endian word whose least significant byte is `lastByte`.
template <std::size_t N>
constexpr std::array<InputBit, N> BigEndianBitRun(std::uint8_t lastByte) {
  std::array<InputBit, N> bits{};
  for (std::size_t i = 0; i < N; ++i) {
    bits[i] = {static_cast<std::uint8_t>(lastByte - i / 8), static_cast<std::uint8_t>(i % 8), false};
  }
  return bits;
}

constexpr InputBytes kAllClear{};

constexpr auto kEightInByte1 = BitRun<8>(1);
constexpr auto kSixInByte1 = BitRun<6>(1);
constexpr auto kEightInByte2 = BitRun<8>(2);
constexpr auto kEightInByte4 = BitRun<8>(4);
constexpr auto kEightInByte5 = BitRun<8>(5);
constexpr auto kOneInByte3 = BitRun<1>(3);
constexpr auto kThreeInByte3 = BitRun<3>(3);
constexpr auto kFiftySixFromByte1 = BitRun<56>(1);
constexpr auto kMCPProInputs = BigEndianBitRun<24>(7);

// GF-MCP: buttons 1..8 in byte 6, the disengage bar (input 9) in bit 0 of byte 7.
constexpr std::array<InputBit, 9> kMCPInputs = {{
    {6, 0}, {6, 1}, {6, 2}, {6, 3}, {6, 4}, {6, 5}, {6, 6}, {6, 7}, {7, 0},
}};

// GF-EFIS: its sixteen inputs gathered from bytes 5, 6 and 7; input 8 has no contact.
constexpr std::array<InputBit, 16> kEFISInputs = {{
    {5, 0}, {5, 1}, {5, 2}, {5, 3}, {5, 4}, {5, 5}, {5, 6}, {0, 0},
    {7, 0}, {7, 1}, {7, 2}, {7, 3}, {7, 4}, {7, 5}, {6, 4}, {6, 3},
}};

// GF-SECM: the twelve switches; half of the contacts read 0 when their switch is on.
constexpr std::array<InputBit, 12> kSECMSwitches = {{
    {3, 2, false}, {3, 0, false}, {2, 6, true}, {2, 4, true}, {2, 2, true}, {2, 0, true},
    {3, 3, true},  {3, 1, true},  {2, 7, false}, {2, 5, false}, {2, 3, false}, {2, 1, false},
}};
// Every inverted contact set, and the flaps rocker's rest contact (byte 3 bit 6) closed.
constexpr InputBytes kSECMRest = {0, 0, 0x55, 0x4A, 0, 0, 0, 0};

constexpr std::array<EncoderField, 2> kDials12 = {{{'1', 1, CountField::Byte}, {'2', 2, CountField::Byte}}};
constexpr std::array<EncoderField, 1> kDial1 = {{{'1', 1, CountField::Byte}}};
constexpr std::array<EncoderField, 1> kWheelA = {{{'A', 1, CountField::Byte}}};
constexpr std::array<EncoderField, 3> kWheelsABC = {{
    {'A', 1, CountField::Byte}, {'B', 2, CountField::Byte}, {'C', 3, CountField::Byte}}};
constexpr std::array<EncoderField, 4> kEncodersAD = {{
    {'A', 1, CountField::Byte}, {'B', 2, CountField::Byte},
    {'C', 3, CountField::Byte}, {'D', 4, CountField::Byte}}};
constexpr std::array<EncoderField, 5> kEncodersAE = {{
    {'A', 1, CountField::Byte}, {'B', 2, CountField::Byte}, {'C', 3, CountField::Byte},
    {'D', 4, CountField::Byte}, {'E', 5, CountField::Byte}}};
// GF-MCPPro: six signed nibbles, in the order the decoder reads them as encoders A..F.
constexpr std::array<EncoderField, 6> kMCPProEncoders = {{
    {'A', 1, CountField::HighNibble}, {'B', 2, CountField::HighNibble},
    {'C', 1, CountField::LowNibble},  {'D', 3, CountField::HighNibble},
    {'E', 2, CountField::LowNibble},  {'F', 3, CountField::LowNibble}}};
constexpr std::array<EncoderField, 2> kEFISEncoders = {{
    {'A', 3, CountField::Byte}, {'B', 4, CountField::Byte}}};

// GF-TQ6: levers A..F in bytes 1..6; levers B..E have a switch in byte 7 (bit 3 for B down to bit
// 0 for E), the decoder reversing them into record bits 1..4.
constexpr std::array<LeverField, 6> kTQ6Levers = {{
    {'A', 1, std::nullopt},
    {'B', 2, InputBit{7, 3}},
    {'C', 3, InputBit{7, 2}},
    {'D', 4, InputBit{7, 1}},
    {'E', 5, InputBit{7, 0}},
    {'F', 6, std::nullopt},
}};

// GF-SECM key: positions 1..5 on bits 6..2 of byte 1.
constexpr std::array<std::uint8_t, 5> kSECMKeyCodes = {0x40, 0x20, 0x10, 0x08, 0x04};
constexpr std::array<SelectorField, 1> kSECMSelectors = {{{1, 0x7C, 1, kSECMKeyCodes}}};

// GF-MESM: the three selectors of byte 1, each with its own coding of positions.
constexpr std::array<std::uint8_t, 4> kMESMSelector1Codes = {0x00, 0x01, 0x02, 0x03};
constexpr std::array<std::uint8_t, 3> kMESMSelector2Codes = {0x10, 0x00, 0x20};
constexpr std::array<std::uint8_t, 4> kMESMSelector3Codes = {0x00, 0x80, 0x40, 0xC0};
constexpr std::array<SelectorField, 3> kMESMSelectors = {{
    {1, 0x03, 1, kMESMSelector1Codes},
    {1, 0x30, 1, kMESMSelector2Codes},
    {1, 0xC0, 1, kMESMSelector3Codes},
}};

// GF-EFIS: the mode selector (positions 0..3) in bits 0-1 of byte 6, the range selector (0..6) in
// bits 5-7.
constexpr std::array<std::uint8_t, 4> kEFISModeCodes = {0x00, 0x01, 0x02, 0x03};
constexpr std::array<std::uint8_t, 7> kEFISRangeCodes = {0x00, 0x20, 0x40, 0x60, 0x80, 0xA0, 0xC0};
constexpr std::array<SelectorField, 2> kEFISSelectors = {{
    {6, 0x03, 0, kEFISModeCodes},
    {6, 0xE0, 0, kEFISRangeCodes},
}};

constexpr std::array<InputLayout, 18> kInputLayouts = {{
    // model, length, press, switch, rest, inputs, encoders, levers, selectors
    {"GF-45", 3, false, false, kAllClear, {}, kDials12, {}, {}},
    {"GF-46", 4, true, false, kAllClear, kOneInByte3, kDials12, {}, {}},
    {"GF-166", 4, true, false, kAllClear, kThreeInByte3, kDials12, {}, {}},
    {"GF-P8", 2, true, false, kAllClear, kEightInByte1, {}, {}, {}},
    {"GF-T8", 2, false, true, kAllClear, kEightInByte1, {}, {}, {}},
    {"GF-WCP", 2, true, false, kAllClear, kSixInByte1, {}, {}, {}},
    {"GF-RP48", 6, true, false, kAllClear, kEightInByte5, kEncodersAD, {}, {}},
    {"GF-LGT", 3, false, true, kAllClear, kEightInByte2, kWheelA, {}, {}},
    {"GF-LGT2", 5, false, true, kAllClear, kEightInByte4, kWheelsABC, {}, {}},
    {"GF-MCP", 8, true, true, kAllClear, kMCPInputs, kEncodersAE, {}, {}},
    {"GF-MCPPro", 8, true, true, kAllClear, kMCPProInputs, kMCPProEncoders, {}, {}},
    {"GF-EFIS", 8, true, true, kAllClear, kEFISInputs, kEFISEncoders, {}, kEFISSelectors},
    {"GF-SECM", 4, false, true, kSECMRest, kSECMSwitches, {}, {}, kSECMSelectors},
    {"GF-MESM", 2, false, false, kAllClear, {}, {}, {}, kMESMSelectors},
    {"GF-TQ6", 8, false, false, kAllClear, {}, {}, kTQ6Levers, {}},
    {"GF-DIO", 8, true, true, kAllClear, kFiftySixFromByte1, {}, {}, {}},
    {"GF-ATC", 3, true, false, kAllClear, kEightInByte2, kDial1, {}, {}},
    // The GF-FMC sends a key code rather than key bits: scenarios use `report` for it.
    {"GF-FMC", 5, false, false, kAllClear, {}, {}, {}, {}},
}};

void WriteBit(InputBytes& bytes, const InputBit& input, bool on) {
  const auto bit = static_cast<std::uint8_t>(1u << input.bit);
  if (on != input.inverted) {
    bytes[input.byte] |= bit;
  } else {
    bytes[input.byte] &= static_cast<std::uint8_t>(~bit);
  }
}

std::string OutOfRange(std::string_view what, int value, std::size_t count, int first = 1) {
  if (count == 0) return "has no " + std::string(what);
  return std::string(what) + " " + std::to_string(value) + " is not one of " +
         std::to_string(first) + ".." + std::to_string(first + static_cast<int>(count) - 1);
}

std::string ModelSays(const InputLayout& layout, std::string_view text) {
  return "a " + std::string(layout.model) + " " + std::string(text);
}

const EncoderField* FindEncoder(const InputLayout& layout, char name) {
  for (const EncoderField& encoder : layout.encoders) {
    if (encoder.name == name) return &encoder;
  }
  return nullptr;
}

std::string EncoderNames(const InputLayout& layout) {
  std::string names;
  for (const EncoderField& encoder : layout.encoders) {
    if (!names.empty()) names += ", ";
    names += encoder.name;
  }
  return names;
}

}  // namespace

const InputLayout* FindInputLayout(std::string_view model) {
  for (const InputLayout& layout : kInputLayouts) {
    if (layout.model == model) return &layout;
  }
  return nullptr;
}

std::span<const InputLayout> AllInputLayouts() { return kInputLayouts; }

std::string PanelInputState::SetInput(int input, bool on) {
  const auto& inputs = layout_->inputs;
  if (input < 1 || static_cast<std::size_t>(input) > inputs.size()) {
    return ModelSays(*layout_, OutOfRange("input", input, inputs.size()));
  }
  const InputBit& bit = inputs[static_cast<std::size_t>(input - 1)];
  if (bit.byte == 0) {
    return ModelSays(*layout_, "has no contact for input " + std::to_string(input));
  }
  WriteBit(bytes_, bit, on);
  return {};
}

std::string PanelInputState::SetLever(char lever, int raw, std::optional<bool> switchOn) {
  for (const LeverField& field : layout_->levers) {
    if (field.name != lever) continue;
    if (raw < 0 || raw > 255) return "lever position " + std::to_string(raw) + " is not 0..255";
    if (switchOn && !field.switchBit) {
      return ModelSays(*layout_, std::string("lever ") + lever + " has no switch");
    }
    bytes_[field.byte] = static_cast<std::uint8_t>(raw);
    if (switchOn) WriteBit(bytes_, *field.switchBit, *switchOn);
    return {};
  }
  if (layout_->levers.empty()) return ModelSays(*layout_, "has no levers");
  return ModelSays(*layout_, std::string("has no lever ") + lever);
}

std::string PanelInputState::SetSelector(int selector, int position) {
  const auto& selectors = layout_->selectors;
  if (selector < 1 || static_cast<std::size_t>(selector) > selectors.size()) {
    return ModelSays(*layout_, OutOfRange("selector", selector, selectors.size()));
  }
  const SelectorField& field = selectors[static_cast<std::size_t>(selector - 1)];
  const int index = position - field.firstPosition;
  if (index < 0 || static_cast<std::size_t>(index) >= field.codes.size()) {
    return OutOfRange("selector " + std::to_string(selector) + " position", position,
                      field.codes.size(), field.firstPosition);
  }
  bytes_[field.byte] = static_cast<std::uint8_t>((bytes_[field.byte] & ~field.mask) |
                                                 field.codes[static_cast<std::size_t>(index)]);
  return {};
}

std::optional<InputBytes> PanelInputState::ComposeTurn(char encoder, int steps,
                                                       std::string& error) const {
  const EncoderField* field = FindEncoder(*layout_, encoder);
  if (field == nullptr) {
    error = layout_->encoders.empty()
                ? ModelSays(*layout_, "has no encoders")
                : ModelSays(*layout_, std::string("has no encoder ") + encoder + " (it has " +
                                          EncoderNames(*layout_) + ")");
    return std::nullopt;
  }
  const bool nibble = field->field != CountField::Byte;
  const int low = nibble ? -8 : -128;
  const int high = nibble ? 7 : 127;
  if (steps < low || steps > high) {
    error = "encoder " + std::string(1, encoder) + " carries " + std::to_string(low) + ".." +
            std::to_string(high) + " detents in one report, not " + std::to_string(steps);
    return std::nullopt;
  }
  InputBytes report = bytes_;
  const auto count = static_cast<std::uint8_t>(steps);
  std::uint8_t& byte = report[field->byte];
  switch (field->field) {
    case CountField::Byte: byte = count; break;
    case CountField::HighNibble: byte = static_cast<std::uint8_t>((byte & 0x0F) | (count << 4)); break;
    case CountField::LowNibble: byte = static_cast<std::uint8_t>((byte & 0xF0) | (count & 0x0F)); break;
  }
  return report;
}

}  // namespace dravsim
