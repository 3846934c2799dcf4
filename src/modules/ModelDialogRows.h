// What the Assign Functions dialog shows for a model, as the model's descriptor gives it: its
// function rows (caption, key, default, which list), its colour rows and its calibration sliders.
// Keys and defaults come from the assignment key groups, so the dialog edits exactly what the loader
// reads. The row builders below are what the descriptors' dialog hooks are written with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "modules/AssignmentKeys.h"

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
// What changes a unit's label in the dialog's device list besides its model and number.
struct DeviceLabelContext {
  bool efisDisabled = false;
  bool x737McpDirect = false;
  bool mcpProDisabled = false;
  int xplaneVersion = 0;
};

// The label format of a unit ("%s Unit %d": model name, unit number) for the models whose label can
// say they are disabled or not assignable here.
using DeviceLabelHook = const char* (*)(const DeviceLabelContext& context);
inline constexpr const char* kUnitLabelFormat = "%s Unit %d";
inline constexpr const char* kNotAssignableLabelFormat = "%s - N/A";
inline constexpr const char* kDisabledLabelFormat = "%s DSBLD";

// Fills in the rows of one model; the context decides for the panels that another party may drive.
using DialogRowsHook = void (*)(DialogModelRows& rows, const DialogRowContext& context);

// ---- row builders ----------------------------------------------------------------------------------

// One row taken from an assignment key group.
struct KeyedRow {
  const char* caption;
  const AssignmentKeyGroup* group;
  int index;
  PickListKind list;
};

using GroupList = std::pair<const AssignmentKeyGroup*, PickListKind>;

// Rows 0.. from the table, each key with its group's default.
void AddKeyedRows(DialogModelRows& rows, std::span<const KeyedRow> table);
// Rows firstRow.. for keys firstIndex.. of a group whose defaults the dialog leaves empty.
void AddEmptyDefaultRows(std::vector<DialogFunctionRow>& rows, int firstRow, std::span<const char* const> captions,
                         const AssignmentKeyGroup& group, int firstIndex, PickListKind list);
// Rows that continue across the groups in turn, each key with its group's default.
void AddGroupRows(DialogModelRows& rows, std::span<const char* const> captions, std::span<const GroupList> groups);
void AddSliders(DialogModelRows& rows, std::span<const DialogSliderRow> sliders);

// The GF-45's and GF-46's rows: the eight modes.
void RadioDialogRows(DialogModelRows& rows, const DialogRowContext& context);

// Captions that several models share.
extern const char* const kModeCaptions[8];
extern const char* const kButtonCaptions[8];

}  // namespace drav
