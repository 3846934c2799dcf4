// What a pilot can ask of the plug-in by name: from the Plugins > Drav menu, from a key or joystick
// button bound to one of the plug-in's commands, or from another plug-in running that command. The
// menu and the commands both come here, so they always do the same thing.
#pragma once

namespace drav {

// The Assign Functions dialog, at the size the menu has always opened it.
void OpenAssignFunctions();
void CloseAssignFunctions();
void ToggleAssignFunctions();

// Reads DRAV.INI again: the DEBUG switches and CONFIG settings take effect at once, and every
// unit's assignments are loaded anew (an open dialog shows the file's values again).
void ReloadConfiguration();

// Stops the panels and enumerates them again, as an enable does, then loads their assignments:
// units the device layer missed (or that a driver held) are picked up without a restart. Does
// nothing while the plug-in is disabled.
void RescanPanels();

}  // namespace drav
