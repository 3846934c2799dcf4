#include "modules/McpDisplaySlot.h"

#include <cstring>

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

}  // namespace drav
