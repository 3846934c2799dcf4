// The display brightness shared by every panel: read back from the first panel that can tell it,
// and sent to every unit of every model that has a brightness report.
#pragma once

#include <cstdint>
#include <span>

namespace drav {

// One model's brightness getter, in the level's own type. The answer is the device layer's result
// code; *level is written only when it is 0 (done), so a failed read keeps the previous level.
struct BrightnessReader {
  std::uint32_t moduleType;
  std::int32_t (*read)(std::int32_t unit, std::int32_t* level);
};

// One model's brightness setter. A reversed scale (the GF-LGT2's) receives 15 - level.
struct BrightnessWriter {
  std::uint32_t moduleType;
  std::int32_t (*write)(std::int32_t unit, std::int32_t value);
  bool reversedScale;
};

inline constexpr std::int32_t kBrightnessScaleTop = 15;

// Units of a model; the plug-in asks the panel directory it was handed.
using UnitCounter = std::int32_t (*)(std::uint32_t moduleType);
std::int32_t ManagedUnitCount(std::uint32_t moduleType);

// The level a freshly started plug-in begins with, a middle brightness; it changes only when a
// panel reports its own or the pilot sets it.
inline constexpr std::int32_t kInitialDisplayBrightness = 8;

// The models in the order they are asked for the level, and in the order they are sent it, as the
// panel directory tells them (none without a directory).
std::span<const BrightnessReader> BrightnessReadOrder();
std::span<const BrightnessWriter> BrightnessWriteOrder();

// Reads unit 0 of the first model in `order` with at least one unit into the level.
// No such model, or a failed read: the level stays.
void RefreshDisplayBrightnessLevel(UnitCounter units = ManagedUnitCount,
                                   std::span<const BrightnessReader> order = BrightnessReadOrder());

// Sends the level to units 0.. of every model in `order`, models first to last. Result
// codes are ignored: an absent unit simply keeps its brightness.
void SendDisplayBrightnessLevel(UnitCounter units = ManagedUnitCount,
                                std::span<const BrightnessWriter> order = BrightnessWriteOrder());

}  // namespace drav
