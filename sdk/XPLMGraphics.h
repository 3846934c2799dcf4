#ifndef _XPLMGraphics_h_
#define _XPLMGraphics_h_

/*
 * OpenGL state management, X-Plane's textures and text drawing.
 */

#include "XPLMDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

enum {
    xplm_Tex_GeneralInterface = 0
#if defined(XPLM_DEPRECATED)
    ,
    xplm_Tex_AircraftPaint = 1,
    xplm_Tex_AircraftLiteMap = 2
#endif
#if defined(XPLM411)
    ,
    xplm_Tex_Radar_Pilot = 3,
    xplm_Tex_Radar_Copilot = 4
#endif
};
typedef int XPLMTextureID;

enum {
    /* The monospaced UI font. */
    xplmFont_Basic = 0
#if defined(XPLM_DEPRECATED)
    ,
    xplmFont_Menus = 1,
    xplmFont_Metal = 2,
    xplmFont_Led = 3,
    xplmFont_LedWide = 4,
    xplmFont_PanelHUD = 5,
    xplmFont_PanelEFIS = 6,
    xplmFont_PanelGPS = 7,
    xplmFont_RadiosGA = 8,
    xplmFont_RadiosBC = 9,
    xplmFont_RadiosHM = 10,
    xplmFont_RadiosGANarrow = 11,
    xplmFont_RadiosBCNarrow = 12,
    xplmFont_RadiosHMNarrow = 13,
    xplmFont_Timer = 14,
    xplmFont_FullRound = 15,
    xplmFont_SmallRound = 16,
    xplmFont_Menus_Localized = 17
#endif
#if defined(XPLM200)
    ,
    xplmFont_Proportional = 18
#endif
};
typedef int XPLMFontID;

/* Use instead of raw glEnable/glDisable calls. */
XPLM_API void XPLMSetGraphicsState(int inEnableFog,
                                   int inNumberTexUnits,
                                   int inEnableLighting,
                                   int inEnableAlphaTesting,
                                   int inEnableAlphaBlending,
                                   int inEnableDepthTesting,
                                   int inEnableDepthWriting);

/* Use instead of glBindTexture; inTextureUnit is 0-based. */
XPLM_API void XPLMBindTexture2d(int inTextureNum, int inTextureUnit);

/* Returns the OpenGL texture name. */
XPLM_API int XPLMGetTexture(XPLMTextureID inTexture);

XPLM_API void XPLMDrawTranslucentDarkBox(int inLeft, int inTop, int inRight, int inBottom);

/* inColorRGB holds 3 floats; the position is the lower-left pixel; inWordWrapWidth NULL = none. */
XPLM_API void XPLMDrawString(float* inColorRGB,
                             int inXOffset,
                             int inYOffset,
                             const char* inChar,
                             int* inWordWrapWidth,
                             XPLMFontID inFontID);

/* Out-pointers may be NULL. */
XPLM_API void XPLMGetFontDimensions(XPLMFontID inFontID,
                                    int* outCharWidth,
                                    int* outCharHeight,
                                    int* outDigitsOnly);

#if defined(XPLM200)
XPLM_API float XPLMMeasureString(XPLMFontID inFontID, const char* inChar, int inNumChars);
#endif

#ifdef __cplusplus
}
#endif

#endif /* _XPLMGraphics_h_ */
