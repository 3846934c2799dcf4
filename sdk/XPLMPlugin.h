#ifndef _XPLMPlugin_h_
#define _XPLMPlugin_h_

/*
 * Plug-in identity, inter-plug-in messages and SDK features.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

XPLM_API XPLMPluginID XPLMGetMyID(void);

/* Returns XPLM_NO_PLUGIN_ID if no plug-in has that signature. */
XPLM_API XPLMPluginID XPLMFindPluginBySignature(const char* inSignature);

/* XPLM_NO_PLUGIN_ID broadcasts; only enabled plug-ins receive the message. */
XPLM_API void XPLMSendMessageToPlugin(XPLMPluginID inPlugin, int inMessage, void* inParam);

/* Messages X-Plane sends to every plug-in. */
#define XPLM_MSG_PLANE_CRASHED 101
/* Parameter: the plane index in the pointer value (0 = the user's plane). */
#define XPLM_MSG_PLANE_LOADED 102
#define XPLM_MSG_AIRPORT_LOADED 103
#define XPLM_MSG_SCENERY_LOADED 104
#define XPLM_MSG_AIRPLANE_COUNT_CHANGED 105

#if defined(XPLM200)
/* Parameter: the plane index in the pointer value. */
#define XPLM_MSG_PLANE_UNLOADED 106
#endif

#if defined(XPLM210)
#define XPLM_MSG_WILL_WRITE_PREFS 107
/* Parameter: the plane index in the pointer value. */
#define XPLM_MSG_LIVERY_LOADED 108
#endif

#if defined(XPLM301)
#define XPLM_MSG_ENTERED_VR 109
#define XPLM_MSG_EXITING_VR 110
#endif

#if defined(XPLM303)
#define XPLM_MSG_RELEASE_PLANES 111
#endif

#if defined(XPLM400)
#define XPLM_MSG_FMOD_BANK_LOADED 112
#define XPLM_MSG_FMOD_BANK_UNLOADING 113
#define XPLM_MSG_DATAREFS_ADDED 114
#endif

#if defined(XPLM200)
typedef void (*XPLMFeatureEnumerator_f)(const char* inFeature, void* inRef);

XPLM_API int XPLMHasFeature(const char* inFeature);
XPLM_API int XPLMIsFeatureEnabled(const char* inFeature);
XPLM_API void XPLMEnableFeature(const char* inFeature, int inEnable);
XPLM_API void XPLMEnumerateFeatures(XPLMFeatureEnumerator_f inEnumerator, void* inRef);
#endif

#ifdef __cplusplus
}
#endif

#endif /* _XPLMPlugin_h_ */
