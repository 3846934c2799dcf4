// XPLMScenery.h. There is no terrain and no scenery library: probes exist but never hit, objects
// never load.
#include <XPLMScenery.h>

#include "host/SdkHost.h"

using sim::SdkHost;

XPLMProbeRef XPLMCreateProbe(XPLMProbeType inProbeType) {
  if (inProbeType != xplm_ProbeY) return nullptr;
  auto& probes = SdkHost().probes;
  return probes.HandleOf(probes.Add(true));
}

void XPLMDestroyProbe(XPLMProbeRef inProbe) {
  if (bool* alive = SdkHost().probes.Find(inProbe)) *alive = false;
}

XPLMProbeResult XPLMProbeTerrainXYZ(XPLMProbeRef inProbe, float /*inX*/, float /*inY*/, float /*inZ*/,
                                    XPLMProbeInfo_t* /*outInfo*/) {
  const bool* alive = SdkHost().probes.Find(inProbe);
  return alive != nullptr && *alive ? xplm_ProbeMissed : xplm_ProbeError;
}

XPLMObjectRef XPLMLoadObject(const char* /*inPath*/) { return nullptr; }

void XPLMUnloadObject(XPLMObjectRef /*inObject*/) {}

void XPLMDrawObjects(XPLMObjectRef /*inObject*/, int /*inCount*/, XPLMDrawInfo_t* /*inLocations*/,
                     int /*lighting*/, int /*earth_relative*/) {}

int XPLMLookupObjects(const char* /*inPath*/, float /*inLatitude*/, float /*inLongitude*/,
                      void (*/*enumerator*/)(const char* inFilePath, void* inRef), void* /*ref*/) {
  return 0;
}
