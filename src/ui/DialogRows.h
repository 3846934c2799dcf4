// What the Assign Functions dialog shows for each model: its function rows (caption, key, default,
// which list), its colour rows and its calibration sliders. Keys and defaults come from the
// assignment key groups, so the dialog edits exactly what the loader reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace drav {

// The lists a row can offer.
enum class PickListKind : std::uint8_t {
  kButton,
  kButtonWithAltimeterStd,  // the GF-EFIS buttons also offer "ALTIMETER_SET_STD"
  kToggle,
  kAvionic,  // the avionic list of the unit's own model
  kLever,
  kWcp,
  kTrim,
  kGear,
  kFlap,
  kFuelFeed,
  kColour,
};
inline constexpr std::size_t kPickListKinds = static_cast<std::size_t>(PickListKind::kColour) + 1;

struct DialogFunctionRow {
  int row = 0;
  const char* caption = "";
  std::string key;
  const char* defaultValue = "";
  PickListKind list = PickListKind::kButton;
};

struct DialogSliderRow {
  int row = 0;
  const char* caption = "";
  const char* key = "";
  const char* defaultValue = "";
  int minimum = 0;
  int maximum = 100;
  bool percent = false;
  bool clampToRange = false;  // the wheel gains: a stored value outside the range is pulled in
};

struct DialogModelRows {
  std::vector<DialogFunctionRow> functions;
  std::vector<DialogFunctionRow> colours;
  std::vector<DialogSliderRow> sliders;
  // The GF-DIO shows nothing: its units are reloaded from the file (without registering again)
  // whenever it is picked.
  bool reloadAllWithoutRegistering = false;
};

struct DialogRowContext {
  bool x737Mode = false;
  bool mcpProDisabled = false;
  bool efisDisabled = false;
};
DialogRowContext CurrentDialogRowContext();

DialogModelRows RowsForModel(std::uint32_t moduleType, const DialogRowContext& context);

// The items of a fixed list ("AILERON_TRIM;ELEV_TRIM;..."); "" for the kinds that are built.
const char* FixedListText(PickListKind kind);

// The slider position for a stored value: percent sliders read the number times 100, truncated
// towards zero; the others read a whole number, pulled into the range when asked to.
int SliderValue(const DialogSliderRow& row, const char* storedValue);
bool SliderValueShown(const DialogSliderRow& row, int value);

}  // namespace drav
