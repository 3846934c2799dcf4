// A DRAV.INI value that binds a control to a simulator command or dataref by name instead of to a
// catalogue function. Such a value starts with a lower-case keyword and a blank ("cmd ...",
// "set ...", "step ..."), which no catalogue name can: those are upper-case words. Reading one
// never touches the simulator; the names are looked up when the function object is built.
#pragma once

#include <cstdint>
#include <string>

namespace drav {

enum class CustomAction : std::uint8_t {
  kNone,           // a light or a display alone
  kCommandOnce,    // cmd A: A once per press, or when a switch turns on
  kCommandPair,    // cmd A B: A to turn on, B to turn off (a push button alternates)
  kCommandHold,    // hold A: A held down while pressed or switched on
  kSetDataref,     // set D ON [OFF]: ON while pressed or switched on, OFF after
  kToggleDataref,  // toggle D ON [OFF]: a press alternates ON and OFF; a switch follows its position
  kStepDataref,    // step D DELTA [MIN MAX] [wrap]: each detent adds DELTA
  kTurnCommands,   // turn UP DOWN: one command per detent each way
};

enum class CustomCompare : std::uint8_t { kEqual, kNotEqual, kLess, kGreater };

// A dataref name and, for one element of an array dataref, its index ("path[3]").
struct CustomDatarefName {
  std::string path;
  std::int32_t index = -1;  // -1: the dataref is used as a scalar
};

// How a display shows a number: printf's "%[0][width][.decimals]f" (or "d", no decimals).
struct CustomDisplayFormat {
  std::int32_t width = 0;
  std::int32_t decimals = 0;
  bool zeroPadded = false;
};

inline constexpr std::int32_t kMaxCustomDisplayWidth = 9;  // the widest display has nine digits
inline constexpr std::int32_t kMaxCustomDecimals = 6;
inline constexpr std::int32_t kMaxCustomArrayIndex = 4095;

struct CustomBindingSpec {
  CustomAction action = CustomAction::kNone;
  std::string commands[2];     // cmd (on, off), hold, turn (up, down)
  CustomDatarefName dataref;   // set, toggle, step
  float onValue = 1.0f;        // set, toggle
  float offValue = 0.0f;
  float delta = 0.0f;          // step
  bool limited = false;        // step: kept within minimum..maximum
  float minimum = 0.0f;
  float maximum = 0.0f;
  bool wrap = false;           // step: past one limit continues at the other
  bool hasLight = false;       // lit D OP V
  CustomDatarefName light;
  CustomCompare compare = CustomCompare::kEqual;
  float lightValue = 0.0f;
  bool hasShow = false;        // show D [FORMAT]
  CustomDatarefName shown;
  CustomDisplayFormat format;

  // A push button, toggle or light acts through a SwitchFunction; an encoder or a display through
  // an avionic function.
  bool IsValueControl() const {
    return action == CustomAction::kStepDataref || action == CustomAction::kTurnCommands || hasShow;
  }
};

// True when the value is written in the custom syntax (it starts with one of its keywords and a
// blank), whether or not the rest of it is correct: such a value is never a catalogue name.
bool IsCustomBindingValue(const char* value);

// Parses a value in the custom syntax; false (with *out unspecified) for anything malformed,
// including a value that is not in the custom syntax at all.
bool ParseCustomBinding(const char* value, CustomBindingSpec* out);

}  // namespace drav
