// Runs one scenario against the current simulator (SimHost::Current()), printing FAIL and ERROR
// lines (and, unless quiet, echo lines and a trace of each command) to the given stream. The
// caller gives the simulator a fresh state first and prints the closing line.
#pragma once

#include <ostream>
#include <string_view>

#include "dravsim/LineSource.h"
#include "dravsim/ScenarioContext.h"

namespace dravsim {

class ScenarioRunner {
 public:
  ScenarioRunner(std::ostream& out, RunnerOptions options);

  // `name` is the FILE of FILE:LINE in the messages. A plug-in that the scenario left started or
  // enabled is disabled and stopped at the end, as the simulator does when it quits, so that the
  // next scenario finds the plug-in's state clean.
  ScenarioResult Run(std::string_view text, std::string_view name);
  ScenarioResult Run(LineSource& source, std::string_view name);

 private:
  void RunLine(ScenarioContext& ctx, LineSource& source, const std::string& line);
  void ShutDownPlugin(ScenarioContext& ctx);

  std::ostream& out_;
  RunnerOptions options_;
};

}  // namespace dravsim
