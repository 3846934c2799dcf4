#include "dravsim/CommandArgs.h"

#include "dravsim/ScenarioNumbers.h"

namespace dravsim {
namespace {

void BadNumber(ScenarioContext& ctx, const Invocation& call, const Word& word,
               std::string_view expected) {
  CommandError(ctx, call, "bad number " + Quoted(word.text) + " (" + std::string(expected) + ")");
}

}  // namespace

bool IsKeyword(const Word& word, std::string_view text) {
  return !word.quoted && word.text == text;
}

std::optional<long long> IntegerArg(ScenarioContext& ctx, const Invocation& call,
                                    std::size_t index, long long low, long long high) {
  const Word& word = call.args[index];
  const auto value = word.quoted ? std::nullopt : ParseIntegerIn(word.text, low, high);
  if (!value) {
    BadNumber(ctx, call, word,
              "a whole number from " + std::to_string(low) + " to " + std::to_string(high));
  }
  return value;
}

std::optional<double> RealArg(ScenarioContext& ctx, const Invocation& call, std::size_t index) {
  const Word& word = call.args[index];
  const auto value = word.quoted ? std::nullopt : ParseReal(word.text);
  if (!value) BadNumber(ctx, call, word, "a number");
  return value;
}

void UsageError(ScenarioContext& ctx, const Invocation& call) {
  CommandError(ctx, call, "usage: " + std::string(call.usage));
}

void CommandError(ScenarioContext& ctx, const Invocation& call, std::string_view reason) {
  ctx.Error(std::string(call.command) + ": " + std::string(reason));
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string QuotedList(const std::vector<std::string>& items) {
  std::string text = "[";
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) text += ", ";
    text += Quoted(items[i]);
  }
  return text + "]";
}

}  // namespace dravsim
