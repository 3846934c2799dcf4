// What every command handler works with: the simulator, the output, where in the scenario we are,
// the counts so far, and the plug-in's state as the scenario has driven it.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "dravsim/PanelBoard.h"
#include "dravsim/PanelHardware.h"
#include "host/SimHost.h"

namespace dravsim {

struct ScenarioResult {
  int passed = 0;  // expect lines that held
  int failed = 0;  // expect lines that did not
  int errors = 0;  // commands that could not be run
  int skipped = 0;  // scenarios left off because the panels cannot do what they ask

  int Failures() const { return failed + errors; }
  ScenarioResult& operator+=(const ScenarioResult& other);
};

struct RunnerOptions {
  bool quiet = false;  // print only failures and errors (and, in the caller, the closing line)
  sim::PluginEntryPoints plugin;  // all null: no plug-in, the plug-in commands are errors
  bool colour = false;  // `show` colours lights and digits with terminal escape codes
  bool uhid = false;    // the panels are uhid devices and the plug-in uses the platform's backend
  bool platform = false;  // the plug-in uses the platform's backend on devices made elsewhere
};

// The plug-in's lifecycle as the scenario drove it; the runner uses it to refuse calls that the
// simulator would never make and to shut a running plug-in down at the end.
struct PluginState {
  bool started = false;
  bool enabled = false;
};

class ScenarioContext {
 public:
  ScenarioContext(sim::SimHost& host, std::ostream& out, std::string name,
                  const RunnerOptions& options);

  sim::SimHost& host;
  std::ostream& out;
  const RunnerOptions& options;
  PluginState plugin;
  // The scenario's own panels, made when the context is made (before the plug-in can start): a
  // fresh virtual backend installed in the device layer, or uhid devices. Null when the uhid
  // panels cannot be had (hardwareError says why).
  PanelHardware* hid = nullptr;
  std::string hardwareError;
  PanelBoard panels;
  // Runs one more line as a command of the current one (a `repeat` block's lines), set by the runner.
  std::function<void(const std::string&)> runNestedLine;

  const ScenarioResult& Result() const { return result_; }
  const std::string& Name() const { return name_; }
  int Line() const { return line_; }

  // Per command: the runner opens it with the line number and closes it with the command's text,
  // which is traced unless the command reported a failure or error or printed its own output.
  void BeginCommand(int line);
  void EndCommand(std::string_view commandText);

  void Pass();
  void Fail(std::string_view expected, std::string_view found);
  void Error(std::string_view reason);
  void Note(std::string text);      // added to the command's trace line
  void Echo(std::string_view text); // printed unless quiet; replaces the trace line
  void Trace(std::string_view text);  // a line outside any command, unless quiet
  // The rest of the scenario is left off, with the reason printed: the panels cannot do what the
  // current command asks of them.
  void Skip(std::string_view reason);
  bool Skipped() const { return result_.skipped != 0; }

 private:
  std::unique_ptr<PanelHardware> hardware_;
  std::string name_;
  int line_ = 0;
  ScenarioResult result_;
  std::string note_;
  bool commandPrinted_ = false;
};

}  // namespace dravsim
