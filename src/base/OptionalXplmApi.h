// SDK functions that the plug-in resolves by name at run time, so that one binary also runs in
// simulators whose SDK lacks them. Each pointer is null while unresolved.
#pragma once

#include <XPLMDisplay.h>
#include <XPLMGraphics.h>
#include <XPLMPlugin.h>
#include <XPLMScenery.h>
#include <XPLMUtilities.h>

namespace drav {

struct OptionalXplmApi {
  decltype(&::XPLMCreateWindowEx) XPLMCreateWindowEx = nullptr;
  decltype(&::XPLMMeasureString) XPLMMeasureString = nullptr;
  decltype(&::XPLMCreateProbe) XPLMCreateProbe = nullptr;
  decltype(&::XPLMDestroyProbe) XPLMDestroyProbe = nullptr;
  decltype(&::XPLMProbeTerrainXYZ) XPLMProbeTerrainXYZ = nullptr;
  decltype(&::XPLMLoadObject) XPLMLoadObject = nullptr;
  decltype(&::XPLMDrawObjects) XPLMDrawObjects = nullptr;
  decltype(&::XPLMUnloadObject) XPLMUnloadObject = nullptr;
  decltype(&::XPLMLookupObjects) XPLMLookupObjects = nullptr;
  decltype(&::XPLMSetErrorCallback) XPLMSetErrorCallback = nullptr;
  decltype(&::XPLMLoadDataFile) XPLMLoadDataFile = nullptr;
  decltype(&::XPLMSaveDataFile) XPLMSaveDataFile = nullptr;
  decltype(&::XPLMFindCommand) XPLMFindCommand = nullptr;
  decltype(&::XPLMCommandBegin) XPLMCommandBegin = nullptr;
  decltype(&::XPLMCommandEnd) XPLMCommandEnd = nullptr;
  decltype(&::XPLMCommandOnce) XPLMCommandOnce = nullptr;
  decltype(&::XPLMCreateCommand) XPLMCreateCommand = nullptr;
  decltype(&::XPLMRegisterCommandHandler) XPLMRegisterCommandHandler = nullptr;
  decltype(&::XPLMUnregisterCommandHandler) XPLMUnregisterCommandHandler = nullptr;
  decltype(&::XPLMHasFeature) XPLMHasFeature = nullptr;
  decltype(&::XPLMIsFeatureEnabled) XPLMIsFeatureEnabled = nullptr;
  decltype(&::XPLMEnableFeature) XPLMEnableFeature = nullptr;
  decltype(&::XPLMEnumerateFeatures) XPLMEnumerateFeatures = nullptr;
};

// The running plug-in's table (BaseState), resolved at enable.
OptionalXplmApi& CurrentOptionalXplmApi();

// Resolves the 23 names through XPLMFindSymbol. Returns false, leaving the table as it was, when the
// SDK library cannot be loaded; returns false with every pointer null when it has no XPLMFindSymbol.
bool LoadOptionalXplmApi();

// Command helpers for the modules: they do nothing for a null handle or an unresolved function.
void RunCommandOnce(XPLMCommandRef command);
void BeginCommand(XPLMCommandRef command);
void EndCommand(XPLMCommandRef command);
// Looks a command up by name through the optional API; null when unknown or unresolved.
XPLMCommandRef FindOptionalCommand(const char* name);

}  // namespace drav
