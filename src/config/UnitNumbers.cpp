#include "config/UnitNumbers.h"

#include <algorithm>

#include "config/Assignments.h"
#include "config/ConfigState.h"
#include "base/IniFile.h"

namespace drav {

namespace {

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool FitsOnALine(const std::string& key, const std::string& who) {
  if (key.size() + 1 + who.size() > kIniMaxLineLength) return false;
  return std::none_of(who.begin(), who.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

}  // namespace

std::vector<std::string> IniUnitNumberMemory::Recall(std::uint32_t moduleType, std::int32_t slots) {
  const IniReadSnapshot snapshot;
  std::vector<std::string> recalled;
  for (std::int32_t unit = 0; unit < slots; ++unit) {
    const std::string key = AssignmentSection(moduleType, static_cast<std::uint32_t>(unit));
    recalled.push_back(Trimmed(ReadIniString(kConfigFileName, kUnitNumbersSection, key.c_str(), "")));
  }
  // A unit named on two lines (a pilot's copy and paste) keeps the first number only.
  for (std::size_t unit = 0; unit < recalled.size(); ++unit) {
    if (recalled[unit].empty()) continue;
    for (std::size_t later = unit + 1; later < recalled.size(); ++later) {
      if (recalled[later] == recalled[unit]) recalled[later].clear();
    }
  }
  return recalled;
}

void IniUnitNumberMemory::Remember(std::uint32_t moduleType, std::int32_t unit, const std::string& who) {
  if (unit < 0) return;
  const std::string key = AssignmentSection(moduleType, static_cast<std::uint32_t>(unit));
  if (!FitsOnALine(key, who)) return;
  WriteIniValue(kConfigFileName, kUnitNumbersSection, key.c_str(), who.c_str());
}

IniUnitNumberMemory& TheUnitNumberMemory() { return CurrentConfigState().unitNumbers; }

}  // namespace drav
