// XPLMUtilities.h: versions, paths, the log, symbol look-up, data files, commands, and the legacy
// key strokes and joystick buttons (recorded as events: the simulator has nothing to move).
#include <XPLMUtilities.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "host/SdkHost.h"
#include "host/SdkSymbolTable.h"

using sim::SdkHost;

namespace {

// XPLMGetSystemPath's buffer, as the SDK documents it.
constexpr std::size_t kSystemPathBufferSize = 512;

// The separator X-Plane reports, and ends its system path with, on each platform.
#ifdef _WIN32
constexpr char kDirectorySeparator[] = "\\";
#else
constexpr char kDirectorySeparator[] = "/";
#endif

}  // namespace

void XPLMGetVersions(int* outXPlaneVersion, int* outXPLMVersion, XPLMHostApplicationID* outHostID) {
  if (outXPlaneVersion != nullptr) *outXPlaneVersion = SdkHost().xplaneVersion;
  if (outXPLMVersion != nullptr) *outXPLMVersion = sim::kXplmVersion;
  if (outHostID != nullptr) *outHostID = xplm_Host_XPlane;
}

void XPLMGetSystemPath(char* outSystemPath) {
  if (outSystemPath == nullptr) return;
  std::string path = SdkHost().root.string();
  if (!path.empty() && path.back() != kDirectorySeparator[0]) path += kDirectorySeparator;
  std::snprintf(outSystemPath, kSystemPathBufferSize, "%s", path.c_str());
}

const char* XPLMGetDirectorySeparator(void) { return kDirectorySeparator; }

// X-Plane adds no line end; the plug-in writes its own.
void XPLMDebugString(const char* inString) {
  const sim::SimHostImpl& host = SdkHost();
  if (inString == nullptr || host.root.empty()) return;
  const std::string logPath = (host.root / "Log.txt").string();
  if (std::FILE* log = std::fopen(logPath.c_str(), "ab")) {
    std::fwrite(inString, 1, std::strlen(inString), log);
    std::fclose(log);
  }
}

void* XPLMFindSymbol(const char* inString) {
  if (inString == nullptr || !SdkHost().systemSymbolsAvailable) return nullptr;
  return sim::FindSdkSymbol(inString);
}

void XPLMSetErrorCallback(XPLMError_f inCallback) { SdkHost().errorCallback = inCallback; }

// No situations or replays exist here: loading and saving fail.
int XPLMLoadDataFile(XPLMDataFileType /*inFileType*/, const char* /*inFilePath*/) { return 0; }

int XPLMSaveDataFile(XPLMDataFileType /*inFileType*/, const char* /*inFilePath*/) { return 0; }

XPLMCommandRef XPLMFindCommand(const char* inName) {
  if (inName == nullptr) return nullptr;
  return SdkHost().commands.Find(inName);
}

void XPLMCommandBegin(XPLMCommandRef inCommand) { SdkHost().commands.Begin(inCommand); }

void XPLMCommandEnd(XPLMCommandRef inCommand) { SdkHost().commands.End(inCommand); }

void XPLMCommandOnce(XPLMCommandRef inCommand) { SdkHost().commands.Once(inCommand); }

XPLMCommandRef XPLMCreateCommand(const char* inName, const char* /*inDescription*/) {
  if (inName == nullptr) return nullptr;
  return SdkHost().commands.Create(inName);
}

void XPLMRegisterCommandHandler(XPLMCommandRef inComand, XPLMCommandCallback_f inHandler,
                                int inBefore, void* inRefcon) {
  SdkHost().commands.AddHandler(inComand, inHandler, inBefore != 0, inRefcon);
}

void XPLMUnregisterCommandHandler(XPLMCommandRef inComand, XPLMCommandCallback_f inHandler,
                                  int inBefore, void* inRefcon) {
  SdkHost().commands.RemoveHandler(inComand, inHandler, inBefore != 0, inRefcon);
}

void XPLMSimulateKeyPress(int inKeyType, int inKey) {
  SdkHost().events.Record("key-press " + std::to_string(inKeyType) + " " + std::to_string(inKey));
}

void XPLMCommandKeyStroke(XPLMCommandKeyID inKey) {
  SdkHost().events.Record("keystroke " + std::to_string(inKey));
}

void XPLMCommandButtonPress(XPLMCommandButtonID inButton) {
  SdkHost().events.Record("button-press " + std::to_string(inButton));
}

void XPLMCommandButtonRelease(XPLMCommandButtonID inButton) {
  SdkHost().events.Record("button-release " + std::to_string(inButton));
}
