// How an autopilot panel's display shows the text of the function bound to the encoder below it:
// which part of the text fits the display's digits, and what the display shows without power.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace drav {

class UnitPort;

struct McpDisplaySlot {
  int display;              // the unit's display number (1-based)
  std::int32_t first;       // first character taken (0-based)
  std::int32_t count;       // at most this many characters; kWholeText takes the rest
  bool leadingSpace;        // a space goes before the characters taken
  const char* blank;        // sent while the panel has no power
  char letter;              // the encoder's letter, for the debug line
};

inline constexpr std::int32_t kWholeText = -1;

// Writes the part of `text` that the slot shows into out (always terminated); a text shorter than
// `first` shows nothing (or only the leading space).
void ComposeMcpDisplayText(const McpDisplaySlot& slot, const char* text, char* out, std::size_t outSize);

struct AvionicFunction;

// The text an autopilot panel's display last took from its function, so that only changes are sent.
inline constexpr std::size_t kMcpTextSize = 10;
using McpLastText = char[kMcpTextSize];

// Sends every display whose function's text changed since it was last sent, and remembers it; each
// sent text is logged as "<logPrefix> -  <letter> freqval = <text>" when `logging` is set. Without
// power every display gets its blank text and the memory is cleared, so power coming back resends
// them all. The three spans run in parallel (one entry per display).
void SendMcpDisplays(const UnitPort& port, bool powered, std::span<const McpDisplaySlot> slots,
                     std::span<AvionicFunction* const> dials, std::span<McpLastText> lastTexts, bool logging,
                     const char* logPrefix);
// Every display blank, the memory cleared.
void BlankMcpDisplays(const UnitPort& port, std::span<const McpDisplaySlot> slots, std::span<McpLastText> lastTexts);

}  // namespace drav
