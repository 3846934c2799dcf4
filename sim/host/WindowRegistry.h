// The plug-in's windows: geometry, visibility, callbacks and keyboard focus, plus a draw pass that
// records what each window draws.
#pragma once

#include <XPLMDisplay.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/DisplayList.h"
#include "host/DrawRecorder.h"
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
  XPLMWindowID Focus() const { return Live(focus_) != nullptr ? focus_ : nullptr; }
  // A key stroke for the window with the keyboard; false when no window has it.
  bool SendKey(char key, int flags, char virtualKey);

  // Runs each visible window's draw callback, back to front (creation order), recording what it
  // draws into one display item per window. A draw callback that asks for another draw pass gets
  // nothing.
  void DrawAll(DrawRecorder& recorder, std::vector<DisplayItem>& out);

  // The front-most visible window holding (x, y) gets the mouse down; drags and the release go to
  // the window that took the down, as in X-Plane. Returns the callback's result, 0 when none.
  int Click(int x, int y, int mouseStatus);
  bool HasMouseCapture() const { return mouseCapture_ != nullptr; }
  // The front-most visible window holding (x, y), or null.
  XPLMWindowID WindowAt(int x, int y) const;

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

  SlotTable<Window> windows_;
  XPLMWindowID focus_ = nullptr;
  XPLMWindowID mouseCapture_ = nullptr;
  bool drawing_ = false;  // set while DrawAll runs
};

}  // namespace sim
