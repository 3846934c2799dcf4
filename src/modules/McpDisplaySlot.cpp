#include "modules/McpDisplaySlot.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "functions/FunctionObjects.h"
#include "base/Log.h"
#include "hid/UnitPort.h"

namespace drav {

void ComposeMcpDisplayText(const McpDisplaySlot& slot, const char* text, char* out, std::size_t outSize) {
  if (out == nullptr || outSize == 0) return;
  out[0] = '\0';
  if (text == nullptr) text = "";
  std::size_t written = 0;
  if (slot.leadingSpace && written + 1 < outSize) out[written++] = ' ';

  const std::size_t length = std::strlen(text);
  const std::size_t first = slot.first > 0 ? static_cast<std::size_t>(slot.first) : 0;
  if (first < length) {
    std::size_t taken = length - first;
    if (slot.count != kWholeText && static_cast<std::size_t>(slot.count) < taken) {
      taken = static_cast<std::size_t>(slot.count);
    }
    if (taken > outSize - 1 - written) taken = outSize - 1 - written;
    std::memcpy(out + written, text + first, taken);
    written += taken;
  }
  out[written] = '\0';
}

void BlankMcpDisplays(const UnitPort& port, std::span<const McpDisplaySlot> slots, std::span<McpLastText> lastTexts) {
  for (const McpDisplaySlot& slot : slots) port.SetDisplay(slot.display, slot.blank);
  for (McpLastText& text : lastTexts) text[0] = '\0';
}

void SendMcpDisplays(const UnitPort& port, bool powered, std::span<const McpDisplaySlot> slots,
                     std::span<AvionicFunction* const> dials, std::span<McpLastText> lastTexts, bool logging,
                     const char* logPrefix) {
  if (!powered) {
    BlankMcpDisplays(port, slots, lastTexts);
    return;
  }
  const std::size_t count = std::min({slots.size(), dials.size(), lastTexts.size()});
  for (std::size_t i = 0; i < count; ++i) {
    const AvionicFunction* dial = dials[i];
    if (dial == nullptr || std::strncmp(dial->text, lastTexts[i], kMcpTextSize - 1) == 0) continue;
    char shown[kMcpTextSize + 2];
    // The catalogue's texts carry blanks that each display skips; a value named in DRAV.INI is
    // formatted by the pilot for the display and shown from its first character.
    McpDisplaySlot slot = slots[i];
    if (dial->custom != nullptr) slot.first = 0;
    ComposeMcpDisplayText(slot, dial->text, shown, sizeof shown);
    port.SetDisplay(slots[i].display, shown);
    std::snprintf(lastTexts[i], kMcpTextSize, "%s", dial->text);
    if (logging) LogFormat("%s -  %c freqval = %s", logPrefix, slots[i].letter, shown);
  }
}

}  // namespace drav
