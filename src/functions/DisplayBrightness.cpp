#include "functions/DisplayBrightness.h"

#include "functions/AvionicDisplay.h"
#include "functions/FunctionState.h"
#include "functions/PanelDirectory.h"

namespace drav {

namespace {

std::int32_t& Level() { return CurrentFunctionState().displayBrightnessLevel; }

std::int32_t ValueFor(const BrightnessWriter& writer, std::int32_t level) {
  return writer.reversedScale ? kBrightnessScaleTop - level : level;
}

}  // namespace

std::int32_t GetDisplayBrightnessLevel() { return Level(); }
void SetDisplayBrightnessLevel(std::int32_t level) { Level() = level; }

std::int32_t ManagedUnitCount(std::uint32_t moduleType) {
  const PanelDirectory* panels = CurrentPanelDirectory();
  return panels != nullptr ? panels->UnitCount(moduleType) : 0;
}

std::span<const BrightnessReader> BrightnessReadOrder() {
  const PanelDirectory* panels = CurrentPanelDirectory();
  return panels != nullptr ? panels->BrightnessReaders() : std::span<const BrightnessReader>();
}

std::span<const BrightnessWriter> BrightnessWriteOrder() {
  const PanelDirectory* panels = CurrentPanelDirectory();
  return panels != nullptr ? panels->BrightnessWriters() : std::span<const BrightnessWriter>();
}

void RefreshDisplayBrightnessLevel(UnitCounter units, std::span<const BrightnessReader> order) {
  for (const BrightnessReader& reader : order) {
    if (units(reader.moduleType) < 1) continue;
    // Only the first connected model is asked; if its read fails the level keeps its value.
    reader.read(0, &Level());
    return;
  }
}

void SendDisplayBrightnessLevel(UnitCounter units, std::span<const BrightnessWriter> order) {
  for (const BrightnessWriter& writer : order) {
    const std::int32_t count = units(writer.moduleType);
    const std::int32_t value = ValueFor(writer, Level());
    for (std::int32_t unit = 0; unit < count; ++unit) writer.write(unit, value);
  }
}

}  // namespace drav
