#include "ui/AssignDialog.h"

namespace drav {

namespace {
// The dialog's widgets are not built yet (they need the widget library), so the dialog never opens
// and the flag stays clear: the menu item does nothing rather than pretend.
bool gDialogOpen = false;
}  // namespace

bool IsAssignDialogOpen() { return gDialogOpen; }

bool OpenAssignDialog(int /*width*/, int /*height*/) { return gDialogOpen; }

void CloseAssignDialog() { gDialogOpen = false; }

bool GetAssignDialogWidgets(AssignDialogWidgets& /*out*/) { return false; }

}  // namespace drav
