// The five entry points the simulator's plug-in manager looks for, exported under the SDK's names.
#include <XPLMDefs.h>

#include "plugin/Plugin.h"

#ifdef _WIN32
#include <windows.h>

// The device layer's hot-plug window needs the DLL's own instance handle.
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) drav::SetModuleInstance(instance);
  return TRUE;
}
#endif

PLUGIN_API int XPluginStart(char* outName, char* outSig, char* outDesc) {
  return drav::PluginStart(outName, outSig, outDesc);
}

PLUGIN_API void XPluginStop(void) { drav::PluginStop(); }

PLUGIN_API int XPluginEnable(void) { return drav::PluginEnable(); }

PLUGIN_API void XPluginDisable(void) { drav::PluginDisable(); }

PLUGIN_API void XPluginReceiveMessage(XPLMPluginID inFrom, int inMessage, void* inParam) {
  drav::PluginReceiveMessage(inFrom, inMessage, inParam);
}
