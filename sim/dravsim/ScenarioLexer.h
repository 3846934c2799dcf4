// Splits one scenario line into words: blanks separate words, a word in double quotes may hold
// blanks (\" and \\ escape), '#' outside quotes starts a comment.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace dravsim {

// One word of a scenario line. `quoted` tells a quoted word from a bare one: a quoted "12" is a
// text, never a number, and a command word is never quoted.
struct Word {
  std::string text;
  bool quoted = false;
};

struct LexedLine {
  std::vector<Word> words;
  std::size_t codeLength = 0;  // characters before the comment (the whole line when there is none)
  std::string error;           // empty when the line is well formed
  bool Ok() const { return error.empty(); }
};

LexedLine LexLine(std::string_view line);

bool IsBlank(char c);
std::string_view TrimBlanks(std::string_view text);

}  // namespace dravsim
