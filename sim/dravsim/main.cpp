// dravsim: runs the Drav plug-in inside the simulator host, driven by scenario files, the built-in
// demo or the terminal.
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "dravsim/DravPlugin.h"
#include "dravsim/DravsimApp.h"
#include "plugin/PluginContext.h"

int main(int argc, char** argv) {
  const std::vector<std::string_view> args(argv + 1, argv + argc);
  std::string error;
  const auto options = dravsim::ParseCommandLine(args, error);
  if (!options) {
    std::cerr << "dravsim: " << error << '\n' << dravsim::kDravsimUsage;
    return 2;
  }
  // A locale that is not installed is an error, not a quiet run in "C": a test that asks for a
  // decimal comma must not pass without one.
  if (options->locale && std::setlocale(LC_ALL, options->locale->c_str()) == nullptr) {
    std::cerr << "dravsim: the locale " << *options->locale << " is not installed (scripts/deps.sh generates it)\n";
    return 2;
  }
  if (options->help) {
    std::cout << dravsim::kDravsimUsage;
    return 0;
  }
  // Colour only for a person at a terminal that wants it (NO_COLOR is the common opt-out).
  const bool colour = isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr;
  const dravsim::DravsimIo io{std::cin, std::cout, isatty(STDIN_FILENO) != 0, colour};
  // A scenario may look at the plug-in (is its dialog open?) before XPluginStart or after
  // XPluginStop, when the simulator holds no plug-in context: it then sees this empty one, as a
  // plug-in that is not running would show. The plug-in's own context is made inside it at start.
  const drav::PluginContext notRunning;
  return dravsim::RunDravsim(*options, io, dravsim::DravPluginEntryPoints());
}
