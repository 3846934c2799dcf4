// The single-binding switch functions: for each id, the one dataref (or array range) it switches,
// the values written for on and off, and how a read value lights it.
#pragma once

#include <cstdint>
#include <span>

#include "functions/FunctionCatalogue.h"

namespace drav {

// How a read value becomes the light's state (the binding stores it as a float).
enum ReadRule : std::int32_t {
  kReadEqual = 0,    // value == on value
  kReadGreater = 1,  // value > on value
  kReadAtLeast = 2,  // value >= on value
};

// Everything BindSwitch (or BindSwitchFloat) needs besides the record and the id. The integer
// builder gets the values truncated; every row that uses it holds whole numbers.
struct SwitchBinding {
  const char* path;
  std::int32_t valueType;  // DatarefValueType
  std::int32_t offset;     // first array element; 0 for scalars
  std::int32_t count;      // array elements; 1 for scalars
  float onValue;
  float offValue;
  std::int32_t compareMode;  // ReadRule
  bool floatValues = false;  // built with BindSwitchFloat: the values have a fractional part
};

// Ids listed together share one definition; an unused second id is 0.
struct SwitchBindingRow {
  FunctionId ids[2];
  SwitchBinding binding;
};

std::span<const SwitchBindingRow> SwitchBindingRows();

// The definition of id, or nullptr when the table has none.
const SwitchBinding* FindSwitchBinding(FunctionId id);

}  // namespace drav
