#include "host/WindowRegistry.h"

#include <algorithm>

namespace sim {

WindowRegistry::Window* WindowRegistry::Live(XPLMWindowID window) {
  Window* found = windows_.Find(window);
  return found != nullptr && found->alive ? found : nullptr;
}

const WindowRegistry::Window* WindowRegistry::Live(XPLMWindowID window) const {
  const Window* found = windows_.Find(window);
  return found != nullptr && found->alive ? found : nullptr;
}

XPLMWindowID WindowRegistry::Create(const WindowGeometry& geometry, bool visible,
                                    const WindowCallbacks& callbacks, void* refcon) {
  return windows_.HandleOf(windows_.Add(Window{true, geometry, visible, callbacks, refcon}));
}

void WindowRegistry::Destroy(XPLMWindowID window) {
  Window* target = Live(window);
  if (target == nullptr) return;
  target->alive = false;
  if (focus_ == window) focus_ = nullptr;
  if (mouseCapture_ == window) mouseCapture_ = nullptr;
}

int WindowRegistry::Count() const {
  int count = 0;
  for (std::size_t i = 0; i < windows_.Size(); ++i) count += windows_.At(i).alive ? 1 : 0;
  return count;
}

bool WindowRegistry::Geometry(XPLMWindowID window, WindowGeometry* out) const {
  const Window* target = Live(window);
  if (target == nullptr) return false;
  *out = target->geometry;
  return true;
}

bool WindowRegistry::IsVisible(XPLMWindowID window) const {
  const Window* target = Live(window);
  return target != nullptr && target->visible;
}

void WindowRegistry::SetVisible(XPLMWindowID window, bool visible) {
  if (Window* target = Live(window)) target->visible = visible;
}

void* WindowRegistry::Refcon(XPLMWindowID window) const {
  const Window* target = Live(window);
  return target != nullptr ? target->refcon : nullptr;
}

void WindowRegistry::SetRefcon(XPLMWindowID window, void* refcon) {
  if (Window* target = Live(window)) target->refcon = refcon;
}

void WindowRegistry::TakeKeyboardFocus(XPLMWindowID window) {
  if (window != nullptr && Live(window) == nullptr) return;
  const XPLMWindowID previous = focus_;
  focus_ = window;
  if (previous == nullptr || previous == window) return;
  if (const Window* losing = Live(previous); losing != nullptr && losing->callbacks.key != nullptr) {
    losing->callbacks.key(previous, 0, 0, 0, losing->refcon, 1);
  }
}

bool WindowRegistry::HasKeyboardFocus(XPLMWindowID window) const {
  return window != nullptr && window == focus_ && Live(window) != nullptr;
}

bool WindowRegistry::SendKey(char key, int flags, char virtualKey) {
  const XPLMWindowID target = Focus();
  const Window* window = Live(target);
  if (window == nullptr) return false;
  if (window->callbacks.key != nullptr) {
    window->callbacks.key(target, key, flags, virtualKey, window->refcon, 0);
  }
  return true;
}

void WindowRegistry::DrawAll(DrawRecorder& recorder, std::vector<DisplayItem>& out) {
  if (drawing_) return;
  drawing_ = true;
  // By index: a draw callback may create or destroy windows.
  for (std::size_t i = 0; i < windows_.Size(); ++i) {
    const Window& window = windows_.At(i);
    if (!window.alive || !window.visible || window.callbacks.draw == nullptr) continue;
    DisplayItem item;
    item.kind = DisplayItemKind::Window;
    item.handle = windows_.HandleOf(i);
    item.geometry = ScreenRect{window.geometry.left, window.geometry.top, window.geometry.right,
                               window.geometry.bottom};
    out.push_back(std::move(item));
    recorder.Begin(&out.back());
    window.callbacks.draw(windows_.HandleOf(i), window.refcon);
    recorder.End();
  }
  drawing_ = false;
}

XPLMWindowID WindowRegistry::WindowAt(int x, int y) const {
  for (std::size_t i = windows_.Size(); i-- > 0;) {
    const Window& window = windows_.At(i);
    if (!window.alive || !window.visible) continue;
    const WindowGeometry& g = window.geometry;
    const bool insideX = x >= std::min(g.left, g.right) && x <= std::max(g.left, g.right);
    const bool insideY = y >= std::min(g.bottom, g.top) && y <= std::max(g.bottom, g.top);
    if (insideX && insideY) return windows_.HandleOf(i);
  }
  return nullptr;
}

int WindowRegistry::Click(int x, int y, int mouseStatus) {
  XPLMWindowID target = nullptr;
  if (mouseStatus == xplm_MouseDown) {
    target = WindowAt(x, y);
  } else {
    target = mouseCapture_ != nullptr ? mouseCapture_ : WindowAt(x, y);
  }
  const Window* window = Live(target);
  if (window == nullptr || window->callbacks.mouse == nullptr) return 0;
  const int result = window->callbacks.mouse(target, x, y, mouseStatus, window->refcon);
  if (mouseStatus == xplm_MouseDown) mouseCapture_ = result != 0 ? target : nullptr;
  if (mouseStatus == xplm_MouseUp) mouseCapture_ = nullptr;
  return result;
}

}  // namespace sim
