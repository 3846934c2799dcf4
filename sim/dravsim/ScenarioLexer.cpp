#include "dravsim/ScenarioLexer.h"

namespace dravsim {
namespace {

bool EndsWord(char c) { return IsBlank(c) || c == '#'; }

// Reads the quoted word that starts at line[pos]; pos ends just after the closing quote.
bool LexQuoted(std::string_view line, std::size_t& pos, Word& word, std::string& error) {
  word.quoted = true;
  for (++pos; pos < line.size(); ++pos) {
    const char c = line[pos];
    if (c == '"') {
      ++pos;
      if (pos < line.size() && !EndsWord(line[pos])) {
        error = "text right after a closing quote";
        return false;
      }
      return true;
    }
    // Only \" and \\ are escapes; any other backslash is kept, so paths read as written.
    if (c == '\\' && pos + 1 < line.size() && (line[pos + 1] == '"' || line[pos + 1] == '\\')) {
      ++pos;
    }
    word.text += line[pos];
  }
  error = "unterminated quote";
  return false;
}

bool LexBare(std::string_view line, std::size_t& pos, Word& word, std::string& error) {
  const std::size_t start = pos;
  while (pos < line.size() && !EndsWord(line[pos])) {
    if (line[pos] == '"') {
      error = "a quote inside the word \"" + std::string(line.substr(start, pos - start)) + "\"";
      return false;
    }
    ++pos;
  }
  word.text = std::string(line.substr(start, pos - start));
  return true;
}

}  // namespace

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

LexedLine LexLine(std::string_view line) {
  LexedLine result;
  result.codeLength = line.size();
  std::size_t pos = 0;
  while (pos < line.size()) {
    const char c = line[pos];
    if (IsBlank(c)) {
      ++pos;
      continue;
    }
    if (c == '#') {
      result.codeLength = pos;
      break;
    }
    Word word;
    const bool ok = c == '"' ? LexQuoted(line, pos, word, result.error)
                             : LexBare(line, pos, word, result.error);
    if (!ok) {
      result.words.clear();
      return result;
    }
    result.words.push_back(std::move(word));
  }
  return result;
}

}  // namespace dravsim
