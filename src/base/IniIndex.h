// DRAV.INI read once into an index that answers every key the way the line-by-line reader does:
// the first line holding "[SECTION]" anywhere opens the section, the section runs to the next line
// that starts with '[' (which is still searched for the key), the first non-comment line holding
// "KEY=" anywhere gives the rest of that line. A full load asks several hundred keys; scanning the
// file for each cost a tenth of a frame, the index answers each in a hash look-up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace drav {

class IniIndex {
 public:
  explicit IniIndex(std::string bytes);
  IniIndex(const IniIndex&) = delete;
  IniIndex& operator=(const IniIndex&) = delete;

  // The stored value (at most one line, up to kIniMaxLineLength characters), or nothing. The view
  // lives as long as the index. Not const: the key tables of a section are made on first use.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key);
  // Whether a line opens the section, by the same rule Find uses.
  bool HasSection(std::string_view section) const { return SectionLine(section).has_value(); }
  // The file's bytes the index was made from.
  std::string_view Bytes() const { return bytes_; }

 private:
  // The values of one section for keys of one length, sorted by key text; of equal keys only the
  // first line's, and in it the first place's, is kept.
  struct KeyValue {
    std::string_view key;
    std::string_view value;
  };
  struct KeyTable {
    std::uint64_t id;  // section line and key length
    std::vector<KeyValue> entries;
  };

  std::optional<std::size_t> SectionLine(std::string_view section) const;
  std::size_t SectionEnd(std::size_t sectionLine) const;
  const KeyTable& Table(std::size_t sectionLine, std::size_t keyLength);
  std::optional<std::string_view> ScanSection(std::size_t sectionLine, std::string_view key) const;

  std::string bytes_;
  std::vector<std::string_view> lines_;
  // Text between each '[' and the first ']' after it in the same line -> first line holding it.
  std::unordered_map<std::string_view, std::size_t> sections_;
  std::vector<KeyTable> tables_;  // a load asks a few dozen sections and key lengths
  // A load asks the keys of one section one after another, most of one length: the last section
  // and table found answer the next question without a hash or a search.
  std::string lastSection_;
  std::optional<std::size_t> lastSectionLine_;
  bool lastSectionKnown_ = false;
  std::size_t lastTable_ = 0;
};

// The line-by-line reader over bytes in memory: what the index must answer for every question.
std::optional<std::string> ScanIniBytes(std::string_view bytes, std::string_view section, std::string_view key);

}  // namespace drav
