// The plug-in's only diagnostic channel: DRAVLog.txt in the plug-in's folder, appended one line at a
// time, optionally mirrored to the debugger output. Off unless the DEBUG section switches it on.
#pragma once

#include <cstdint>

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

}  // namespace drav
