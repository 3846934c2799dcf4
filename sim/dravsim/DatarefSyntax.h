// The dataref words of the scenario language: a target `PATH`, `PATH[i]` or `PATH[i..j]`, and a
// declared type `int`, `float`, `double`, `int[N]` or `float[N]`.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/SimHost.h"

namespace dravsim {

struct DatarefTarget {
  std::string path;
  int first = -1;  // -1: no index given (the scalar, or every element of an array)
  int last = -1;

  bool HasIndex() const { return first >= 0; }
  bool IsRange() const { return last != first; }
};

// Empty (with `error` set) when the text is not one of the three forms.
std::optional<DatarefTarget> ParseDatarefTarget(std::string_view text, std::string& error);

// Empty when the text names no type the language knows.
std::optional<sim::DatarefDecl> ParseDatarefType(const std::string& path, std::string_view text);

// The target as a scenario writes it, for messages.
std::string DescribeTarget(const DatarefTarget& target);

}  // namespace dravsim
