#include "host/SdkSymbolTable.h"

#include <XPLMDataAccess.h>
#include <XPLMDisplay.h>
#include <XPLMGraphics.h>
#include <XPLMMenus.h>
#include <XPLMPlanes.h>
#include <XPLMPlugin.h>
#include <XPLMProcessing.h>
#include <XPLMScenery.h>
#include <XPLMUtilities.h>

namespace sim {

namespace {

struct SdkSymbol {
  const char* name;
  void* address;
};

#define SDK_SYMBOL(function) SdkSymbol{#function, reinterpret_cast<void*>(&::function)}

const SdkSymbol kSdkSymbols[] = {
    SDK_SYMBOL(XPLMAppendMenuItem),
    SDK_SYMBOL(XPLMBindTexture2d),
    SDK_SYMBOL(XPLMCanWriteDataRef),
    SDK_SYMBOL(XPLMCommandBegin),
    SDK_SYMBOL(XPLMCommandButtonPress),
    SDK_SYMBOL(XPLMCommandButtonRelease),
    SDK_SYMBOL(XPLMCommandEnd),
    SDK_SYMBOL(XPLMCommandKeyStroke),
    SDK_SYMBOL(XPLMCommandOnce),
    SDK_SYMBOL(XPLMCreateCommand),
    SDK_SYMBOL(XPLMCreateMenu),
    SDK_SYMBOL(XPLMCreateProbe),
    SDK_SYMBOL(XPLMCreateWindow),
    SDK_SYMBOL(XPLMCreateWindowEx),
    SDK_SYMBOL(XPLMDebugString),
    SDK_SYMBOL(XPLMDestroyProbe),
    SDK_SYMBOL(XPLMDestroyWindow),
    SDK_SYMBOL(XPLMDrawObjects),
    SDK_SYMBOL(XPLMDrawString),
    SDK_SYMBOL(XPLMDrawTranslucentDarkBox),
    SDK_SYMBOL(XPLMEnableFeature),
    SDK_SYMBOL(XPLMEnumerateFeatures),
    SDK_SYMBOL(XPLMFindCommand),
    SDK_SYMBOL(XPLMFindDataRef),
    SDK_SYMBOL(XPLMFindPluginBySignature),
    SDK_SYMBOL(XPLMFindPluginsMenu),
    SDK_SYMBOL(XPLMFindSymbol),
    SDK_SYMBOL(XPLMGetCycleNumber),
    SDK_SYMBOL(XPLMGetDataRefTypes),
    SDK_SYMBOL(XPLMGetDatab),
    SDK_SYMBOL(XPLMGetDatad),
    SDK_SYMBOL(XPLMGetDataf),
    SDK_SYMBOL(XPLMGetDatai),
    SDK_SYMBOL(XPLMGetDatavf),
    SDK_SYMBOL(XPLMGetDatavi),
    SDK_SYMBOL(XPLMGetDirectorySeparator),
    SDK_SYMBOL(XPLMGetElapsedTime),
    SDK_SYMBOL(XPLMGetFontDimensions),
    SDK_SYMBOL(XPLMGetNthAircraftModel),
    SDK_SYMBOL(XPLMGetMyID),
    SDK_SYMBOL(XPLMGetScreenSize),
    SDK_SYMBOL(XPLMGetSystemPath),
    SDK_SYMBOL(XPLMGetTexture),
    SDK_SYMBOL(XPLMGetVersions),
    SDK_SYMBOL(XPLMGetWindowGeometry),
    SDK_SYMBOL(XPLMGetWindowIsVisible),
    SDK_SYMBOL(XPLMGetWindowRefCon),
    SDK_SYMBOL(XPLMHasFeature),
    SDK_SYMBOL(XPLMHasKeyboardFocus),
    SDK_SYMBOL(XPLMIsDataRefGood),
    SDK_SYMBOL(XPLMIsFeatureEnabled),
    SDK_SYMBOL(XPLMLoadDataFile),
    SDK_SYMBOL(XPLMLoadObject),
    SDK_SYMBOL(XPLMLookupObjects),
    SDK_SYMBOL(XPLMMeasureString),
    SDK_SYMBOL(XPLMProbeTerrainXYZ),
    SDK_SYMBOL(XPLMRegisterCommandHandler),
    SDK_SYMBOL(XPLMRegisterDataAccessor),
    SDK_SYMBOL(XPLMRegisterFlightLoopCallback),
    SDK_SYMBOL(XPLMSaveDataFile),
    SDK_SYMBOL(XPLMSendMessageToPlugin),
    SDK_SYMBOL(XPLMSetDatab),
    SDK_SYMBOL(XPLMSetDatad),
    SDK_SYMBOL(XPLMSetDataf),
    SDK_SYMBOL(XPLMSetDatai),
    SDK_SYMBOL(XPLMSetDatavf),
    SDK_SYMBOL(XPLMSetDatavi),
    SDK_SYMBOL(XPLMSetErrorCallback),
    SDK_SYMBOL(XPLMSetFlightLoopCallbackInterval),
    SDK_SYMBOL(XPLMSetGraphicsState),
    SDK_SYMBOL(XPLMSetWindowIsVisible),
    SDK_SYMBOL(XPLMSetWindowRefCon),
    SDK_SYMBOL(XPLMSimulateKeyPress),
    SDK_SYMBOL(XPLMTakeKeyboardFocus),
    SDK_SYMBOL(XPLMUnloadObject),
    SDK_SYMBOL(XPLMUnregisterCommandHandler),
    SDK_SYMBOL(XPLMUnregisterDataAccessor),
    SDK_SYMBOL(XPLMUnregisterFlightLoopCallback),
};

#undef SDK_SYMBOL

}  // namespace

void* FindSdkSymbol(std::string_view name) {
  for (const SdkSymbol& symbol : kSdkSymbols) {
    if (name == symbol.name) return symbol.address;
  }
  return nullptr;
}

}  // namespace sim
