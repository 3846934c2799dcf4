#include "base/PlatformDebugOutput.h"

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#else
#include <cstdio>
#endif

namespace drav {

void WriteDebuggerOutput(const char* text) {
#ifdef _WIN32
  OutputDebugStringA(text);
#else
  // No debugger channel here: stderr is where a developer watching the simulator looks.
  std::fputs(text, stderr);
#endif
}

}  // namespace drav
