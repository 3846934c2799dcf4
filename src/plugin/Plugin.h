// The plug-in's five entry points, as plain functions of the core. DRAV.xpl exports them under the
// SDK's names (PluginExports.cpp); dravsim and the tests call them directly.
#pragma once

namespace drav {

int PluginStart(char* outName, char* outSignature, char* outDescription);
void PluginStop();
int PluginEnable();
void PluginDisable();
void PluginReceiveMessage(int from, int message, void* param);

// True between the device layer's start at enable and its stop at disable.
bool PanelsRunning();

// The plug-in module's instance handle (Windows), for the device layer's hot-plug window.
void SetModuleInstance(void* instance);

}  // namespace drav
