// The Assign Functions dialog, opened from the plug-in's menu. The host opens it and closes it when
// what it shows goes stale (x737 messages, panels taken over by another plug-in).
#pragma once

namespace drav {

bool IsAssignDialogOpen();
// Opens the dialog at that size unless it is already open. Returns whether a dialog is open after.
bool OpenAssignDialog(int width, int height);
// Destroys the dialog with its widgets, if it is open.
void CloseAssignDialog();

}  // namespace drav
