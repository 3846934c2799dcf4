#include "functions/AvionicDisplay.h"

#include "functions/FunctionObjects.h"

namespace drav {

// The display formats arrive with the avionic formatting; until then an avionic function shows no
// text, so a display bound to one stays blank rather than showing something wrong.
void FormatAvionicDisplay(AvionicFunction& function) { function.text[0] = '\0'; }

}  // namespace drav
