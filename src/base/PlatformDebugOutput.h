// The debugger's output channel of the platform, for the log's mirror.
#pragma once

namespace drav {

// Passes one text, line end included, to the attached debugger (Windows) or to stderr elsewhere.
void WriteDebuggerOutput(const char* text);

}  // namespace drav
