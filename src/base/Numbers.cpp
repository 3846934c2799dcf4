#include "base/Numbers.h"

#include <charconv>
#include <cstring>
#include <limits>

namespace drav {

const char* FormatFixed(char* out, std::size_t size, double value, int width, int precision) {
  if (out == nullptr || size == 0) return out;
  // Wide enough for the largest double with every digit before the point.
  char digits[std::numeric_limits<double>::max_exponent10 + 64];
  const std::to_chars_result result =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, precision);
  const std::size_t length = result.ec == std::errc() ? static_cast<std::size_t>(result.ptr - digits) : 0;
  const std::size_t padding = width > 0 && static_cast<std::size_t>(width) > length ? width - length : 0;
  std::size_t written = 0;
  for (; written < padding && written + 1 < size; ++written) out[written] = ' ';
  const std::size_t copied = length < size - 1 - written ? length : size - 1 - written;
  std::memcpy(out + written, digits, copied);
  out[written + copied] = '\0';
  return out;
}

double ParseLeadingReal(const char* text) {
  if (text == nullptr) return 0.0;
  while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
  if (*text == '+' && text[1] != '-') ++text;
  double value = 0.0;
  const std::from_chars_result result =
      std::from_chars(text, text + std::strlen(text), value, std::chars_format::general);
  return result.ec == std::errc() ? value : 0.0;
}

}  // namespace drav
