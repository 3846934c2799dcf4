// The 640 named functions: the one fixed table relating the names stored in DRAV.INI to the
// numeric function ids used everywhere else, and the id groups.
#pragma once

#include <cstdint>

namespace drav {

using FunctionId = std::int32_t;

inline constexpr FunctionId kFunctionCount = 640;
inline constexpr FunctionId kNada = 0;            // no function
inline constexpr FunctionId kMaxAvionic = 83;     // below: avionic (display and encoder) functions
inline constexpr FunctionId kMaxSubsystem = 611;  // between the two bounds: switch functions
inline constexpr FunctionId kFirstLever = 612;    // 612..639: throttle-quadrant levers

struct FunctionCatalogueEntry {
  const char* name;
  const char* iniSuffix;  // "_FUNC_" + name for the avionic ids 1..82, else nullptr
  FunctionId id;
};

// The entry of an id, or nullptr outside 0..639.
const FunctionCatalogueEntry* GetCatalogueEntry(FunctionId id);
// The name of an id; "" outside 0..639.
const char* GetFunctionName(FunctionId id);
// First match in id order: the name equal to text, or an avionic suffix contained in text; else 0.
FunctionId FindFunctionId(const char* text);

inline constexpr bool IsAvionicFunction(FunctionId id) { return id > kNada && id < kMaxAvionic; }
inline constexpr bool IsSwitchFunction(FunctionId id) { return id > kMaxAvionic && id < kMaxSubsystem; }
inline constexpr bool IsLeverFunction(FunctionId id) { return id >= kFirstLever && id < kFunctionCount; }

}  // namespace drav
