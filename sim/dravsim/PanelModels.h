// How each panel model lays out its input report, as data: which bit carries which push button or
// switch, which byte (or nibble) carries an encoder's detent count, where the throttle levers and the
// rotary selectors sit. The high-level panel commands compose a whole input report from a unit's
// current input state through these layouts, so that a scenario can say "press button 3" instead of
// spelling out bytes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace dravsim {

inline constexpr std::size_t kMaxInputReportLength = 8;
using InputBytes = std::array<std::uint8_t, kMaxInputReportLength>;

// One two-state input: a bit of the report. `inverted` inputs read 0 when on. Byte 0 (the report
// id) marks an input that the model's report does not carry.
struct InputBit {
  std::uint8_t byte = 0;
  std::uint8_t bit = 0;
  bool inverted = false;
};

enum class CountField : std::uint8_t { Byte, HighNibble, LowNibble };

// An encoder's detents since the last report, as a signed byte or a signed nibble.
struct EncoderField {
  char name;  // 'A'..'F', or '1'/'2' for Dial 1/Dial 2
  std::uint8_t byte;
  CountField field;
};

// A throttle lever's raw position byte and, when it has one, its switch bit.
struct LeverField {
  char name;
  std::uint8_t byte;
  std::optional<InputBit> switchBit;
};

// A rotary selector: the bits `mask` of one byte take codes[position - firstPosition].
struct SelectorField {
  std::uint8_t byte;
  std::uint8_t mask;
  int firstPosition;
  std::span<const std::uint8_t> codes;
};

struct InputLayout {
  std::string_view model;
  std::uint8_t length;        // the unit's input report length, report id included
  bool pressable;             // `press`/`release` apply to the inputs
  bool switchable;            // `switch` applies to the inputs
  InputBytes rest;            // the report with every input off, no detents, selectors unset
  std::span<const InputBit> inputs;  // input N (1-based, panel order) at inputs[N - 1]
  std::span<const EncoderField> encoders;
  std::span<const LeverField> levers;
  std::span<const SelectorField> selectors;  // selector S (1-based) at selectors[S - 1]
};

// Null for a name that is no model of the family.
const InputLayout* FindInputLayout(std::string_view model);
std::span<const InputLayout> AllInputLayouts();

// The unit's input state between reports. Encoder counts are not part of it: each `turn` report
// carries its own detents and the next report carries none.
class PanelInputState {
 public:
  explicit PanelInputState(const InputLayout& layout) : layout_(&layout), bytes_(layout.rest) {}

  const InputLayout& Layout() const { return *layout_; }

  // Each returns an error text, empty when the state was changed.
  std::string SetInput(int input, bool on);
  std::string SetLever(char lever, int raw, std::optional<bool> switchOn);
  std::string SetSelector(int selector, int position);

  // The whole report (report id 0) with the current state, plus `steps` detents on `encoder` when
  // one is given. Error text in `error` (and an empty report) for an unknown encoder or a count
  // the field cannot carry.
  InputBytes Compose() const { return bytes_; }
  std::optional<InputBytes> ComposeTurn(char encoder, int steps, std::string& error) const;

 private:
  const InputLayout* layout_;
  InputBytes bytes_;
};

}  // namespace dravsim
