#include "dravsim/ScenarioNumbers.h"

#include <charconv>
#include <limits>

namespace dravsim {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool HasPrefix(std::string_view text, char lower) {
  return text.size() > 2 && text[0] == '0' && (text[1] == lower || text[1] == lower - 32);
}

std::optional<unsigned long long> ParseMagnitude(std::string_view digits, int base) {
  unsigned long long value = 0;
  const char* end = digits.data() + digits.size();
  const auto [ptr, ec] = std::from_chars(digits.data(), end, value, base);
  if (ec != std::errc() || ptr != end) return std::nullopt;
  return value;
}

// Digits, optionally a '.', more digits; at least one digit in all.
bool IsPlainDecimal(std::string_view text) {
  bool sawPoint = false;
  bool sawDigit = false;
  for (const char c : text) {
    if (IsDigit(c)) {
      sawDigit = true;
    } else if (c == '.' && !sawPoint) {
      sawPoint = true;
    } else {
      return false;
    }
  }
  return sawDigit;
}

int HexDigitValue(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::optional<long long> ParseInteger(std::string_view text) {
  const bool negative = !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  int base = 10;
  if (HasPrefix(text, 'x')) {
    base = 16;
    text.remove_prefix(2);
  } else if (HasPrefix(text, 'b')) {
    base = 2;
    text.remove_prefix(2);
  }
  // from_chars would take a second sign; the language allows only the one in front.
  if (text.empty() || text.front() == '-' || text.front() == '+') return std::nullopt;
  const auto magnitude = ParseMagnitude(text, base);
  if (!magnitude) return std::nullopt;
  constexpr auto kMax = static_cast<unsigned long long>(std::numeric_limits<long long>::max());
  if (!negative) {
    if (*magnitude > kMax) return std::nullopt;
    return static_cast<long long>(*magnitude);
  }
  if (*magnitude > kMax + 1) return std::nullopt;
  return *magnitude == kMax + 1 ? std::numeric_limits<long long>::min()
                                : -static_cast<long long>(*magnitude);
}

std::optional<long long> ParseIntegerIn(std::string_view text, long long low, long long high) {
  const auto value = ParseInteger(text);
  if (!value || *value < low || *value > high) return std::nullopt;
  return value;
}

std::optional<double> ParseReal(std::string_view text) {
  if (const auto integer = ParseInteger(text)) return static_cast<double>(*integer);
  std::string_view unsignedPart = text;
  if (!unsignedPart.empty() && unsignedPart.front() == '-') unsignedPart.remove_prefix(1);
  if (!IsPlainDecimal(unsignedPart)) return std::nullopt;
  double value = 0.0;
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (ec != std::errc() || ptr != end) return std::nullopt;
  return value;
}

std::optional<std::vector<std::uint8_t>> ParseHexBytes(std::span<const Word> words) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(words.size());
  for (const Word& word : words) {
    if (word.quoted || word.text.size() != 2) return std::nullopt;
    const int high = HexDigitValue(word.text[0]);
    const int low = HexDigitValue(word.text[1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
  }
  return bytes;
}

}  // namespace dravsim
