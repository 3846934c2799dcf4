#include "dravsim/DravsimApp.h"

#include <fstream>
#include <iterator>
#include <sstream>

#include "dravsim/DemoScenario.h"
#include "dravsim/ScenarioFolder.h"
#include "dravsim/ScenarioRunner.h"

namespace dravsim {

const char* const kDravsimUsage =
    "usage: dravsim [--quiet] [--root DIR] [--hid virtual|uhid|platform] [--locale NAME] FILE...\n"
    "           run scenario files, each in a fresh simulator; with uhid (Linux, /dev/uhid) the\n"
    "           panels are kernel HID devices and the plug-in reaches them through hidraw; with\n"
    "           platform the plug-in meets whatever devices the system has (made by another\n"
    "           program, such as a uhid board), and scenarios cannot plug panels of their own\n"
    "       dravsim [--quiet] [--root DIR]\n"
    "           run the built-in demo scenario\n"
    "       dravsim [--quiet] [--root DIR] --interactive\n"
    "           read commands from the terminal, one per line\n"
    "       --locale NAME runs in that locale (LC_ALL), for example de_DE.UTF-8 with its decimal comma\n";

namespace {

constexpr std::string_view kInteractiveName = "stdin";
constexpr std::string_view kDemoName = "demo";

std::optional<std::string> ReadWholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream text;
  text << file.rdbuf();
  if (file.bad()) return std::nullopt;
  return text.str();
}

class Session {
 public:
  Session(const DravsimOptions& options, const DravsimIo& io,
          const sim::PluginEntryPoints& plugin)
      : options_(options),
        io_(io),
        runner_(io.out, RunnerOptions{options.quiet, plugin, io.colour, options.uhid, options.platform}) {}

  template <typename Source>
  void RunInFreshSimulator(std::string_view name, Source& source) {
    ScenarioFolder folder(options_.root);
    if (!folder.Ok()) {
      Error(name, "cannot make an X-Plane folder for the simulator");
      return;
    }
    sim::SimHost::Current().Reset(folder.Path());
    total_ += runner_.Run(source, name);
  }

  void Error(std::string_view name, std::string_view reason) {
    io_.out << name << ": ERROR " << reason << '\n';
    ++total_.errors;
  }

  const ScenarioResult& Total() const { return total_; }

 private:
  const DravsimOptions& options_;
  const DravsimIo& io_;
  ScenarioRunner runner_;
  ScenarioResult total_;
};

}  // namespace

std::optional<DravsimOptions> ParseCommandLine(std::span<const std::string_view> args,
                                               std::string& error) {
  DravsimOptions options;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string_view arg = args[i];
    if (arg == "--quiet") {
      options.quiet = true;
    } else if (arg == "--interactive") {
      options.interactive = true;
    } else if (arg == "--help" || arg == "-h") {
      options.help = true;
    } else if (arg == "--root") {
      if (i + 1 == args.size()) {
        error = "--root needs a folder";
        return std::nullopt;
      }
      options.root = std::filesystem::path(args[++i]);
    } else if (arg == "--hid") {
      const auto known = [](std::string_view kind) { return kind == "virtual" || kind == "uhid" || kind == "platform"; };
      if (i + 1 == args.size() || !known(args[i + 1])) {
        error = "--hid needs virtual, uhid or platform";
        return std::nullopt;
      }
      options.uhid = args[++i] == "uhid";
      options.platform = args[i] == "platform";
    } else if (arg == "--locale") {
      if (i + 1 == args.size()) {
        error = "--locale needs a locale name";
        return std::nullopt;
      }
      options.locale = std::string(args[++i]);
    } else if (arg.size() > 1 && arg.front() == '-') {
      error = "unknown option " + std::string(arg);
      return std::nullopt;
    } else {
      options.files.emplace_back(arg);
    }
  }
  if (options.interactive && !options.files.empty()) {
    error = "--interactive reads the terminal, not files";
    return std::nullopt;
  }
  return options;
}

namespace {

constexpr std::string_view kInteractiveWelcome =
    "dravsim: the Drav plug-in in a simulated X-Plane. One scenario command per line, for example:\n"
    "  plug GF-P8 as box            plug GF-46 as radio          boot\n"
    "  press box 1 / release box 1  turn radio 2 3               frame / run 0.5\n"
    "  show                         dataref sim/cockpit/radios/com1_freq_hz\n"
    "  menu \"Assign Functions\"     stop\n"
    "End with Ctrl-D.\n";

}  // namespace

int RunDravsim(const DravsimOptions& options, const DravsimIo& io,
               const sim::PluginEntryPoints& plugin) {
  Session session(options, io, plugin);
  if (options.interactive) {
    if (io.promptForInput) io.out << kInteractiveWelcome;
    StreamLineSource source(io.in, io.promptForInput ? &io.out : nullptr, &io.out);
    session.RunInFreshSimulator(kInteractiveName, source);
  } else if (options.files.empty()) {
    TextLineSource source(DemoScenarioText());
    session.RunInFreshSimulator(kDemoName, source);
  }
  for (const std::string& file : options.files) {
    const auto text = ReadWholeFile(file);
    if (!text) {
      session.Error(file, "cannot read the file");
      continue;
    }
    TextLineSource source(*text);
    session.RunInFreshSimulator(file, source);
  }
  io.out << ClosingLine(session.Total()) << '\n';
  return session.Total().Failures() == 0 ? 0 : 1;
}

std::string ClosingLine(const ScenarioResult& result) {
  std::string line = std::to_string(result.passed) + " passed, " + std::to_string(result.Failures()) + " failed";
  if (result.skipped > 0) line += ", " + std::to_string(result.skipped) + " skipped";
  return line;
}

}  // namespace dravsim
