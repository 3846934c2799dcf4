#include "functions/DisplayBrightness.h"

#include "functions/AvionicDisplay.h"
#include "functions/PanelDirectory.h"
#include "hid/GFDev.h"
#include "hid/ModuleTypes.h"

namespace drav {

// Starts at a middle brightness; changes only when a panel reports its own or the pilot sets it.
std::int32_t DisplayBrightnessLevel = kInitialDisplayBrightness;

void ResetDisplayBrightnessLevel() { DisplayBrightnessLevel = kInitialDisplayBrightness; }

namespace {

// The device layer's getters answer in 16 bits (the GF-WCP in 32); the level is one int for all.
// The raw value is copied only on success, whatever the getter did with its out argument.
template <typename Raw, std::int32_t (*Getter)(std::int32_t, Raw*)>
std::int32_t ReadLevel(std::int32_t unit, std::int32_t* level) {
  Raw raw = 0;
  const std::int32_t result = Getter(unit, &raw);
  if (result == kGFDevDone) *level = static_cast<std::int32_t>(raw);
  return result;
}

// The setters take 16 bits, the GF-45 and GF-46 a full int; the devices keep the low four bits.
template <typename Raw, std::int32_t (*Setter)(std::int32_t, Raw)>
std::int32_t WriteLevel(std::int32_t unit, std::int32_t value) {
  return Setter(unit, static_cast<Raw>(value));
}

using Word = std::uint16_t;

// The panels asked for the level: the first model with a unit answers (its unit 0). The GF-45 has
// no getter. The GF-LGT2's answer is taken as it comes, on its own reversed scale.
constexpr BrightnessReader kReadOrder[] = {
    {kModuleGFP8, ReadLevel<Word, GFDev_GFP8_GetBrightness>},
    {kModuleGFT8, ReadLevel<Word, GFDev_GFT8_GetBrightness>},
    {kModuleGF166, ReadLevel<Word, GFDev_GF166_GetBrightness>},
    {kModuleGFLGT, ReadLevel<Word, GFDev_GFLGT_GetBrightness>},
    {kModuleGFLGT2, ReadLevel<Word, GFDev_GFLGT2_GetBrightness>},
    {kModuleGFMCP, ReadLevel<Word, GFDev_GFMCP_GetBrightness>},
    {kModuleGFMCPPro, ReadLevel<Word, GFDev_GFMCPPro_GetBrightness>},
    {kModuleGFRP48, ReadLevel<Word, GFDev_GFRP48_GetBrightness>},
    {kModuleGF46, ReadLevel<Word, GFDev_GF46_GetBrightness>},
    {kModuleGFWCP, ReadLevel<std::uint32_t, GFDev_GFWCP_GetBrightness>},
};

// The panels sent the level, every unit of each.
constexpr BrightnessWriter kWriteOrder[] = {
    {kModuleGF45, WriteLevel<std::int32_t, GFDev_GF45_SetBrightness>, false},
    {kModuleGF46, WriteLevel<std::int32_t, GFDev_GF46_SetBrightness>, false},
    {kModuleGFP8, WriteLevel<Word, GFDev_GFP8_SetBrightness>, false},
    {kModuleGFT8, WriteLevel<Word, GFDev_GFT8_SetBrightness>, false},
    {kModuleGFLGT, WriteLevel<Word, GFDev_GFLGT_SetBrightness>, false},
    {kModuleGFLGT2, WriteLevel<Word, GFDev_GFLGT2_SetBrightness>, true},
    {kModuleGF166, WriteLevel<Word, GFDev_GF166_SetBrightness>, false},
    {kModuleGFMCP, WriteLevel<Word, GFDev_GFMCP_SetBrightness>, false},
    {kModuleGFMCPPro, WriteLevel<Word, GFDev_GFMCPPro_SetBrightness>, false},
    {kModuleGFRP48, WriteLevel<Word, GFDev_GFRP48_SetBrightness>, false},
    {kModuleGFWCP, WriteLevel<Word, GFDev_GFWCP_SetBrightness>, false},
};

std::int32_t ValueFor(const BrightnessWriter& writer, std::int32_t level) {
  return writer.reversedScale ? kBrightnessScaleTop - level : level;
}

}  // namespace

std::int32_t ManagedUnitCount(std::uint32_t moduleType) {
  const PanelDirectory* panels = CurrentPanelDirectory();
  return panels != nullptr ? panels->UnitCount(moduleType) : 0;
}

std::span<const BrightnessReader> BrightnessReadOrder() { return kReadOrder; }
std::span<const BrightnessWriter> BrightnessWriteOrder() { return kWriteOrder; }

void RefreshDisplayBrightnessLevel(UnitCounter units, std::span<const BrightnessReader> order) {
  for (const BrightnessReader& reader : order) {
    if (units(reader.moduleType) < 1) continue;
    // Only the first connected model is asked; if its read fails the level keeps its value.
    reader.read(0, &DisplayBrightnessLevel);
    return;
  }
}

void SendDisplayBrightnessLevel(UnitCounter units, std::span<const BrightnessWriter> order) {
  for (const BrightnessWriter& writer : order) {
    const std::int32_t count = units(writer.moduleType);
    const std::int32_t value = ValueFor(writer, DisplayBrightnessLevel);
    for (std::int32_t unit = 0; unit < count; ++unit) writer.write(unit, value);
  }
}

}  // namespace drav
