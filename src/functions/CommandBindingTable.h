// The switch functions built from the SDK's command buttons and key strokes.
#pragma once

#include <cstdint>
#include <span>

#include "functions/FunctionCatalogue.h"

namespace drav {

enum class CommandBuild : std::int32_t {
  kButton,      // BindKeyOrButton, command button `code`
  kKeyStroke,   // BindKeyOrButton, key stroke `code`
  kButtonPair,  // BindKeyOrButtonPair, command buttons: `code` for state 0, `codeForOn` for 1
  kHeldButton,  // BindHeldButton: `code` is held down while the state is 1
  // BindSwitch on lightPath (on 1, off 0), then key stroke `code`: the key acts, the dataref lights.
  kKeyStrokeWithLight,
};

// One row per id, or per range of ids whose code rises by one per id.
struct CommandBindingRow {
  FunctionId firstId;
  FunctionId lastId;
  CommandBuild build;
  std::int32_t code;
  std::int32_t codeForOn;     // kButtonPair only
  std::int32_t actOnRelease;  // 1: a release executes again with state 0
  const char* lightPath;      // kKeyStrokeWithLight only
};

std::span<const CommandBindingRow> CommandBindingRows();

// The row whose range holds id, or nullptr.
const CommandBindingRow* FindCommandBinding(FunctionId id);

}  // namespace drav
