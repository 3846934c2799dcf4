#ifndef _XPWidgetUtils_h_
#define _XPWidgetUtils_h_

/*
 * Behaviours a custom widget callback can delegate to, passing on its own message and
 * parameters.
 */

#include "XPWidgetDefs.h"

#ifdef __cplusplus
extern "C" {
#endif

WIDGET_API int XPUSelectIfNeeded(XPWidgetMessage inMessage,
                                 XPWidgetID inWidget,
                                 intptr_t inParam1,
                                 intptr_t inParam2,
                                 int inEatClick);

WIDGET_API int XPUDefocusKeyboard(XPWidgetMessage inMessage,
                                  XPWidgetID inWidget,
                                  intptr_t inParam1,
                                  intptr_t inParam2,
                                  int inEatClick);

WIDGET_API int XPUDragWidget(XPWidgetMessage inMessage,
                             XPWidgetID inWidget,
                             intptr_t inParam1,
                             intptr_t inParam2,
                             int inLeft,
                             int inTop,
                             int inRight,
                             int inBottom);

#ifdef __cplusplus
}
#endif

#endif /* _XPWidgetUtils_h_ */
