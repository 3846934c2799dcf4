// Helpers that turn a command's words into values, reporting an ERROR for the line when a word
// does not fit.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dravsim/CommandTable.h"

namespace dravsim {

// A bare (unquoted) word with exactly this text.
bool IsKeyword(const Word& word, std::string_view text);

std::optional<long long> IntegerArg(ScenarioContext& ctx, const Invocation& call,
                                    std::size_t index, long long low, long long high);
std::optional<double> RealArg(ScenarioContext& ctx, const Invocation& call, std::size_t index);

// "<command>: usage: <usage>"
void UsageError(ScenarioContext& ctx, const Invocation& call);
// "<command>: <reason>"
void CommandError(ScenarioContext& ctx, const Invocation& call, std::string_view reason);

// Texts for FAIL lines.
std::string Quoted(std::string_view text);
std::string QuotedList(const std::vector<std::string>& items);  // ["a", "b"]

}  // namespace dravsim
