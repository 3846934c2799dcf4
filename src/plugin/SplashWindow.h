// The small window that greets the pilot after the plug-in starts and goes away by itself on the
// seventh half-second tick. A click hides or shows its text.
#pragma once

#include <XPLMDisplay.h>

namespace drav {

// The window and what it shows (PluginState::splash); the window's callbacks get it as their
// reference constant.
struct SplashWindowState {
  XPLMWindowID window = nullptr;
  char text[256] = "";
  int hideText = 0;
  // Ticks of UpdateFlightLoop since the last enable, 0..6; the window closes on the seventh.
  int ticks = 0;
};

void CreateSplashWindow();
bool SplashWindowExists();
void DestroySplashWindow();
// Fills the text buffer (empty until the first refresh tick has loaded the assignments).
void SetSplashText();

// The one-line text the window shows once the assignments are loaded.
extern const char* const kSplashText;

}  // namespace drav
