#include "functions/CustomBindingSyntax.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <vector>

namespace drav {

namespace {

constexpr std::size_t kMaxWords = 16;  // the longest correct value has 9; more is malformed anyway
// Names the simulator accepts are short; a longer word is a pasted paragraph, not a name.
constexpr std::size_t kMaxNameLength = 200;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// At most kMaxWords + 1 words: one more than allowed is enough to refuse the value.
std::vector<std::string_view> SplitWords(std::string_view text) {
  std::vector<std::string_view> words;
  std::size_t i = 0;
  while (i < text.size() && words.size() <= kMaxWords) {
    while (i < text.size() && IsBlank(text[i])) ++i;
    const std::size_t start = i;
    while (i < text.size() && !IsBlank(text[i])) ++i;
    if (i > start) words.push_back(text.substr(start, i - start));
  }
  return words;
}

// A finite decimal number, the whole word ("1", "-0.5", "2e3"); never the locale's comma.
bool ParseNumber(std::string_view word, float* out) {
  if (!word.empty() && word.front() == '+') word.remove_prefix(1);
  float value = 0.0f;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(value)) return false;
  *out = value;
  return true;
}

// Printable, no brackets: commands and dataref paths are words like "sim/lights/beacon_lights_on".
bool IsNameWord(std::string_view word) {
  if (word.empty() || word.size() > kMaxNameLength) return false;
  for (char c : word) {
    if (c <= ' ' || c > '~' || c == '[' || c == ']' || c == '"' || c == ';') return false;
  }
  return true;
}

bool ParseIndex(std::string_view digits, std::int32_t* out) {
  if (digits.empty() || digits.size() > 4) return false;
  std::int32_t index = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (error != std::errc() || end != digits.data() + digits.size() || index < 0 || index > kMaxCustomArrayIndex) {
    return false;
  }
  *out = index;
  return true;
}

// "path" or "path[index]".
bool ParseDatarefName(std::string_view word, CustomDatarefName* out) {
  out->index = -1;
  const std::size_t open = word.find('[');
  if (open == std::string_view::npos) {
    if (!IsNameWord(word)) return false;
    out->path.assign(word);
    return true;
  }
  if (word.back() != ']' || !IsNameWord(word.substr(0, open))) return false;
  if (!ParseIndex(word.substr(open + 1, word.size() - open - 2), &out->index)) return false;
  out->path.assign(word.substr(0, open));
  return true;
}

bool ParseCompare(std::string_view word, CustomCompare* out) {
  struct Operator {
    std::string_view text;
    CustomCompare compare;
  };
  static constexpr Operator kOperators[] = {{"=", CustomCompare::kEqual},
                                            {"==", CustomCompare::kEqual},
                                            {"!=", CustomCompare::kNotEqual},
                                            {"<", CustomCompare::kLess},
                                            {">", CustomCompare::kGreater}};
  for (const Operator& op : kOperators) {
    if (word == op.text) {
      *out = op.compare;
      return true;
    }
  }
  return false;
}

bool ParseWidth(std::string_view* text, std::int32_t* out) {
  std::size_t digits = 0;
  while (digits < text->size() && (*text)[digits] >= '0' && (*text)[digits] <= '9') ++digits;
  if (digits == 0) return true;  // absent: 0
  if (digits > 1) return false;  // nine at most
  *out = (*text)[0] - '0';
  text->remove_prefix(1);
  return true;
}

// "%[0][width][.decimals]f" or "%[0][width]d".
bool ParseFormat(std::string_view word, CustomDisplayFormat* out) {
  if (word.size() < 2 || word.front() != '%') return false;
  word.remove_prefix(1);
  out->zeroPadded = word.front() == '0';
  if (out->zeroPadded) word.remove_prefix(1);
  if (!ParseWidth(&word, &out->width) || out->width > kMaxCustomDisplayWidth || word.empty()) return false;
  out->decimals = 0;
  if (word.front() == '.') {
    word.remove_prefix(1);
    if (word.empty() || word.front() < '0' || word.front() > '9') return false;
    if (!ParseWidth(&word, &out->decimals) || out->decimals > kMaxCustomDecimals) return false;
    return word == "f";
  }
  return word == "f" || word == "d";
}

// ---- clauses -------------------------------------------------------------------------------------

using Words = std::vector<std::string_view>;

// Each clause reads its words from `words[at]` on and advances `at` past them.
struct Cursor {
  const Words& words;
  std::size_t at;
  bool AtEnd() const { return at >= words.size(); }
  std::string_view Peek() const { return AtEnd() ? std::string_view() : words[at]; }
  std::string_view Take() { return AtEnd() ? std::string_view() : words[at++]; }
  // True when the next word is present and no keyword: the optional words of a clause.
  bool HasOperand() const;
};

using ClauseParser = bool (*)(Cursor& cursor, CustomBindingSpec& spec);

bool TakeCommand(Cursor& cursor, std::string* out) {
  const std::string_view word = cursor.Take();
  if (!IsNameWord(word)) return false;
  out->assign(word);
  return true;
}

bool TakeNumber(Cursor& cursor, float* out) { return ParseNumber(cursor.Take(), out); }

bool ParseCommandClause(Cursor& cursor, CustomBindingSpec& spec) {
  if (!TakeCommand(cursor, &spec.commands[0])) return false;
  spec.action = CustomAction::kCommandOnce;
  if (!cursor.HasOperand()) return true;
  spec.action = CustomAction::kCommandPair;
  return TakeCommand(cursor, &spec.commands[1]);
}

bool ParseHoldClause(Cursor& cursor, CustomBindingSpec& spec) {
  spec.action = CustomAction::kCommandHold;
  return TakeCommand(cursor, &spec.commands[0]);
}

bool ParseWrittenDataref(Cursor& cursor, CustomBindingSpec& spec) {
  if (!ParseDatarefName(cursor.Take(), &spec.dataref) || !TakeNumber(cursor, &spec.onValue)) return false;
  spec.offValue = 0.0f;
  return !cursor.HasOperand() || TakeNumber(cursor, &spec.offValue);
}

bool ParseSetClause(Cursor& cursor, CustomBindingSpec& spec) {
  spec.action = CustomAction::kSetDataref;
  return ParseWrittenDataref(cursor, spec);
}

bool ParseToggleClause(Cursor& cursor, CustomBindingSpec& spec) {
  spec.action = CustomAction::kToggleDataref;
  return ParseWrittenDataref(cursor, spec);
}

bool ParseStepClause(Cursor& cursor, CustomBindingSpec& spec) {
  spec.action = CustomAction::kStepDataref;
  if (!ParseDatarefName(cursor.Take(), &spec.dataref) || !TakeNumber(cursor, &spec.delta)) return false;
  if (cursor.HasOperand() && cursor.Peek() != "wrap") {
    spec.limited = true;
    if (!TakeNumber(cursor, &spec.minimum) || !TakeNumber(cursor, &spec.maximum)) return false;
    if (spec.minimum > spec.maximum) return false;
  }
  if (cursor.Peek() == "wrap") {
    cursor.Take();
    spec.wrap = true;
    return spec.limited;  // wrapping needs both ends
  }
  return true;
}

bool ParseTurnClause(Cursor& cursor, CustomBindingSpec& spec) {
  spec.action = CustomAction::kTurnCommands;
  return TakeCommand(cursor, &spec.commands[0]) && TakeCommand(cursor, &spec.commands[1]);
}

bool ParseLitClause(Cursor& cursor, CustomBindingSpec& spec) {
  spec.hasLight = true;
  return ParseDatarefName(cursor.Take(), &spec.light) && ParseCompare(cursor.Take(), &spec.compare) &&
         TakeNumber(cursor, &spec.lightValue);
}

bool ParseShowClause(Cursor& cursor, CustomBindingSpec& spec) {
  spec.hasShow = true;
  if (!ParseDatarefName(cursor.Take(), &spec.shown)) return false;
  return !cursor.HasOperand() || ParseFormat(cursor.Take(), &spec.format);
}

enum class ClauseKind : std::uint8_t { kSwitchAction, kValueAction, kLight, kShow };

struct Clause {
  std::string_view keyword;
  ClauseKind kind;
  ClauseParser parse;
};

constexpr Clause kClauses[] = {
    {"cmd", ClauseKind::kSwitchAction, &ParseCommandClause},
    {"hold", ClauseKind::kSwitchAction, &ParseHoldClause},
    {"set", ClauseKind::kSwitchAction, &ParseSetClause},
    {"toggle", ClauseKind::kSwitchAction, &ParseToggleClause},
    {"step", ClauseKind::kValueAction, &ParseStepClause},
    {"turn", ClauseKind::kValueAction, &ParseTurnClause},
    {"lit", ClauseKind::kLight, &ParseLitClause},
    {"show", ClauseKind::kShow, &ParseShowClause},
};

const Clause* FindClause(std::string_view keyword) {
  for (const Clause& clause : kClauses) {
    if (clause.keyword == keyword) return &clause;
  }
  return nullptr;
}

bool Cursor::HasOperand() const { return !AtEnd() && FindClause(words[at]) == nullptr; }

// Which clauses a value may hold together: one of each kind at most, and a switch's parts (an
// action, a light) never with an encoder's or a display's.
bool ClausesFitTogether(const bool (&seen)[4]) {
  const bool switchParts = seen[static_cast<int>(ClauseKind::kSwitchAction)] || seen[static_cast<int>(ClauseKind::kLight)];
  const bool valueParts = seen[static_cast<int>(ClauseKind::kValueAction)] || seen[static_cast<int>(ClauseKind::kShow)];
  return !(switchParts && valueParts);
}

}  // namespace

bool IsCustomBindingValue(const char* value) {
  if (value == nullptr) return false;
  const std::string_view text(value);
  std::size_t start = 0;
  while (start < text.size() && IsBlank(text[start])) ++start;
  std::size_t end = start;
  while (end < text.size() && !IsBlank(text[end])) ++end;
  return end < text.size() && FindClause(text.substr(start, end - start)) != nullptr;
}

bool ParseCustomBinding(const char* value, CustomBindingSpec* out) {
  if (out == nullptr || !IsCustomBindingValue(value)) return false;
  const Words words = SplitWords(value);
  if (words.size() > kMaxWords) return false;
  *out = CustomBindingSpec{};
  Cursor cursor{words, 0};
  bool seen[4] = {};
  while (!cursor.AtEnd()) {
    const Clause* clause = FindClause(cursor.Take());
    if (clause == nullptr) return false;
    bool& kindSeen = seen[static_cast<int>(clause->kind)];
    if (kindSeen) return false;
    kindSeen = true;
    if (!clause->parse(cursor, *out)) return false;
  }
  return ClausesFitTogether(seen);
}

}  // namespace drav
