#include "base/IniIndex.h"

#include <algorithm>

#include "base/IniLines.h"

namespace drav {
namespace {

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

// The lines the line reader would give, as views into the bytes (a line's characters are one run
// of the file; only the line ends are left out).
std::vector<std::string_view> SplitLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  std::size_t at = 0;
  const std::size_t size = bytes.size();
  while (at < size) {
    const std::size_t limit = size - at < kIniMaxLineLength ? size : at + kIniMaxLineLength;
    std::size_t end = at;
    while (end < limit && !IsLineEnd(bytes[end])) ++end;
    lines.push_back(bytes.substr(at, end - at));
    at = end;
    // A line end right after a full chunk belongs to it, as one after a shorter line does.
    if (at < size && IsLineEnd(bytes[at])) {
      const char partner = bytes[at] == '\n' ? '\r' : '\n';
      ++at;
      if (at < size && bytes[at] == partner) ++at;
    }
  }
  return lines;
}

// A section name with a bracket in it can stand in a line in ways the bracket table does not list.
bool HasBracket(std::string_view text) { return text.find_first_of("[]") != std::string_view::npos; }

// Built by appending: GCC 12 at -O3 sees a false overlap in "[" + std::string(...).
std::string Tag(std::string_view section) {
  std::string tag;
  tag.reserve(section.size() + 2);
  tag += '[';
  tag += section;
  tag += ']';
  return tag;
}
std::string Prefix(std::string_view key) {
  std::string prefix(key);
  prefix += '=';
  return prefix;
}

}  // namespace

IniIndex::IniIndex(std::string bytes) : bytes_(std::move(bytes)), lines_(SplitLines(bytes_)) {
  for (std::size_t index = 0; index < lines_.size(); ++index) {
    const std::string_view line = lines_[index];
    for (std::size_t open = line.find('['); open != std::string_view::npos; open = line.find('[', open + 1)) {
      const std::size_t close = line.find(']', open + 1);
      if (close == std::string_view::npos) break;  // no later '[' has a ']' after it either
      sections_.try_emplace(line.substr(open + 1, close - open - 1), index);
    }
  }
}

std::optional<std::size_t> IniIndex::SectionLine(std::string_view section) const {
  if (!HasBracket(section)) {
    const auto found = sections_.find(section);
    if (found == sections_.end()) return std::nullopt;
    return found->second;
  }
  const std::string tag = Tag(section);
  for (std::size_t index = 0; index < lines_.size(); ++index) {
    if (ini::Contains(lines_[index], tag)) return index;
  }
  return std::nullopt;
}

// The last line searched for a key: the first after the tag line that starts a section, or the last.
std::size_t IniIndex::SectionEnd(std::size_t sectionLine) const {
  std::size_t index = sectionLine + 1;
  while (index + 1 < lines_.size() && !ini::StartsSection(lines_[index])) ++index;
  return index;
}

const IniIndex::KeyTable& IniIndex::Table(std::size_t sectionLine, std::size_t keyLength) {
  const std::uint64_t id = (static_cast<std::uint64_t>(sectionLine) << 16) | keyLength;
  if (lastTable_ < tables_.size() && tables_[lastTable_].id == id) return tables_[lastTable_];
  for (std::size_t at = 0; at < tables_.size(); ++at) {
    if (tables_[at].id != id) continue;
    lastTable_ = at;
    return tables_[at];
  }
  std::vector<KeyValue> entries;
  const std::size_t last = SectionEnd(sectionLine);
  for (std::size_t index = sectionLine + 1; index <= last; ++index) {
    const std::string_view line = lines_[index];
    if (ini::IsComment(line)) continue;
    // Every '=' may end a key; the text of keyLength characters before it is the key it ends.
    for (std::size_t equals = line.find('='); equals != std::string_view::npos; equals = line.find('=', equals + 1)) {
      if (equals >= keyLength) entries.push_back({line.substr(equals - keyLength, keyLength), line.substr(equals + 1)});
    }
  }
  // Stable: of equal keys the first found stays first, and unique keeps it.
  std::stable_sort(entries.begin(), entries.end(), [](const KeyValue& a, const KeyValue& b) { return a.key < b.key; });
  entries.erase(std::unique(entries.begin(), entries.end(),
                            [](const KeyValue& a, const KeyValue& b) { return a.key == b.key; }),
                entries.end());
  tables_.push_back({id, std::move(entries)});
  lastTable_ = tables_.size() - 1;
  return tables_.back();
}

// For keys with '=' in them, which the tables cannot hold: the section's lines one by one.
std::optional<std::string_view> IniIndex::ScanSection(std::size_t sectionLine, std::string_view key) const {
  const std::string prefix = Prefix(key);
  const std::size_t last = SectionEnd(sectionLine);
  for (std::size_t index = sectionLine + 1; index <= last; ++index) {
    const std::size_t at = ini::FindKeyPrefix(lines_[index], prefix);
    if (at != std::string_view::npos) return lines_[index].substr(at + prefix.size());
  }
  return std::nullopt;
}

std::optional<std::string_view> IniIndex::Find(std::string_view section, std::string_view key) {
  if (!lastSectionKnown_ || section != lastSection_) {
    lastSectionLine_ = SectionLine(section);
    lastSection_.assign(section);
    lastSectionKnown_ = true;
  }
  const std::optional<std::size_t> sectionLine = lastSectionLine_;
  if (!sectionLine || *sectionLine + 1 >= lines_.size()) return std::nullopt;
  // Longer than a line: no line can hold it (and the table id keeps 16 bits for the length).
  if (key.size() >= kIniMaxLineLength) return std::nullopt;
  if (key.find('=') != std::string_view::npos) return ScanSection(*sectionLine, key);
  const std::vector<KeyValue>& entries = Table(*sectionLine, key.size()).entries;
  const auto found = std::lower_bound(entries.begin(), entries.end(), key,
                                      [](const KeyValue& entry, std::string_view text) { return entry.key < text; });
  if (found == entries.end() || found->key != key) return std::nullopt;
  return found->value;
}

std::optional<std::string> ScanIniBytes(std::string_view bytes, std::string_view section, std::string_view key) {
  ini::LineReader reader{ini::MemoryCharacters(bytes)};
  std::string_view value;
  if (!ini::ScanForValue(reader, Tag(section), Prefix(key), value)) return std::nullopt;
  return std::string(value);
}

}  // namespace drav
