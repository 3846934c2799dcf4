// The unit numbers DRAV.INI remembers, so that a panel keeps its number (and with it its section and
// functions) from one session to the next and from one USB port to another. One line per number, in
// the [UNIT NUMBERS] section, keyed like the unit's own section and saying who has it:
//
//   [UNIT NUMBERS]
//   GF46_1=serial 0042A1
//   GFP8_2=port usb-0000:00:14.0-3/input0
//
// A pilot may edit or delete the lines; a unit that is not named gets a free number when it is
// found, and that number is written down.
#pragma once

#include "hid/DeviceLayerControl.h"

namespace drav {

inline constexpr const char* kUnitNumbersSection = "UNIT NUMBERS";

class IniUnitNumberMemory final : public UnitNumberMemory {
 public:
  std::vector<std::string> Recall(std::uint32_t moduleType, std::int32_t slots) override;
  // Writes only the one line; an identity that a line cannot carry (a control character, or too long
  // for a line) is not remembered.
  void Remember(std::uint32_t moduleType, std::int32_t unit, const std::string& who) override;
};

// The plug-in's memory, on its DRAV.INI.
IniUnitNumberMemory& TheUnitNumberMemory();

}  // namespace drav
