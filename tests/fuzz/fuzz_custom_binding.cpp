// A custom binding value on any text (a DRAV.INI value the pilot typed): reading it never crashes,
// and what it accepts is a binding the rest of the plug-in can build without further checks. The
// dialog's row item made from it never splits the row's list.
#include <cmath>
#include <cstdint>
#include <string>

#include "FuzzCheck.h"
#include "plugin/PluginContext.h"
#include "config/AssignmentValues.h"
#include "functions/CustomBindingSyntax.h"
#include "functions/CustomBindings.h"
#include "ui/CustomRowItem.h"

namespace {

bool IsName(const std::string& name) {
  if (name.empty()) return false;
  for (char c : name) {
    if (c <= ' ' || c > '~' || c == '[' || c == ']' || c == ';') return false;
  }
  return true;
}

void CheckDataref(const drav::CustomDatarefName& name) {
  DRAV_FUZZ_CHECK(IsName(name.path));
  DRAV_FUZZ_CHECK(name.index >= -1 && name.index <= drav::kMaxCustomArrayIndex);
}

void CheckAccepted(const drav::CustomBindingSpec& spec) {
  using drav::CustomAction;
  const CustomAction action = spec.action;
  const bool commands = action == CustomAction::kCommandOnce || action == CustomAction::kCommandPair ||
                        action == CustomAction::kCommandHold || action == CustomAction::kTurnCommands;
  const bool twoCommands = action == CustomAction::kCommandPair || action == CustomAction::kTurnCommands;
  DRAV_FUZZ_CHECK(!commands || IsName(spec.commands[0]));
  DRAV_FUZZ_CHECK(twoCommands ? IsName(spec.commands[1]) : spec.commands[1].empty());
  const bool dataref = action == CustomAction::kSetDataref || action == CustomAction::kToggleDataref ||
                       action == CustomAction::kStepDataref;
  if (dataref) CheckDataref(spec.dataref);
  if (spec.hasLight) CheckDataref(spec.light);
  if (spec.hasShow) CheckDataref(spec.shown);
  for (float value : {spec.onValue, spec.offValue, spec.delta, spec.minimum, spec.maximum, spec.lightValue}) {
    DRAV_FUZZ_CHECK(std::isfinite(value));
  }
  DRAV_FUZZ_CHECK(!spec.limited || spec.minimum <= spec.maximum);
  DRAV_FUZZ_CHECK(!spec.wrap || spec.limited);
  DRAV_FUZZ_CHECK(spec.format.width >= 0 && spec.format.width <= drav::kMaxCustomDisplayWidth);
  DRAV_FUZZ_CHECK(spec.format.decimals >= 0 && spec.format.decimals <= drav::kMaxCustomDecimals);
  // A switch's parts and a knob's never come together.
  const bool switchAction = action == CustomAction::kCommandOnce || action == CustomAction::kCommandPair ||
                            action == CustomAction::kCommandHold || action == CustomAction::kSetDataref ||
                            action == CustomAction::kToggleDataref;
  DRAV_FUZZ_CHECK(!(spec.IsValueControl() && (switchAction || spec.hasLight)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const drav::PluginContext context;  // the log, settings and function objects of a running plug-in
  // What the INI reader can hand over: the text up to its first NUL.
  const std::string text(std::string(reinterpret_cast<const char*>(data), size).c_str());
  drav::CustomBindingSpec spec;
  const bool accepted = drav::ParseCustomBinding(text.c_str(), &spec);
  DRAV_FUZZ_CHECK(!accepted || drav::IsCustomBindingValue(text.c_str()));
  if (accepted) CheckAccepted(spec);
  // Blanks around the value change nothing.
  drav::CustomBindingSpec padded;
  DRAV_FUZZ_CHECK(drav::ParseCustomBinding((" \t" + text + " ").c_str(), &padded) == accepted);

  // Resolution: a custom value gets a custom id or nothing, and never a catalogue function.
  const drav::ResolvedAssignment resolved =
      drav::ResolveAssignment(text.c_str(), drav::AssignmentTarget::kRadioTested, 0);
  if (drav::IsCustomBindingValue(text.c_str())) {
    DRAV_FUZZ_CHECK(resolved.functionId == drav::kNada || drav::IsCustomFunction(resolved.functionId));
    DRAV_FUZZ_CHECK(resolved.target.unit == -1 && resolved.target.kind == -1);
    if (accepted && resolved.functionId != drav::kNada) {
      DRAV_FUZZ_CHECK(text == drav::CustomBindingText(resolved.functionId));
    }
  }

  const std::string item = drav::CustomRowItem(text, static_cast<int>(size % 400));
  DRAV_FUZZ_CHECK(drav::IsCustomRowItem(item));
  DRAV_FUZZ_CHECK(item.find(';') == std::string::npos);
  return 0;
}
