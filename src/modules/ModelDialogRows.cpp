#include "modules/ModelDialogRows.h"

#include "modules/GF_Abstract_Module.h"

namespace drav {

const char* const kModeCaptions[8] = {"Mode 1 (Initial)", "Mode 2", "Mode 3", "Mode 4",
                                      "Mode 5",           "Mode 6", "Mode 7", "Mode 8"};
const char* const kButtonCaptions[8] = {"Button 1", "Button 2", "Button 3", "Button 4",
                                        "Button 5", "Button 6", "Button 7", "Button 8"};

namespace {

DialogFunctionRow MakeRow(int row, const char* caption, const AssignmentKeyGroup& group, int index,
                          PickListKind list) {
  return {row, caption, KeyName(group, index), KeyDefault(group, index), list};
}

}  // namespace

void AddKeyedRows(DialogModelRows& rows, std::span<const KeyedRow> table) {
  int row = 0;
  for (const KeyedRow& keyed : table) {
    rows.functions.push_back(MakeRow(row++, keyed.caption, *keyed.group, keyed.index, keyed.list));
  }
}

void AddEmptyDefaultRows(std::vector<DialogFunctionRow>& rows, int firstRow, std::span<const char* const> captions,
                         const AssignmentKeyGroup& group, int firstIndex, PickListKind list) {
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const int index = firstIndex + static_cast<int>(i);
    rows.push_back({firstRow + static_cast<int>(i), captions[i], KeyName(group, index), "", list});
  }
}

void AddGroupRows(DialogModelRows& rows, std::span<const char* const> captions, std::span<const GroupList> groups) {
  std::size_t caption = 0;
  for (const auto& [group, list] : groups) {
    for (int index = 0; index < KeyCount(*group) && caption < captions.size(); ++index, ++caption) {
      rows.functions.push_back(MakeRow(static_cast<int>(caption), captions[caption], *group, index, list));
    }
  }
}

void RadioDialogRows(DialogModelRows& rows, const DialogRowContext& /*context*/) {
  AddEmptyDefaultRows(rows.functions, 0, kModeCaptions, kRadioModeKeys, 0, PickListKind::kAvionic);
}

void AddSliders(DialogModelRows& rows, std::span<const DialogSliderRow> sliders) {
  rows.sliders.assign(sliders.begin(), sliders.end());
}

}  // namespace drav
