#include "ui/DialogRows.h"

#include <algorithm>

#include "base/IniFile.h"
#include "base/HostState.h"
#include "modules/ModuleRegistry.h"
#include "ui/FunctionPickLists.h"

namespace drav {

namespace {

using Kind = PickListKind;

struct FixedList {
  Kind kind;
  const char* items;
};
constexpr FixedList kFixedLists[] = {
    {Kind::kTrim, "AILERON_TRIM;ELEV_TRIM;ROTOR_TRIM;RUDDER_TRIM;"},
    {Kind::kGear, "LANDING_GEAR;WATER_RUDDER;"},
    {Kind::kFlap, "FLAPS_UP_DOWN;"},
    {Kind::kFuelFeed, "FUEL_FEED_OFF;FUEL_FEED_LEFT;FUEL_FEED_CENTRE;FUEL_FEED_RIGHT;FUEL_FEED_ALL;"},
    {Kind::kColour, kColourList},
};

}  // namespace

DialogRowContext CurrentDialogRowContext() {
  const HostFlags& flags = CurrentHostFlags();
  return {flags.x737Mode != 0, flags.mcpProDisabled != 0, flags.efisDisabled != 0};
}

DialogModelRows RowsForModel(std::uint32_t moduleType, const DialogRowContext& context) {
  DialogModelRows rows;
  const ModelDescriptor* model = FindProductionModel(moduleType);
  if (model != nullptr && model->dialogRows != nullptr) model->dialogRows(rows, context);
  return rows;
}

const char* FixedListText(PickListKind kind) {
  for (const FixedList& list : kFixedLists) {
    if (list.kind == kind) return list.items;
  }
  return "";
}

int SliderValue(const DialogSliderRow& row, const char* storedValue) {
  if (row.percent) return static_cast<int>(ParseIniReal(storedValue) * 100.0f);
  const int value = ParseIniInt(storedValue);
  return row.clampToRange ? std::clamp(value, row.minimum, row.maximum) : value;
}

bool SliderValueShown(const DialogSliderRow& row, int value) {
  return value >= row.minimum && value <= row.maximum;
}

}  // namespace drav
