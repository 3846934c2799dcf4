#ifndef _XPLMScenery_h_
#define _XPLMScenery_h_

/*
 * Terrain probes and scenery objects.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

#if defined(XPLM200)

enum {
    xplm_ProbeY = 0
};
typedef int XPLMProbeType;

enum {
    xplm_ProbeHitTerrain = 0,
    xplm_ProbeError = 1,
    xplm_ProbeMissed = 2
};
typedef int XPLMProbeResult;

/* Opaque handle to a terrain probe. */
typedef void* XPLMProbeRef;

/* Set structSize to sizeof(XPLMProbeInfo_t). */
typedef struct {
    int structSize;
    float locationX;
    float locationY;
    float locationZ;
    float normalX;
    float normalY;
    float normalZ;
    float velocityX;
    float velocityY;
    float velocityZ;
    int is_wet;
} XPLMProbeInfo_t;

XPLM_API XPLMProbeRef XPLMCreateProbe(XPLMProbeType inProbeType);
XPLM_API void XPLMDestroyProbe(XPLMProbeRef inProbe);
XPLM_API XPLMProbeResult XPLMProbeTerrainXYZ(XPLMProbeRef inProbe,
                                             float inX,
                                             float inY,
                                             float inZ,
                                             XPLMProbeInfo_t* outInfo);

/* Opaque handle to a loaded scenery object. */
typedef void* XPLMObjectRef;

/* Set structSize to sizeof(XPLMDrawInfo_t). */
typedef struct {
    int structSize;
    float x;
    float y;
    float z;
    float pitch;
    float heading;
    float roll;
} XPLMDrawInfo_t;

#if defined(__cplusplus)
static_assert(sizeof(XPLMProbeInfo_t) == 44, "XPLMProbeInfo_t must match the SDK layout");
static_assert(sizeof(XPLMDrawInfo_t) == 28, "XPLMDrawInfo_t must match the SDK layout");
#endif

XPLM_API XPLMObjectRef XPLMLoadObject(const char* inPath);
XPLM_API void XPLMUnloadObject(XPLMObjectRef inObject);

#if defined(XPLM_DEPRECATED)
XPLM_API void XPLMDrawObjects(XPLMObjectRef inObject,
                              int inCount,
                              XPLMDrawInfo_t* inLocations,
                              int lighting,
                              int earth_relative);
#endif

/* Calls enumerator for each library path found for inPath. */
XPLM_API int XPLMLookupObjects(const char* inPath,
                               float inLatitude,
                               float inLongitude,
                               void (*enumerator)(const char* inFilePath, void* inRef),
                               void* ref);

#endif /* XPLM200 */

#ifdef __cplusplus
}
#endif

#endif /* _XPLMScenery_h_ */
