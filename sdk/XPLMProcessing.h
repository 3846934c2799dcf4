#ifndef _XPLMProcessing_h_
#define _XPLMProcessing_h_

/*
 * Flight-loop callbacks: periodic work on X-Plane's main thread.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A flight-loop callback. Its return value (and the interval given when registering) means:
 * > 0 seconds until the next call, < 0 a number of cycles (-1 = next cycle), 0 = stop calling.
 */
typedef float (*XPLMFlightLoop_f)(float inElapsedSinceLastCall,
                                  float inElapsedTimeSinceLastFlightLoop,
                                  int inCounter,
                                  void* inRefcon);

#if defined(XPLM210)
/* Handle of a flight loop created with the 2.1 API. */
typedef void* XPLMFlightLoopID;
#endif

XPLM_API float XPLMGetElapsedTime(void);
XPLM_API int XPLMGetCycleNumber(void);

/* Legacy registration: the callback runs before the flight model. */
XPLM_API void XPLMRegisterFlightLoopCallback(XPLMFlightLoop_f inFlightLoop,
                                             float inInterval,
                                             void* inRefcon);
XPLM_API void XPLMUnregisterFlightLoopCallback(XPLMFlightLoop_f inFlightLoop, void* inRefcon);

/* Not to be called from inside the callback: return the new interval instead. */
XPLM_API void XPLMSetFlightLoopCallbackInterval(XPLMFlightLoop_f inFlightLoop,
                                                float inInterval,
                                                int inRelativeToNow,
                                                void* inRefcon);

#ifdef __cplusplus
}
#endif

#endif /* _XPLMProcessing_h_ */
