// The log file. Lines come from the main thread and from the device layer's input thread; one lock
// around the append keeps them whole and in one order. Logging never reports a failure: a line
// that cannot be written is lost.
#include "host/Log.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <string>

#include "config/IniFile.h"
#include "host/PlatformDebugOutput.h"
#include "host/Settings.h"

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

std::mutex gLogMutex;
std::string gLogPath;  // guarded by gLogMutex

bool LoggingEnabled() { return gDebug.DebugEnabled != 0; }

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
  std::lock_guard<std::mutex> lock(gLogMutex);
  gLogPath = std::move(path);
}

void LogLine(const char* text) {
  if (!LoggingEnabled()) return;
  char line[kLogLineMax + kLineEndLength + 1];
  const std::size_t length = ComposeLine(text, line);
  std::lock_guard<std::mutex> lock(gLogMutex);
  // Without InitLogPath (a tool, a test) the path is asked for here, on whatever thread logs first.
  if (gLogPath.empty()) gLogPath = PluginFilePath(kLogFileName);
  if (gDebug.DebugViewEnabled != 0) WriteDebuggerOutput(line);
  AppendToFile(gLogPath, line, length);
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

}  // namespace drav
