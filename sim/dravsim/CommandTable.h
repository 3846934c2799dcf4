// The scenario language's commands: one row per command word (or "expect WORD"), so that a new
// command is a new row and a handler.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dravsim/ScenarioContext.h"
#include "dravsim/ScenarioLexer.h"

namespace dravsim {

// One command line, as its handler sees it.
struct Invocation {
  std::string_view command;  // the row's name, e.g. "frame" or "expect dataref"
  std::string_view usage;
  std::span<const Word> args;       // the words after the command's name
  std::vector<std::string> block;   // the raw lines between a block command and its `end`
};

using CommandHandler = void (*)(ScenarioContext& ctx, const Invocation& call);

struct CommandRow {
  std::string_view name;
  std::string_view usage;  // shown when the words do not fit
  int minArgs;
  int maxArgs;             // -1: no limit
  bool opensBlock;         // lines up to `end` belong to the command
  CommandHandler handler;
};

// The row a line's words name; `nameWords` tells how many words the name took (1, or 2 for
// "expect WORD"). Null for an unknown command.
const CommandRow* FindCommand(std::span<const Word> words, std::size_t& nameWords);

std::span<const CommandRow> AllCommands();

}  // namespace dravsim
