#ifndef _XPLMPlanes_h_
#define _XPLMPlanes_h_

/*
 * The user's aircraft and the others X-Plane flies.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * The file name and the full path of aircraft `inIndex` (0 is the user's). outFileName must hold
 * 256 bytes and outPath 512.
 */
XPLM_API void XPLMGetNthAircraftModel(int inIndex, char* outFileName, char* outPath);

#ifdef __cplusplus
}
#endif

#endif
