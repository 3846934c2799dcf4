#include "dravsim/ScenarioContext.h"

#include <chrono>
#include <memory>
#include <utility>


namespace dravsim {

ScenarioResult& ScenarioResult::operator+=(const ScenarioResult& other) {
  passed += other.passed;
  failed += other.failed;
  errors += other.errors;
  skipped += other.skipped;
  return *this;
}

ScenarioContext::ScenarioContext(sim::SimHost& simHost, std::ostream& output, std::string name,
                                 const RunnerOptions& runnerOptions)
    : host(simHost), out(output), options(runnerOptions), name_(std::move(name)) {
  if (options.platform) {
    hardware_ = MakeForeignPanelHardware();
  } else {
    hardware_ = options.uhid ? MakeUhidPanelHardware(hardwareError) : MakeVirtualPanelHardware();
  }
  hid = hardware_.get();
}

void ScenarioContext::BeginCommand(int line) {
  line_ = line;
  note_.clear();
  commandPrinted_ = false;
}

void ScenarioContext::EndCommand(std::string_view commandText) {
  if (options.quiet || commandPrinted_) return;
  out << "  " << commandText;
  if (!note_.empty()) out << "  -> " << note_;
  out << '\n';
}

void ScenarioContext::Pass() {
  ++result_.passed;
  if (note_.empty()) note_ = "ok";
}

void ScenarioContext::Fail(std::string_view expected, std::string_view found) {
  ++result_.failed;
  commandPrinted_ = true;
  out << name_ << ':' << line_ << ": FAIL " << expected << "; found " << found << '\n';
}

void ScenarioContext::Error(std::string_view reason) {
  ++result_.errors;
  commandPrinted_ = true;
  out << name_ << ':' << line_ << ": ERROR " << reason << '\n';
}

void ScenarioContext::Note(std::string text) {
  if (!note_.empty()) note_ += "; ";
  note_ += std::move(text);
}

void ScenarioContext::Echo(std::string_view text) {
  commandPrinted_ = true;
  if (!options.quiet) out << text << '\n';
}

void ScenarioContext::Skip(std::string_view reason) {
  result_.skipped = 1;
  commandPrinted_ = true;
  out << name_ << ':' << line_ << ": SKIPPED " << reason << '\n';
}

void ScenarioContext::Trace(std::string_view text) {
  if (!options.quiet) out << "  " << text << '\n';
}

}  // namespace dravsim
