// Datarefs the functions were written against that X-Plane 12 dropped, made read-only or replaced,
// and what stands in for each there: another dataref, or a command. The choice is made once, when
// a function object is built, from the simulator's version and what it publishes.
#pragma once

#include <cstdint>
#include <span>

namespace drav {

enum class EquivalentDrive : std::int32_t {
  kDataref,         // `path` takes the original's place: read and written with the same values
  kWriteElsewhere,  // the original still lights the function; the writes go to `path`
  kLightOnly,       // the original is an indicator the simulator sets itself: nothing is written
  kPressCommand,    // turning on runs `command` once; turning off leaves the simulator alone
  kToggleCommand,   // `command` flips the mode, so it runs only when the light disagrees with the wish
  kHoldCommand,     // `command` is held down while the function is on
  kStepCommands,    // a value with no dataref left: each knob step runs `command` (up) or `downCommand`
  kInvertedFlag,    // `path` is an on/off flag meaning the opposite of the original: 1 there is 0 here
};

// Matches every on value a row of the function tables gives the original.
inline constexpr float kAnyOnValue = -1.0e9f;

struct SimEquivalent {
  const char* original;
  float originalOn;  // the on value of the table row this replaces, or kAnyOnValue
  EquivalentDrive drive;
  // kDataref, kWriteElsewhere, kInvertedFlag: the dataref used instead. Commands: the dataref that
  // lights the function (null: the original still does).
  const char* path;
  std::int32_t valueType;  // DatarefValueType of `path`
  std::int32_t count;      // elements written (1 for a scalar)
  float lightOn;           // commands: the light's on value in `path` ...
  std::int32_t lightRule;  // ... and its ReadRule
  const char* command;     // the command of the command drives
  const char* downCommand = nullptr;  // kStepCommands: the step down
};

std::span<const SimEquivalent> SimEquivalents();

// The row for the original path used with that on value, or nullptr.
const SimEquivalent* FindSimEquivalent(const char* original, float originalOn);

// The equivalent to use for the original in this simulator, or nullptr to keep the original. From
// X-Plane 12 on the equivalent wins wherever the simulator has it; an older simulator keeps the
// original wherever it has that one and lets a plug-in write it.
const SimEquivalent* ChooseSimEquivalent(const char* original, float originalOn);

// The dataref to read for a value the simulator publishes under a new name: the replacement from
// X-Plane 12 on (when present), otherwise the original.
const char* ChooseDatarefPath(const char* original);

}  // namespace drav
