// What the Assign Functions dialog shows for each model, from the model's descriptor
// (modules/ModelDialogRows.h), and the fixed lists and slider positions it offers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "modules/ModelDialogRows.h"

namespace drav {

DialogRowContext CurrentDialogRowContext();

DialogModelRows RowsForModel(std::uint32_t moduleType, const DialogRowContext& context);

// The items of a fixed list ("AILERON_TRIM;ELEV_TRIM;..."); "" for the kinds that are built.
const char* FixedListText(PickListKind kind);

// The slider position for a stored value: percent sliders read the number times 100, truncated
// towards zero; the others read a whole number, pulled into the range when asked to.
int SliderValue(const DialogSliderRow& row, const char* storedValue);
bool SliderValueShown(const DialogSliderRow& row, int value);

}  // namespace drav
