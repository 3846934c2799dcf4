// The avionic functions: what each display and encoder function shows and adjusts. One row per id,
// and one shared AvionicFunction object per row.
#pragma once

#include <cstdint>
#include <span>

#include "functions/FunctionCatalogue.h"

namespace drav {

struct AvionicFunctionRow {
  FunctionId id;
  const char* tag;        // at most 9 characters
  std::int32_t format;    // display format; above 9 the object shows no text
  const char* path;       // "" for a value that is not a dataref
  const char* x737Path;   // used instead while X737Mode is set; nullptr = the same path
  // The on/off companion dataref (on 1, off 0, int, read equal), without and with X737Mode;
  // nullptr leaves the object's companion as it was.
  const char* auxPath;
  const char* auxX737Path;
};

std::span<const AvionicFunctionRow> AvionicFunctionRows();

// The position of id's row in AvionicFunctionRows(), or -1 when id is not an avionic function.
std::int32_t AvionicFunctionRowIndex(FunctionId id);

inline const AvionicFunctionRow* FindAvionicFunctionRow(FunctionId id) {
  const std::int32_t index = AvionicFunctionRowIndex(id);
  return index < 0 ? nullptr : &AvionicFunctionRows()[static_cast<std::size_t>(index)];
}

}  // namespace drav
