#include "base/OptionalXplmApi.h"

#include "base/BaseState.h"

#include <cstdio>
#include <string>

#ifdef _WIN32
#include <windows.h>
#endif

namespace drav {

OptionalXplmApi& CurrentOptionalXplmApi() { return CurrentBaseState().optionalApi; }

namespace {

using FindSymbolFn = void* (*)(const char*);

#ifdef _WIN32
// The SDK library sits in the simulator's plug-in folder; each load takes a further reference,
// which is never released (the library lives as long as the simulator).
FindSymbolFn LocateFindSymbol(bool* libraryLoaded) {
  char systemPath[512] = {};
  XPLMGetSystemPath(systemPath);
  std::string path = std::string(systemPath) + "Resources\\plugins\\XPLM_64.DLL";
  HMODULE library = LoadLibraryA(path.c_str());
  *libraryLoaded = library != nullptr;
  if (library == nullptr) return nullptr;
  // FARPROC is a generic function pointer; void (*)() is the type GCC lets it pass through unwarned.
  using AnyFunction = void (*)();
  return reinterpret_cast<FindSymbolFn>(
      reinterpret_cast<AnyFunction>(GetProcAddress(library, "XPLMFindSymbol")));
}
#else
// On Linux and macOS the simulator resolves our SDK imports when it loads the plug-in, so the
// library is always there and XPLMFindSymbol is one of them.
FindSymbolFn LocateFindSymbol(bool* libraryLoaded) {
  *libraryLoaded = true;
  return &::XPLMFindSymbol;
}
#endif

template <typename Fn>
void Resolve(FindSymbolFn findSymbol, const char* name, Fn& slot) {
  slot = reinterpret_cast<Fn>(findSymbol(name));
}

}  // namespace

bool LoadOptionalXplmApi() {
  bool libraryLoaded = false;
  FindSymbolFn findSymbol = LocateFindSymbol(&libraryLoaded);
  if (!libraryLoaded) return false;
  OptionalXplmApi& api = CurrentOptionalXplmApi();
  if (findSymbol == nullptr) {
    api = OptionalXplmApi{};
    return false;
  }
  Resolve(findSymbol, "XPLMCreateWindowEx", api.XPLMCreateWindowEx);
  Resolve(findSymbol, "XPLMMeasureString", api.XPLMMeasureString);
  Resolve(findSymbol, "XPLMCreateProbe", api.XPLMCreateProbe);
  Resolve(findSymbol, "XPLMDestroyProbe", api.XPLMDestroyProbe);
  Resolve(findSymbol, "XPLMProbeTerrainXYZ", api.XPLMProbeTerrainXYZ);
  Resolve(findSymbol, "XPLMLoadObject", api.XPLMLoadObject);
  Resolve(findSymbol, "XPLMDrawObjects", api.XPLMDrawObjects);
  Resolve(findSymbol, "XPLMUnloadObject", api.XPLMUnloadObject);
  Resolve(findSymbol, "XPLMLookupObjects", api.XPLMLookupObjects);
  Resolve(findSymbol, "XPLMSetErrorCallback", api.XPLMSetErrorCallback);
  Resolve(findSymbol, "XPLMLoadDataFile", api.XPLMLoadDataFile);
  Resolve(findSymbol, "XPLMSaveDataFile", api.XPLMSaveDataFile);
  Resolve(findSymbol, "XPLMFindCommand", api.XPLMFindCommand);
  Resolve(findSymbol, "XPLMCommandBegin", api.XPLMCommandBegin);
  Resolve(findSymbol, "XPLMCommandEnd", api.XPLMCommandEnd);
  Resolve(findSymbol, "XPLMCommandOnce", api.XPLMCommandOnce);
  Resolve(findSymbol, "XPLMCreateCommand", api.XPLMCreateCommand);
  Resolve(findSymbol, "XPLMRegisterCommandHandler", api.XPLMRegisterCommandHandler);
  Resolve(findSymbol, "XPLMUnregisterCommandHandler", api.XPLMUnregisterCommandHandler);
  Resolve(findSymbol, "XPLMHasFeature", api.XPLMHasFeature);
  Resolve(findSymbol, "XPLMIsFeatureEnabled", api.XPLMIsFeatureEnabled);
  Resolve(findSymbol, "XPLMEnableFeature", api.XPLMEnableFeature);
  Resolve(findSymbol, "XPLMEnumerateFeatures", api.XPLMEnumerateFeatures);
  return true;
}

void RunCommandOnce(XPLMCommandRef command) {
  if (command != nullptr && CurrentOptionalXplmApi().XPLMCommandOnce != nullptr) {
    CurrentOptionalXplmApi().XPLMCommandOnce(command);
  }
}

void BeginCommand(XPLMCommandRef command) {
  if (command != nullptr && CurrentOptionalXplmApi().XPLMCommandBegin != nullptr) {
    CurrentOptionalXplmApi().XPLMCommandBegin(command);
  }
}

void EndCommand(XPLMCommandRef command) {
  if (command != nullptr && CurrentOptionalXplmApi().XPLMCommandEnd != nullptr) {
    CurrentOptionalXplmApi().XPLMCommandEnd(command);
  }
}

XPLMCommandRef FindOptionalCommand(const char* name) {
  if (name == nullptr || CurrentOptionalXplmApi().XPLMFindCommand == nullptr) return nullptr;
  return CurrentOptionalXplmApi().XPLMFindCommand(name);
}

}  // namespace drav
