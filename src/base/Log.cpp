// The log file. Lines come from the main thread and from the device layer's input thread; one lock
// around the append keeps them whole and in one order. Logging never reports a failure: a line
// that cannot be written is lost.
#include "base/Log.h"

#include <XPLMUtilities.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "base/BaseState.h"
#include "base/IniFile.h"
#include "base/PlatformDebugOutput.h"
#include "base/Settings.h"

namespace drav {
namespace {

constexpr const char* kLogFileName = "DRAVLog.txt";

// The line end a text-mode write produces on each platform; the file is written in binary so that
// no runtime translates it a second time.
#ifdef _WIN32
constexpr char kLineEnd[] = "\r\n";
#else
constexpr char kLineEnd[] = "\n";
#endif
constexpr std::size_t kLineEndLength = sizeof kLineEnd - 1;

// Outside a plug-in's context (a tool that never starts it) nothing is logged.
bool LoggingEnabled() {
  return ContextSlot<BaseState>::Installed() && CurrentDebugSwitches().DebugEnabled != 0;
}

// Text cut to kLogLineMax characters, then the line end; returns the length.
std::size_t ComposeLine(const char* text, char (&line)[kLogLineMax + kLineEndLength + 1]) {
  const std::size_t length = text ? strnlen(text, kLogLineMax) : 0;
  if (length > 0) std::memcpy(line, text, length);
  std::memcpy(line + length, kLineEnd, kLineEndLength + 1);
  return length + kLineEndLength;
}

void AppendToFile(const std::string& path, const char* line, std::size_t length) {
  std::FILE* file = std::fopen(path.c_str(), "ab");
  if (!file) return;
  std::fwrite(line, 1, length, file);
  std::fclose(file);
}

}  // namespace

void InitLogPath() {
  std::string path = PluginFilePath(kLogFileName);
  LogFile& log = CurrentBaseState().log;
  std::lock_guard<std::mutex> lock(log.mutex);
  log.path = std::move(path);
}

void LogLine(const char* text) {
  if (!LoggingEnabled()) return;
  char line[kLogLineMax + kLineEndLength + 1];
  const std::size_t length = ComposeLine(text, line);
  LogFile& log = CurrentBaseState().log;
  std::lock_guard<std::mutex> lock(log.mutex);
  // Without InitLogPath (a test) the path is asked for here, on whatever thread logs first.
  if (log.path.empty()) log.path = PluginFilePath(kLogFileName);
  if (CurrentDebugSwitches().DebugViewEnabled != 0) WriteDebuggerOutput(line);
  AppendToFile(log.path, line, length);
}

void LogFormat(const char* format, ...) {
  if (!LoggingEnabled() || !format) return;
  char text[kLogLineMax + 1];
  va_list arguments;
  va_start(arguments, format);
  const int written = std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  if (written < 0) return;
  LogLine(text);
}

void LogBits16(const char* label, std::uint32_t value) {
  if (!LoggingEnabled()) return;
  char digits[17];
  for (int bit = 0; bit < 16; ++bit) digits[bit] = (value >> bit) & 1u ? '1' : '0';
  digits[16] = '\0';
  LogFormat("%s = %s", label ? label : "", digits);
}

void LogBits32(const char* label, std::uint32_t value) {
  if (!LoggingEnabled()) return;
  char digits[33];
  for (int bit = 31; bit >= 0; --bit) digits[31 - bit] = (value >> bit) & 1u ? '1' : '0';
  digits[32] = '\0';
  LogFormat("%s = %s", label ? label : "", digits);
}

namespace {

constexpr const char* kSimLogPrefix = "DRAV: ";
// Lines already told about unknown function names; past this many a broken file has said enough.
constexpr std::size_t kMaxToldValues = 32;

void SimLogVFormat(const char* format, va_list arguments) {
  char text[kLogLineMax + 1];
  const int written = std::vsnprintf(text, sizeof text, format, arguments);
  if (written >= 0) SimLogLine(text);
}

// Linux refuses a panel's node to a user without the udev rule, which is the usual cause.
bool IsPermissionProblem(const std::string& reason) { return reason == "permission denied"; }

}  // namespace

void SimLogLine(const char* text) {
  char line[kLogLineMax + 16];
  const std::size_t length = text ? strnlen(text, kLogLineMax) : 0;
  std::snprintf(line, sizeof line, "%s%.*s\n", kSimLogPrefix, static_cast<int>(length), text ? text : "");
  XPLMDebugString(line);
}

void SimLogFormat(const char* format, ...) {
  if (!format) return;
  va_list arguments;
  va_start(arguments, format);
  SimLogVFormat(format, arguments);
  va_end(arguments);
}

namespace {

// True the first time a line is to be told, while the cap allows; the caller then tells it and
// closes with EndTelling.
bool FirstTelling(const std::string& told) {
  std::vector<std::string>& toldValues = CurrentBaseState().toldValues;
  if (toldValues.size() >= kMaxToldValues ||
      std::find(toldValues.begin(), toldValues.end(), told) != toldValues.end()) {
    return false;
  }
  toldValues.push_back(told);
  return true;
}

void EndTelling() {
  if (CurrentBaseState().toldValues.size() == kMaxToldValues) SimLogLine("DRAV.INI: further values that name no function are not listed.");
}

}  // namespace

void SimLogUnknownFunction(const std::string& section, const std::string& key, const std::string& value) {
  if (!FirstTelling(section + '\n' + key + '\n' + value)) return;
  SimLogFormat("DRAV.INI [%s] %s = %s names no function; the control does nothing.", section.c_str(),
               key.c_str(), value.c_str());
  EndTelling();
}

void SimLogMissingName(const std::string& section, const std::string& key, const std::string& value,
                       const char* what, const char* name) {
  if (what == nullptr || name == nullptr) return;
  if (!FirstTelling(section + '\n' + key + '\n' + value + '\n' + name)) return;
  SimLogFormat("DRAV.INI [%s] %s = %s: the simulator has no %s %s; that part does nothing.", section.c_str(),
               key.c_str(), value.c_str(), what, name);
  EndTelling();
}

void SimLogUnopenedPanel(const char* model, const std::string& path, const std::string& reason) {
  if (IsPermissionProblem(reason)) {
    SimLogFormat("%s at %s could not be opened: permission denied. Install the udev rule "
                 "70-drav-panels.rules (see docs/install.md) and plug the panel in again.",
                 model ? model : "A panel", path.c_str());
  } else {
    SimLogFormat("%s at %s could not be opened: %s.", model ? model : "A panel", path.c_str(), reason.c_str());
  }
}

}  // namespace drav
