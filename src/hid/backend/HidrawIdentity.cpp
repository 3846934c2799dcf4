#include "hid/backend/HidrawIdentity.h"

#include <algorithm>
#include <charconv>
#include <cctype>

namespace drav {

namespace {

constexpr std::string_view kDevFolder = "/dev/";
constexpr std::string_view kNodePrefix = "hidraw";

std::optional<std::uint32_t> ParseHex(std::string_view text) {
  if (text.empty()) return std::nullopt;
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::uint16_t> ParseHex16(std::string_view text) {
  const auto value = ParseHex(text);
  if (!value || *value > 0xFFFF) return std::nullopt;
  return static_cast<std::uint16_t>(*value);
}

std::string_view TrimLineEnd(std::string_view line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n' || line.back() == ' ')) {
    line.remove_suffix(1);
  }
  return line;
}

// "BUS:VENDOR:PRODUCT", each in hex.
bool ParseHidId(std::string_view value, HidrawIdentity& identity) {
  const auto first = value.find(':');
  const auto second = value.find(':', first == std::string_view::npos ? first : first + 1);
  if (first == std::string_view::npos || second == std::string_view::npos) return false;
  const auto bus = ParseHex16(value.substr(0, first));
  const auto vendor = ParseHex16(value.substr(first + 1, second - first - 1));
  const auto product = ParseHex16(value.substr(second + 1));
  if (!bus || !vendor || !product) return false;
  identity.bus = *bus;
  identity.vendorId = *vendor;
  identity.productId = *product;
  return true;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
         });
}

}  // namespace

std::optional<HidrawIdentity> ParseHidUevent(std::string_view text) {
  HidrawIdentity identity;
  bool haveId = false;
  while (!text.empty()) {
    const auto lineEnd = text.find('\n');
    const std::string_view line = TrimLineEnd(text.substr(0, lineEnd));
    text.remove_prefix(lineEnd == std::string_view::npos ? text.size() : lineEnd + 1);
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const std::string_view key = line.substr(0, equals);
    const std::string_view value = line.substr(equals + 1);
    if (key == "HID_ID") {
      haveId = ParseHidId(value, identity);
      if (!haveId) return std::nullopt;
    } else if (key == "HID_NAME") {
      identity.name = value;
    } else if (key == "HID_UNIQ") {
      identity.serial = value;
    } else if (key == "HID_PHYS") {
      identity.location = value;
    }
  }
  if (!haveId) return std::nullopt;
  return identity;
}

std::optional<std::uint16_t> ParseBcdAttribute(std::string_view text) { return ParseHex16(TrimLineEnd(text)); }

std::optional<int> HidrawNodeNumber(std::string_view nodeName) {
  if (!nodeName.starts_with(kNodePrefix)) return std::nullopt;
  const std::string_view digits = nodeName.substr(kNodePrefix.size());
  if (digits.empty() || !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; })) {
    return std::nullopt;
  }
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

std::vector<std::string> SortedHidrawPaths(const std::string& folder, const std::vector<std::string>& nodeNames) {
  std::vector<std::pair<int, std::string>> numbered;
  for (const std::string& name : nodeNames) {
    if (const auto number = HidrawNodeNumber(name)) numbered.emplace_back(*number, name);
  }
  std::sort(numbered.begin(), numbered.end());
  std::vector<std::string> paths;
  paths.reserve(numbered.size());
  for (const auto& entry : numbered) paths.push_back(folder + "/" + entry.second);
  return paths;
}

std::string HidrawNodeNameOfPath(std::string_view path) {
  if (path.size() <= kDevFolder.size() || !EqualIgnoringCase(path.substr(0, kDevFolder.size()), kDevFolder)) {
    return {};
  }
  std::string name(path.substr(kDevFolder.size()));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return HidrawNodeNumber(name) ? name : std::string();
}

std::string CanonicalHidrawPath(std::string_view path) {
  const std::string name = HidrawNodeNameOfPath(path);
  return name.empty() ? std::string(path) : std::string(kDevFolder) + name;
}

}  // namespace drav
