// XPLMPlugin.h: identity, messages and features. The simulator offers no SDK features.
#include <XPLMPlugin.h>

#include "host/SdkHost.h"

using sim::SdkHost;

XPLMPluginID XPLMGetMyID(void) { return sim::kPluginUnderTestId; }

XPLMPluginID XPLMFindPluginBySignature(const char* inSignature) {
  if (inSignature == nullptr) return XPLM_NO_PLUGIN_ID;
  return SdkHost().plugins.FindBySignature(inSignature);
}

void XPLMSendMessageToPlugin(XPLMPluginID inPlugin, int inMessage, void* inParam) {
  SdkHost().plugins.Send(inPlugin, inMessage, inParam);
}

int XPLMHasFeature(const char* /*inFeature*/) { return 0; }

int XPLMIsFeatureEnabled(const char* /*inFeature*/) { return 0; }

void XPLMEnableFeature(const char* /*inFeature*/, int /*inEnable*/) {}

void XPLMEnumerateFeatures(XPLMFeatureEnumerator_f /*inEnumerator*/, void* /*inRef*/) {}
