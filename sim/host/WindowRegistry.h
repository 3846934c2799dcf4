// The plug-in's windows: geometry, visibility, callbacks and keyboard focus, plus a draw pass that
// captures the strings each window draws.
#pragma once

#include <XPLMDisplay.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/SlotTable.h"

namespace sim {

struct WindowGeometry {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

struct WindowCallbacks {
  XPLMDrawWindow_f draw = nullptr;
  XPLMHandleKey_f key = nullptr;
  XPLMHandleMouseClick_f mouse = nullptr;
  XPLMHandleCursor_f cursor = nullptr;
  XPLMHandleMouseWheel_f wheel = nullptr;
};

class WindowRegistry {
 public:
  explicit WindowRegistry(std::uint16_t generation) : windows_(HandleKind::Window, generation) {}

  XPLMWindowID Create(const WindowGeometry& geometry, bool visible, const WindowCallbacks& callbacks,
                      void* refcon);
  void Destroy(XPLMWindowID window);
  int Count() const;

  bool Geometry(XPLMWindowID window, WindowGeometry* out) const;  // false for a bad handle
  bool IsVisible(XPLMWindowID window) const;
  void SetVisible(XPLMWindowID window, bool visible);
  void* Refcon(XPLMWindowID window) const;
  void SetRefcon(XPLMWindowID window, void* refcon);

  // The window that loses the keyboard hears of it through its key callback (losingFocus 1).
  void TakeKeyboardFocus(XPLMWindowID window);  // null: back to X-Plane
  bool HasKeyboardFocus(XPLMWindowID window) const;

  // Runs each visible window's draw callback, in creation order, and returns the strings drawn.
  std::vector<std::string> DrawAll();
  // XPLMDrawString: kept only while a draw callback runs.
  void CaptureString(const char* text);

  // The front-most visible window holding (x, y) gets the mouse down; drags and the release go to
  // the window that took the down, as in X-Plane. Returns the callback's result, 0 when none.
  int Click(int x, int y, int mouseStatus);

 private:
  struct Window {
    bool alive = true;
    WindowGeometry geometry;
    bool visible = false;
    WindowCallbacks callbacks;
    void* refcon = nullptr;
  };

  Window* Live(XPLMWindowID window);
  const Window* Live(XPLMWindowID window) const;
  XPLMWindowID WindowAt(int x, int y) const;

  SlotTable<Window> windows_;
  XPLMWindowID focus_ = nullptr;
  XPLMWindowID mouseCapture_ = nullptr;
  std::vector<std::string>* drawnStrings_ = nullptr;  // set while DrawAll runs
};

}  // namespace sim
