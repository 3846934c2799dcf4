// The scenario language's front end on any text: every line is split into words, its command is
// looked up in the command table, and every word goes through the number, hex and dataref parsers
// the handlers use. Running the commands would start a simulator per input; the parsers are where
// arbitrary text meets the interpreter.
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "FuzzCheck.h"
#include "dravsim/CommandTable.h"
#include "dravsim/DatarefSyntax.h"
#include "dravsim/LineSource.h"
#include "dravsim/ScenarioLexer.h"
#include "dravsim/ScenarioNumbers.h"

namespace {

using namespace dravsim;

void ParseEveryWord(std::span<const Word> words) {
  for (const Word& word : words) {
    ParseInteger(word.text);
    ParseReal(word.text);
    ParseIntegerIn(word.text, -255, 255);
    std::string error;
    if (auto target = ParseDatarefTarget(word.text, error)) {
      DRAV_FUZZ_CHECK(!target->HasIndex() || target->first <= target->last);
      DescribeTarget(*target);
    } else {
      DRAV_FUZZ_CHECK(!error.empty());  // a refusal always says why
    }
    ParseDatarefType("sim/fuzz", word.text);
  }
  if (auto bytes = ParseHexBytes(words)) DRAV_FUZZ_CHECK(bytes->size() == words.size());
}

void ParseLine(const std::string& line) {
  const LexedLine lexed = LexLine(line);
  DRAV_FUZZ_CHECK(lexed.codeLength <= line.size());
  if (!lexed.Ok()) return;
  ParseEveryWord(lexed.words);
  std::size_t nameWords = 0;
  const CommandRow* row = FindCommand(lexed.words, nameWords);
  if (row == nullptr) return;
  DRAV_FUZZ_CHECK(nameWords >= 1 && nameWords <= lexed.words.size());
  DRAV_FUZZ_CHECK(row->maxArgs < 0 || row->minArgs <= row->maxArgs);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  TextLineSource source(text);
  std::string line;
  while (source.Next(line, LineKind::Command)) ParseLine(line);
  return 0;
}
