// XPLMDisplay.h: the plug-in's windows on the simulator's screen (1024 x 768 unless a test sets
// another size).
#include <XPLMDisplay.h>

#include <cstddef>

#include "host/SdkHost.h"

using sim::SdkHost;

namespace {

// XPLMCreateWindow_t grew over SDK versions; these fields are in every version that has it.
constexpr int kSmallestCreateWindowStruct =
    static_cast<int>(offsetof(XPLMCreateWindow_t, refcon) + sizeof(void*));

}  // namespace

XPLMWindowID XPLMCreateWindow(int inLeft, int inTop, int inRight, int inBottom, int inIsVisible,
                              XPLMDrawWindow_f inDrawCallback, XPLMHandleKey_f inKeyCallback,
                              XPLMHandleMouseClick_f inMouseCallback, void* inRefcon) {
  const sim::WindowCallbacks callbacks{inDrawCallback, inKeyCallback, inMouseCallback, nullptr, nullptr};
  return SdkHost().windows.Create(sim::WindowGeometry{inLeft, inTop, inRight, inBottom},
                                  inIsVisible != 0, callbacks, inRefcon);
}

// Fields past the 2.0 layout (decoration, layer, right click) are not simulated.
XPLMWindowID XPLMCreateWindowEx(XPLMCreateWindow_t* inParams) {
  if (inParams == nullptr || inParams->structSize < kSmallestCreateWindowStruct) return nullptr;
  const XPLMCreateWindow_t& p = *inParams;
  const sim::WindowCallbacks callbacks{p.drawWindowFunc, p.handleKeyFunc, p.handleMouseClickFunc,
                                       p.handleCursorFunc, p.handleMouseWheelFunc};
  return SdkHost().windows.Create(sim::WindowGeometry{p.left, p.top, p.right, p.bottom},
                                  p.visible != 0, callbacks, p.refcon);
}

void XPLMDestroyWindow(XPLMWindowID inWindowID) { SdkHost().windows.Destroy(inWindowID); }

void XPLMGetScreenSize(int* outWidth, int* outHeight) {
  if (outWidth != nullptr) *outWidth = SdkHost().screenWidth;
  if (outHeight != nullptr) *outHeight = SdkHost().screenHeight;
}

void XPLMGetWindowGeometry(XPLMWindowID inWindowID, int* outLeft, int* outTop, int* outRight,
                           int* outBottom) {
  sim::WindowGeometry geometry;
  if (!SdkHost().windows.Geometry(inWindowID, &geometry)) return;
  if (outLeft != nullptr) *outLeft = geometry.left;
  if (outTop != nullptr) *outTop = geometry.top;
  if (outRight != nullptr) *outRight = geometry.right;
  if (outBottom != nullptr) *outBottom = geometry.bottom;
}

int XPLMGetWindowIsVisible(XPLMWindowID inWindowID) {
  return SdkHost().windows.IsVisible(inWindowID) ? 1 : 0;
}

void XPLMSetWindowIsVisible(XPLMWindowID inWindowID, int inIsVisible) {
  SdkHost().windows.SetVisible(inWindowID, inIsVisible != 0);
}

void* XPLMGetWindowRefCon(XPLMWindowID inWindowID) { return SdkHost().windows.Refcon(inWindowID); }

void XPLMSetWindowRefCon(XPLMWindowID inWindowID, void* inRefcon) {
  SdkHost().windows.SetRefcon(inWindowID, inRefcon);
}

// One keyboard: a window that takes it takes it from any widget.
void XPLMTakeKeyboardFocus(XPLMWindowID inWindow) {
  sim::SimHostImpl& host = SdkHost();
  host.windows.TakeKeyboardFocus(inWindow);
  if (host.windows.HasKeyboardFocus(inWindow)) host.widgets.LoseFocus(host.widgets.Focus());
}

int XPLMHasKeyboardFocus(XPLMWindowID inWindow) {
  return SdkHost().windows.HasKeyboardFocus(inWindow) ? 1 : 0;
}
