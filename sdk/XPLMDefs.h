#ifndef _XPLMDefs_h_
#define _XPLMDefs_h_

/*
 * Basic definitions shared by every X-Plane plug-in SDK header: platform selection, the
 * import/export decorations and the few types every other header needs.
 *
 * Exactly one of APL, IBM and LIN must be defined as 1 (the others 0 or undefined).
 */

#if ((defined(APL) && APL) + (defined(IBM) && IBM) + (defined(LIN) && LIN)) != 1
#error "Exactly one of APL, IBM and LIN must be defined as 1 before including the SDK headers."
#endif

#if defined(IBM) && IBM
#include <windows.h>
#endif
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Decorations for the functions a plug-in exports to X-Plane. */
#if defined(IBM) && IBM
#ifdef __cplusplus
#define PLUGIN_API extern "C" __declspec(dllexport)
#else
#define PLUGIN_API __declspec(dllexport)
#endif
#else
#if defined(__GNUC__) && __GNUC__ >= 4
#ifdef __cplusplus
#define PLUGIN_API extern "C" __attribute__((visibility("default")))
#else
#define PLUGIN_API __attribute__((visibility("default")))
#endif
#else
#ifdef __cplusplus
#define PLUGIN_API extern "C"
#else
#define PLUGIN_API
#endif
#endif
#endif

/* Decorations for the functions a plug-in imports from the XPLM and XPWidgets libraries. */
#if defined(IBM) && IBM
#define XPLM_API __declspec(dllimport)
#define WIDGET_API __declspec(dllimport)
#else
#define XPLM_API
#define WIDGET_API
#endif

/* Identifies a plug-in; X-Plane itself is plug-in 0. */
typedef int XPLMPluginID;

#define XPLM_NO_PLUGIN_ID (-1)
#define XPLM_PLUGIN_XPLANE (0)

/* Modifier and transition bits passed with keystrokes. */
enum {
    xplm_ShiftFlag = 1,
    xplm_OptionAltFlag = 2,
    xplm_ControlFlag = 4,
    xplm_DownFlag = 8,
    xplm_UpFlag = 16
#if defined(XPLM440)
    ,
    xplm_CapsLockFlag = 32
#endif
};
typedef int XPLMKeyFlags;

#ifdef __cplusplus
}
#endif

#endif /* _XPLMDefs_h_ */
