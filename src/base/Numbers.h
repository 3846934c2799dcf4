// Numbers as text whatever the process's locale: the simulator, or another plug-in in it, may set
// one with a decimal comma, and the C library's printf and strtod follow it. Displays and DRAV.INI
// always use a decimal point.
#pragma once

#include <cstddef>

namespace drav {

// printf's "%<width>.<precision>f" in the "C" locale: right-aligned in `width` characters with
// blanks, cut like snprintf to size - 1 characters, always terminated. Returns `out`.
const char* FormatFixed(char* out, std::size_t size, double value, int width, int precision);

// The decimal number at the start of `text` as strtod reads it in the "C" locale (blanks and one
// '+' skipped, an exponent taken); 0 when the text starts with no number or one beyond a double.
double ParseLeadingReal(const char* text);

}  // namespace drav
