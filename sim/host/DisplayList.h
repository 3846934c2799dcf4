// What one draw of the simulator's screen produced: every visible root widget (with its visible
// descendants) and every visible plug-in window, back to front, each with what its drawing code
// drew. Tests and the screenshot writer read it; nothing here refers to live handles afterwards.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace sim {

struct ScreenRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool Contains(int x, int y) const;  // edges included, either orientation
};

using Rgba = std::array<float, 4>;

// An XPLMDrawString call: the lower-left pixel of the first character, the text and its colour.
struct DrawnText {
  int x = 0;
  int y = 0;
  std::string text;
  Rgba colour{1, 1, 1, 1};
  int font = 0;
};

struct DrawnVertex {
  float x = 0;
  float y = 0;
  float s = 0;  // texture coordinates (meaningful when the primitive is textured)
  float t = 0;
  Rgba colour{1, 1, 1, 1};
};

// A glBegin/glEnd block (or a glRect, or a translucent dark box). `textured` tells whether the
// graphics state had a texture unit enabled; `texture` is the texture bound to unit 0.
struct DrawnPrimitive {
  int mode = 0;  // GL_QUADS, GL_LINES ...
  std::vector<DrawnVertex> vertices;
  bool textured = false;
  int texture = 0;
  float lineWidth = 1;
};

// XPDrawWindow (isWindow) or XPDrawElement.
struct DrawnElement {
  bool isWindow = false;
  int style = 0;
  ScreenRect rect;
  bool lit = false;
};

enum class DisplayItemKind { Widget, Window };

struct DisplayItem {
  DisplayItemKind kind = DisplayItemKind::Widget;
  void* handle = nullptr;  // the widget or window, for tests that look for one
  int depth = 0;           // 0 for a root widget or a window, parent depth + 1 for a child
  ScreenRect geometry;
  int widgetClass = 0;     // xpWidgetClass_None for custom widgets and for windows
  bool custom = false;     // made with XPCreateCustomWidget
  std::string descriptor;
  std::map<int, std::intptr_t> properties;
  std::vector<DrawnText> texts;
  std::vector<DrawnPrimitive> primitives;
  std::vector<DrawnElement> elements;
};

struct DisplayList {
  int screenWidth = 0;
  int screenHeight = 0;
  std::vector<DisplayItem> items;  // back to front
};

}  // namespace sim
