// The plug-in's only diagnostic channel: DRAVLog.txt in the plug-in's folder, appended one line at a
// time, optionally mirrored to the debugger output. Off unless the DEBUG section switches it on.
#pragma once

#include <cstdint>
#include <string>

namespace drav {

// A line holds at most 510 characters; longer text is cut.
inline constexpr int kLogLineMax = 510;

// Takes the log file's path from the simulator (main thread, at start), so that lines logged later
// from the device layer's input thread never call into the SDK.
void InitLogPath();

void LogLine(const char* text);
// printf-style convenience: formats into a bounded buffer, then LogLine.
void LogFormat(const char* format, ...) __attribute__((format(printf, 1, 2)));
// "%s = %s" with 16 binary digits, bit 0 first.
void LogBits16(const char* label, std::uint32_t value);
// "%s = %s" with 32 binary digits, bit 31 first.
void LogBits32(const char* label, std::uint32_t value);

// ---- the simulator's Log.txt ------------------------------------------------------------------
// Where pilots and add-on authors look first, so these lines are written whatever the DEBUG switches
// say: few, each one something a pilot can act on, each prefixed "DRAV: ". Main thread only, as the
// SDK wants it; never from the device layer's threads.

// One line ("DRAV: " + text + line end), the text cut to kLogLineMax characters.
void SimLogLine(const char* text);
void SimLogFormat(const char* format, ...) __attribute__((format(printf, 1, 2)));

// A DRAV.INI value that names no function. Each (section, key, value) is told once, however often
// the units are loaded again (every pick reloads one); the plug-in's start forgets what was told.
void SimLogUnknownFunction(const std::string& section, const std::string& key, const std::string& value);
// A value that names a command or dataref (what: "command" or "dataref") the simulator does not
// have; told once per name, under the same cap as the unknown values.
void SimLogMissingName(const std::string& section, const std::string& key, const std::string& value,
                       const char* what, const char* name);
// A panel that could not be opened, and why ("permission denied" on Linux points at the udev rule).
void SimLogUnopenedPanel(const char* model, const std::string& path, const std::string& reason);

}  // namespace drav
