// The small window that greets the pilot after the plug-in starts and goes away by itself on the
// seventh half-second tick. A click hides or shows its text.
#pragma once

namespace drav {

void CreateSplashWindow();
bool SplashWindowExists();
void DestroySplashWindow();
// Fills the text buffer (empty until the first refresh tick has loaded the assignments).
void SetSplashText();

// The one-line text the window shows once the assignments are loaded.
extern const char* const kSplashText;

}  // namespace drav
