// A tiny stand-in for the plug-in's Assign Functions dialog, built with the widget API, so the
// dialog commands can be tested against widgets that behave like the real ones: a main window with
// a close box, pop-up lists that open a menu window (paged with Page Down, items "(x" disabled),
// captions, and a slider row whose value label follows the slider.
#pragma once

#include <string>
#include <vector>

#include "ui/AssignDialog.h"

namespace dravsim::testing {

struct TestDialogOptions {
  int menuPageSize = 30;  // items the menu shows at once
  bool pageDownWorks = true;
};

// Builds the dialog (replacing one that is open) and points the dialog commands at it.
void OpenTestDialog(const TestDialogOptions& options = {});
void ForgetTestDialog();  // the commands look at the plug-in's dialog again
const drav::AssignDialogWidgets& TestDialog();

// What the dialog's callbacks heard: "pick <row> <index>", "colour <row> <index>",
// "device <index>", "slider <row> <position>", "close".
std::vector<std::string>& TestDialogEvents();

}  // namespace dravsim::testing
