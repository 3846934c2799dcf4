// The standard widget classes' message functions (main window, sub window, button, text field,
// scroll bar, caption, general graphics, progress) and the look they share with the screenshot
// writer and the host's pilot actions: where a main window's close box is, how a slider maps the
// mouse to its position.
#pragma once

#include <XPWidgetDefs.h>

#include "host/DisplayList.h"

namespace sim {

// Null for a class the library does not have.
XPWidgetFunc_t StandardClassFunction(int widgetClass);

inline constexpr int kTitleBarHeight = 18;  // a main window's drag bar, inside its geometry
inline constexpr int kSliderThumbWidth = 10;

ScreenRect CloseBoxRect(const ScreenRect& window);
ScreenRect TitleBarRect(const ScreenRect& window);

// A slider's axis runs along its longer side; the thumb's centre travels from one end to the other
// less half a thumb at each end. Positions are clamped to the range (min and max in either order).
int SliderPositionAt(const ScreenRect& bar, int min, int max, int x, int y);
// The point whose position is `position` (clamped), on the bar's centre line.
void SliderPointFor(const ScreenRect& bar, int min, int max, int position, int* x, int* y);

}  // namespace sim
