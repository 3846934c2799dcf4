#include "modules/AssignmentKeys.h"

#include <charconv>
#include <cstring>

namespace drav {

namespace {

bool InGroup(const AssignmentKeyGroup& group, int index) { return index >= 0 && index < KeyCount(group); }

}  // namespace

// ---- keys of a group -----------------------------------------------------------------------------

int KeyCount(const AssignmentKeyGroup& group) {
  if (group.characters != nullptr) return static_cast<int>(std::strlen(group.characters));
  return group.count > 0 ? group.count : 0;
}

KeySpelling SpellKey(const AssignmentKeyGroup& group, int index) {
  KeySpelling key;
  if (!InGroup(group, index)) return key;
  char* const end = key.text.data() + key.text.size() - 1;  // the last stays the terminator
  char* at = key.text.data();
  for (const char* prefix = group.prefix; *prefix != '\0' && at < end; ++prefix) *at++ = *prefix;
  if (group.characters != nullptr) {
    if (at < end) *at = group.characters[index];
    return key;
  }
  // "%02d" (from 25 on the writer of the file used "%d"; for two-digit numbers that spells the
  // same), without printf.
  char digits[16];
  char* digitsEnd = std::to_chars(digits, digits + sizeof digits, group.firstNumber + index).ptr;
  if (digitsEnd - digits == 1 && at < end) *at++ = '0';
  for (const char* digit = digits; digit != digitsEnd && at < end; ++digit) *at++ = *digit;
  return key;
}

std::string KeyName(const AssignmentKeyGroup& group, int index) { return SpellKey(group, index).CString(); }

std::uint8_t KeyControl(const AssignmentKeyGroup& group, int index) {
  if (!InGroup(group, index)) return 0;
  if (group.characters != nullptr) return static_cast<std::uint8_t>(group.characters[index]);
  return static_cast<std::uint8_t>(group.firstNumber + index + group.controlOffset);
}

int KeyNumber(const AssignmentKeyGroup& group, int index) {
  if (!InGroup(group, index)) return 0;
  return group.characters != nullptr ? index + 1 : group.firstNumber + index;
}

const char* KeyDefault(const AssignmentKeyGroup& group, int index) {
  if (!InGroup(group, index)) return "";
  if (group.defaults != nullptr) return group.defaults[index];
  return group.commonDefault != nullptr ? group.commonDefault : "";
}

}  // namespace drav
