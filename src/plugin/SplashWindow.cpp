#include "plugin/SplashWindow.h"

#include <XPLMDisplay.h>
#include <XPLMGraphics.h>

#include <cstdio>

#include "base/Version.h"
#include "plugin/PluginState.h"

namespace drav {

const char* const kSplashText = "Drav cockpit panels for X-Plane - the Drav developers - 2026 - " DRAV_VERSION " (MR)";

namespace {

SplashWindowState& Splash() { return CurrentPluginState().splash; }

SplashWindowState& SplashOf(void* refcon) { return *static_cast<SplashWindowState*>(refcon); }

void DrawSplash(XPLMWindowID window, void* refcon) {
  SplashWindowState& splash = SplashOf(refcon);
  int left = 0, top = 0, right = 0, bottom = 0;
  XPLMGetWindowGeometry(window, &left, &top, &right, &bottom);
  XPLMDrawTranslucentDarkBox(left, top, right, bottom);
  float white[3] = {1.0f, 1.0f, 1.0f};
  XPLMDrawString(white, left + 5, top - 20, splash.hideText != 0 ? const_cast<char*>("") : splash.text,
                 nullptr, xplmFont_Basic);
}

void IgnoreKey(XPLMWindowID, char, XPLMKeyFlags, char, void*, int) {}

// A press and a release each flip the text; a drag leaves it. Every click is ours.
int ToggleTextOnClick(XPLMWindowID, int, int, XPLMMouseStatus status, void* refcon) {
  SplashWindowState& splash = SplashOf(refcon);
  if (status == xplm_MouseDown || status == xplm_MouseUp) splash.hideText = splash.hideText != 0 ? 0 : 1;
  return 1;
}

}  // namespace

void CreateSplashWindow() {
  SplashWindowState& splash = Splash();
  splash.text[0] = '\0';
  splash.hideText = 0;
  splash.window = XPLMCreateWindow(600, 730, 1000, 680, 1, DrawSplash, IgnoreKey, ToggleTextOnClick, &splash);
}

bool SplashWindowExists() { return Splash().window != nullptr; }

void DestroySplashWindow() {
  SplashWindowState& splash = Splash();
  if (splash.window == nullptr) return;
  XPLMDestroyWindow(splash.window);
  splash.window = nullptr;
}

void SetSplashText() { std::snprintf(Splash().text, sizeof Splash().text, "%s", kSplashText); }

}  // namespace drav
