// dravsim as a program: its command line, and the runs of scenario files, the built-in demo or
// the terminal, each in a fresh simulator, summed up in one closing line.
#pragma once

#include <filesystem>
#include <istream>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dravsim/ScenarioContext.h"
#include "host/SimHost.h"

namespace dravsim {

struct DravsimOptions {
  bool quiet = false;
  bool interactive = false;
  bool help = false;
  bool uhid = false;  // `--hid uhid`: the panels are uhid devices
  bool platform = false;  // `--hid platform`: the panels are devices another program made
  std::optional<std::filesystem::path> root;  // the X-Plane folder, instead of a temporary one
  std::optional<std::string> locale;          // the process's locale, as a user's X-Plane may run in
  std::vector<std::string> files;             // none: the built-in demo
};

extern const char* const kDravsimUsage;

// The options of argv[1..]; empty, with `error` set, when the words do not fit.
std::optional<DravsimOptions> ParseCommandLine(std::span<const std::string_view> args,
                                               std::string& error);

struct DravsimIo {
  std::istream& in;
  std::ostream& out;
  bool promptForInput;  // interactive mode shows prompts (stdin is a terminal)
  bool colour = false;  // the output is a terminal that takes colour escape codes
};

// Runs what the options ask for and prints the closing line; returns the exit code (0 when no
// expectation failed and no command was in error, else 1).
int RunDravsim(const DravsimOptions& options, const DravsimIo& io,
               const sim::PluginEntryPoints& plugin);

// "N passed, M failed"; errors count as failures.
std::string ClosingLine(const ScenarioResult& result);

}  // namespace dravsim
