// Controls bound to a simulator command or dataref named in DRAV.INI itself (CustomBindingSyntax.h)
// rather than to a catalogue function. Each distinct value gets a function id of its own above the
// catalogue's, so that it travels through the modules like any other id; its names are looked up
// when the function object is built, and the per-frame paths only use the handles found then.
// Main thread only.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <unordered_map>

#include "functions/CustomBindingSyntax.h"
#include "functions/FunctionCatalogue.h"
#include "functions/FunctionObjects.h"

namespace drav {

inline constexpr FunctionId kFirstCustomFunction = 1000;
// Distinct custom values per session; a file with more has stopped being a cockpit.
inline constexpr std::int32_t kMaxCustomBindings = 1024;

inline constexpr bool IsCustomFunction(FunctionId id) {
  return id >= kFirstCustomFunction && id < kFirstCustomFunction + kMaxCustomBindings;
}

// A dataref found once: the handle, the element (-1 for a scalar) and whether it is read as float.
struct CustomDatarefHandle {
  XPLMDataRef dataref = nullptr;
  std::int32_t index = -1;
  bool isFloat = false;
  bool isDouble = false;  // a scalar the simulator offers as a double only
};

// What an encoder or a display bound to a custom value uses, resolved when it is built.
struct CustomValueBinding {
  CustomBindingSpec spec;
  CustomDatarefHandle stepped;  // step: the value the detents change
  CustomDatarefHandle shown;    // show, else the stepped value
  XPLMCommandRef up = nullptr;  // turn
  XPLMCommandRef down = nullptr;
};

struct CustomBindingEntry {
  std::string text;
  CustomValueBinding value;  // its spec is the parsed value, for switches too
  AvionicFunction avionic;   // the shared object of an encoder or display bound to the value
};

// The values met since the plug-in started, by id (the entry at index id - kFirstCustomFunction).
// Entries are only ever appended: a module keeps pointers to their avionic objects, which a deque
// leaves where they are.
struct CustomBindingTable {
  std::deque<CustomBindingEntry> entries;
  std::unordered_map<std::string, FunctionId> ids;
};

// The id of a value in the custom syntax: the same text always gets the same id. kNada for a
// malformed value, and for a new one once kMaxCustomBindings are taken.
FunctionId InternCustomBinding(const char* value);
// The value an id was made from; "" for an id that is not one.
const char* CustomBindingText(FunctionId id);
// The parsed value of an id, or nullptr.
const CustomBindingSpec* CustomBindingOf(FunctionId id);

// Calls report(what, name) for every name of the value the simulator does not have ("command" or
// "dataref"); returns how many.
using MissingNameReport = void (*)(void* context, const char* what, const char* name);
int ReportMissingCustomNames(FunctionId id, MissingNameReport report, void* context);

// The factory's part for custom ids: a value control fills *avionicOut with the id's shared
// object (nullptr where the control wants a switch, or the value is a switch's); a switch control
// gets its record built.
void BuildCustomFunction(FunctionId id, AvionicFunction** avionicOut, SwitchFunction& record);
// forceOn: a selector reporting its position (whatever its number) is to be on.
void ExecuteCustomBinding(SwitchFunction& record, std::int32_t action, std::int32_t value, std::int32_t forceOn);
void RefreshCustomBinding(SwitchFunction& record);
// Detents of an encoder: the outer knob of a double knob moves ten inner detents' worth.
void AdjustCustomValue(AvionicFunction& function, std::int32_t outerSteps, std::int32_t innerSteps);
void FormatCustomValue(AvionicFunction& function);

}  // namespace drav
