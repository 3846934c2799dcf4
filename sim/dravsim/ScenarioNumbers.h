// Number words of the scenario language: decimal, 0x hex and 0b binary integers (optionally
// negative), decimal floats written with '.', and HEX lists of two-digit byte words.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "dravsim/ScenarioLexer.h"

namespace dravsim {

std::optional<long long> ParseInteger(std::string_view text);
// Any number form, integer or float.
std::optional<double> ParseReal(std::string_view text);
// An integer within [low, high].
std::optional<long long> ParseIntegerIn(std::string_view text, long long low, long long high);

// Byte values written as two-digit hex words ("02 ff 1A"); empty when a word is anything else.
std::optional<std::vector<std::uint8_t>> ParseHexBytes(std::span<const Word> words);

}  // namespace dravsim
