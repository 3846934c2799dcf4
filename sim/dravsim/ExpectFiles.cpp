// Checks of the plug-in folder's files: DRAV.INI through the plug-in's own INI reader, any file
// line by line, and the log.
#include <algorithm>
#include <filesystem>

#include "base/IniFile.h"
#include "dravsim/CommandArgs.h"
#include "dravsim/CommandHandlers.h"
#include "dravsim/PluginFiles.h"

namespace dravsim {
namespace {

struct IniLookup {
  bool found = false;
  std::string value;
};

IniLookup LookUpIni(const std::filesystem::path& file, const std::string& section, const std::string& key) {
  char value[drav::kIniValueSize] = {};
  const std::string path = file.string();
  IniLookup lookup;
  lookup.found = drav::ReadIniValueAtPath(path, section.c_str(), key.c_str(), value, "");
  lookup.value = value;
  return lookup;
}

std::string DescribeKey(const std::string& what, const std::string& section, const std::string& key) {
  return what + " [" + section + "] " + key;
}

// Where two line lists first differ, as a FAIL line's two halves.
struct LineDifference {
  std::string expected;
  std::string found;
};

std::optional<LineDifference> CompareLines(const std::vector<std::string>& expected,
                                           const std::vector<std::string>& found) {
  std::size_t line = 0;
  while (line < expected.size() && line < found.size() && expected[line] == found[line]) ++line;
  if (line == expected.size() && line == found.size()) return std::nullopt;
  const std::string number = "line " + std::to_string(line + 1);
  if (line == expected.size()) {
    return LineDifference{"the end after " + std::to_string(line) + " lines",
                          number + " " + Quoted(found[line])};
  }
  if (line == found.size()) {
    return LineDifference{number + " " + Quoted(expected[line]),
                          "the end after " + std::to_string(line) + " lines"};
  }
  return LineDifference{number + " " + Quoted(expected[line]), Quoted(found[line])};
}

// A missing log has no lines: the plug-in logs nothing unless its debug switch is on.
std::vector<std::string> LogLines(const sim::SimHost& host) {
  auto lines = ReadLines(host.PluginFolder() / kLogFileName);
  return lines ? std::move(*lines) : std::vector<std::string>{};
}

// The simulator's own log, where XPLMDebugString writes: Root()/Log.txt, as in X-Plane's folder.
std::vector<std::string> XPlaneLogLines(const sim::SimHost& host) {
  auto lines = ReadLines(host.Root() / "Log.txt");
  return lines ? std::move(*lines) : std::vector<std::string>{};
}

// The first line holding `text`, counted from 1; 0 when none does.
std::size_t FindLineHolding(const std::vector<std::string>& lines, const std::string& text) {
  const auto it = std::find_if(lines.begin(), lines.end(),
                               [&text](const std::string& line) { return line.find(text) != std::string::npos; });
  return it == lines.end() ? 0 : static_cast<std::size_t>(it - lines.begin()) + 1;
}

}  // namespace

namespace {

// `SECTION KEY = VALUE | SECTION KEY absent` of the INI file at `file`, called `what` in a FAIL line.
void ExpectIniAt(ScenarioContext& ctx, const Invocation& call, const std::filesystem::path& file,
                 const std::string& what) {
  const bool absentForm = call.args.size() == 3 && IsKeyword(call.args[2], "absent");
  const bool valueForm = call.args.size() == 4 && IsKeyword(call.args[2], "=");
  if (!absentForm && !valueForm) {
    UsageError(ctx, call);
    return;
  }
  const std::string& section = call.args[0].text;
  const std::string& key = call.args[1].text;
  const IniLookup lookup = LookUpIni(file, section, key);
  if (absentForm) {
    if (!lookup.found) {
      ctx.Pass();
    } else {
      ctx.Fail(DescribeKey(what, section, key) + " absent", key + " = " + Quoted(lookup.value));
    }
    return;
  }
  const std::string& expected = call.args[3].text;
  if (lookup.found && lookup.value == expected) {
    ctx.Pass();
  } else {
    ctx.Fail(DescribeKey(what, section, key) + " = " + Quoted(expected),
             lookup.found ? Quoted(lookup.value) : "no such key");
  }
}

void ExpectLinesAt(ScenarioContext& ctx, const Invocation& call, const std::filesystem::path& path,
                   const std::string& what) {
  const auto lines = ReadLines(path);
  if (!lines) {
    ctx.Fail(what + " with " + std::to_string(call.block.size()) + " lines", "no such file");
    return;
  }
  if (const auto difference = CompareLines(call.block, *lines)) {
    ctx.Fail(what + " " + difference->expected, difference->found);
  } else {
    ctx.Pass();
  }
}

std::filesystem::path AircraftIniPath(const sim::SimHost& host) {
  return host.UserAircraftFile().parent_path() / drav::kConfigFileName;
}

}  // namespace

void ExpectIniCommand(ScenarioContext& ctx, const Invocation& call) {
  ExpectIniAt(ctx, call, ctx.host.PluginFolder() / drav::kConfigFileName, "ini");
}

// `expect aircraft-ini absent`: the aircraft's folder holds no DRAV.INI (nothing was written there).
void ExpectAircraftIniCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::filesystem::path path = AircraftIniPath(ctx.host);
  if (call.args.size() != 1) {
    ExpectIniAt(ctx, call, path, "aircraft-ini");
    return;
  }
  if (!IsKeyword(call.args[0], "absent")) {
    UsageError(ctx, call);
    return;
  }
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    ctx.Pass();
  } else {
    ctx.Fail("no " + path.string(), "the file exists");
  }
}

void ExpectFileCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& name = call.args[0].text;
  std::string error;
  const auto path = PluginFilePath(ctx.host, name, error);
  if (!path) {
    CommandError(ctx, call, error);
    return;
  }
  ExpectLinesAt(ctx, call, *path, "file " + name);
}

void ExpectAircraftFileCommand(ScenarioContext& ctx, const Invocation& call) {
  ExpectLinesAt(ctx, call, AircraftIniPath(ctx.host), "aircraft-file");
}

void ExpectLogCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& line = call.args[0].text;
  const std::vector<std::string> lines = LogLines(ctx.host);
  if (std::find(lines.begin(), lines.end(), line) != lines.end()) {
    ctx.Pass();
    return;
  }
  std::string found = lines.empty() ? std::string("an empty log")
                                    : std::to_string(lines.size()) + " log lines without it";
  if (!lines.empty()) found += ", the last " + Quoted(lines.back());
  ctx.Fail("log line " + Quoted(line), found);
}

void ExpectNoLogCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& line = call.args[0].text;
  const std::vector<std::string> lines = LogLines(ctx.host);
  const auto it = std::find(lines.begin(), lines.end(), line);
  if (it == lines.end()) {
    ctx.Pass();
  } else {
    ctx.Fail("no log line " + Quoted(line),
             "it at line " + std::to_string(it - lines.begin() + 1));
  }
}

// Log.txt lines are matched by a part of them: the plug-in's lines carry paths and system texts
// that differ between machines.
void ExpectXPlaneLogCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& text = call.args[0].text;
  const std::vector<std::string> lines = XPlaneLogLines(ctx.host);
  if (FindLineHolding(lines, text) != 0) {
    ctx.Pass();
  } else {
    ctx.Fail("a Log.txt line holding " + Quoted(text),
             lines.empty() ? std::string("an empty Log.txt") : std::to_string(lines.size()) + " lines without it");
  }
}

void ExpectNoXPlaneLogCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string& text = call.args[0].text;
  const std::size_t line = FindLineHolding(XPlaneLogLines(ctx.host), text);
  if (line == 0) {
    ctx.Pass();
  } else {
    ctx.Fail("no Log.txt line holding " + Quoted(text), "it at line " + std::to_string(line));
  }
}

void ExpectXPlaneLogLinesCommand(ScenarioContext& ctx, const Invocation& call) {
  const auto count = IntegerArg(ctx, call, 0, 0, 1'000'000);
  if (!count) return;
  const std::size_t lines = XPlaneLogLines(ctx.host).size();
  if (static_cast<long long>(lines) == *count) {
    ctx.Pass();
  } else {
    ctx.Fail("Log.txt with " + std::to_string(*count) + " lines", std::to_string(lines) + " lines");
  }
}

}  // namespace dravsim
