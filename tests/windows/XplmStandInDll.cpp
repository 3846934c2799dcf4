// XPLM_64.DLL as the simulator host provides it on Windows. The plug-in loads the simulator's SDK
// library by path (<X-Plane>\Resources\plugins\XPLM_64.DLL) and asks it for XPLMFindSymbol, to
// reach the functions it only looks up at run time. This stand-in answers with the host's own
// XPLMFindSymbol, which the program running the host (dravsim, the tests) exports.
//
// The SDK headers are not included: they declare XPLMFindSymbol as imported.
#include <windows.h>

namespace {

using FindSymbolFn = void* (*)(const char*);

FindSymbolFn HostFindSymbol() {
  // FARPROC is a generic function pointer; void (*)() passes it on without a cast warning.
  using AnyFunction = void (*)();
  return reinterpret_cast<FindSymbolFn>(
      reinterpret_cast<AnyFunction>(GetProcAddress(GetModuleHandleA(nullptr), "XPLMFindSymbol")));
}

}  // namespace

extern "C" __declspec(dllexport) void* XPLMFindSymbol(const char* name) {
  static const FindSymbolFn hostFindSymbol = HostFindSymbol();
  return hostFindSymbol != nullptr ? hostFindSymbol(name) : nullptr;
}
