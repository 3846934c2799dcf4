// Only the items that decide report sizes matter here: the global Report Size, Report Count and
// Report ID (with Push and Pop, which save and restore them), and the main items Input, Output and
// Feature, each of which adds Report Size x Report Count bits to the report of the current id.
// Everything else (usages, collections, logical ranges, long items) is stepped over.
#include "hid/backend/HidReportDescriptor.h"

#include <algorithm>
#include <map>
#include <vector>

namespace drav {

namespace {

enum class ItemType : std::uint8_t { Main = 0, Global = 1, Local = 2, Reserved = 3 };

// Item tags (the prefix byte's high nibble) of the items we act on.
constexpr std::uint8_t kMainInput = 0x8;
constexpr std::uint8_t kMainOutput = 0x9;
constexpr std::uint8_t kMainFeature = 0xB;
constexpr std::uint8_t kGlobalReportSize = 0x7;
constexpr std::uint8_t kGlobalReportId = 0x8;
constexpr std::uint8_t kGlobalReportCount = 0x9;
constexpr std::uint8_t kGlobalPush = 0xA;
constexpr std::uint8_t kGlobalPop = 0xB;
constexpr std::uint8_t kLongItemPrefix = 0xFE;

struct GlobalState {
  std::uint32_t reportSize = 0;
  std::uint32_t reportCount = 0;
  std::uint8_t reportId = 0;
};

enum class ReportKind { Input, Output, Feature };

struct Item {
  ItemType type;
  std::uint8_t tag;
  std::uint32_t data;
};

class DescriptorWalker {
 public:
  bool Step(const Item& item) {
    if (item.type == ItemType::Global) return StepGlobal(item);
    if (item.type == ItemType::Main) StepMain(item);
    return true;
  }

  HidReportLayout Layout() const {
    HidReportLayout layout;
    layout.numberedReports = numbered_;
    layout.lengths.inputReportLength = LongestReport(ReportKind::Input);
    layout.lengths.outputReportLength = LongestReport(ReportKind::Output);
    layout.lengths.featureReportLength = LongestReport(ReportKind::Feature);
    return layout;
  }

 private:
  bool StepGlobal(const Item& item) {
    switch (item.tag) {
      case kGlobalReportSize: state_.reportSize = item.data; break;
      case kGlobalReportCount: state_.reportCount = item.data; break;
      case kGlobalReportId:
        state_.reportId = static_cast<std::uint8_t>(item.data);
        numbered_ = true;
        break;
      case kGlobalPush: stack_.push_back(state_); break;
      case kGlobalPop:
        if (stack_.empty()) return false;
        state_ = stack_.back();
        stack_.pop_back();
        break;
      default: break;
    }
    return true;
  }

  void StepMain(const Item& item) {
    const auto kind = KindOfMainTag(item.tag);
    if (!kind) return;
    // 64-bit sums: a hostile descriptor cannot overflow them with 32-bit sizes and counts.
    bits_[{*kind, state_.reportId}] += std::uint64_t{state_.reportSize} * state_.reportCount;
  }

  static std::optional<ReportKind> KindOfMainTag(std::uint8_t tag) {
    if (tag == kMainInput) return ReportKind::Input;
    if (tag == kMainOutput) return ReportKind::Output;
    if (tag == kMainFeature) return ReportKind::Feature;
    return std::nullopt;
  }

  std::uint16_t LongestReport(ReportKind kind) const {
    std::uint64_t longestBits = 0;
    bool any = false;
    for (const auto& [key, bits] : bits_) {
      if (key.first != kind) continue;
      any = true;
      longestBits = std::max(longestBits, bits);
    }
    if (!any) return 0;
    const std::uint64_t bytes = (longestBits + 7) / 8 + 1;  // the report id byte
    return static_cast<std::uint16_t>(std::min<std::uint64_t>(bytes, 0xFFFF));
  }

  GlobalState state_;
  std::vector<GlobalState> stack_;
  std::map<std::pair<ReportKind, std::uint8_t>, std::uint64_t> bits_;
  bool numbered_ = false;
};

std::uint32_t LittleEndian(std::span<const std::uint8_t> bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) value |= std::uint32_t{bytes[i]} << (8 * i);
  return value;
}

}  // namespace

std::optional<HidReportLayout> ParseHidReportDescriptor(std::span<const std::uint8_t> descriptor) {
  DescriptorWalker walker;
  std::size_t at = 0;
  while (at < descriptor.size()) {
    const std::uint8_t prefix = descriptor[at];
    if (prefix == kLongItemPrefix) {
      // Long item: prefix, data size, tag, data. Nothing we need is ever a long item.
      if (at + 2 >= descriptor.size()) return std::nullopt;
      const std::size_t next = at + 3 + descriptor[at + 1];
      if (next > descriptor.size()) return std::nullopt;
      at = next;
      continue;
    }
    static constexpr std::size_t kDataSizes[] = {0, 1, 2, 4};
    const std::size_t dataSize = kDataSizes[prefix & 0x3];
    if (at + 1 + dataSize > descriptor.size()) return std::nullopt;
    const Item item{static_cast<ItemType>((prefix >> 2) & 0x3), static_cast<std::uint8_t>(prefix >> 4),
                    LittleEndian(descriptor.subspan(at + 1, dataSize))};
    if (!walker.Step(item)) return std::nullopt;
    at += 1 + dataSize;
  }
  return walker.Layout();
}

}  // namespace drav
