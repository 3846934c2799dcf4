#include "plugin/SplashWindow.h"

#include <XPLMDisplay.h>
#include <XPLMGraphics.h>

#include <cstdio>

#include "base/Version.h"

namespace drav {

const char* const kSplashText = "Drav cockpit panels for X-Plane - the Drav developers - 2026 - " DRAV_VERSION " (MR)";

namespace {

XPLMWindowID gSplashWindow = nullptr;
char gSplashText[256] = "";
int gHideSplashText = 0;

void DrawSplash(XPLMWindowID window, void* /*refcon*/) {
  int left = 0, top = 0, right = 0, bottom = 0;
  XPLMGetWindowGeometry(window, &left, &top, &right, &bottom);
  XPLMDrawTranslucentDarkBox(left, top, right, bottom);
  float white[3] = {1.0f, 1.0f, 1.0f};
  XPLMDrawString(white, left + 5, top - 20, gHideSplashText != 0 ? const_cast<char*>("") : gSplashText,
                 nullptr, xplmFont_Basic);
}

void IgnoreKey(XPLMWindowID, char, XPLMKeyFlags, char, void*, int) {}

// A press and a release each flip the text; a drag leaves it. Every click is ours.
int ToggleTextOnClick(XPLMWindowID, int, int, XPLMMouseStatus status, void*) {
  if (status == xplm_MouseDown || status == xplm_MouseUp) gHideSplashText = gHideSplashText != 0 ? 0 : 1;
  return 1;
}

}  // namespace

void CreateSplashWindow() {
  gSplashText[0] = '\0';
  gHideSplashText = 0;
  gSplashWindow = XPLMCreateWindow(600, 730, 1000, 680, 1, DrawSplash, IgnoreKey, ToggleTextOnClick,
                                   nullptr);
}

bool SplashWindowExists() { return gSplashWindow != nullptr; }

void DestroySplashWindow() {
  if (gSplashWindow == nullptr) return;
  XPLMDestroyWindow(gSplashWindow);
  gSplashWindow = nullptr;
}

void SetSplashText() { std::snprintf(gSplashText, sizeof gSplashText, "%s", kSplashText); }

}  // namespace drav
