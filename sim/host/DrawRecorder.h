// The simulator's stand-in for OpenGL and the SDK's drawing calls: while a window or widget draws,
// what it draws is recorded into that item of the display list; outside a draw pass the calls only
// keep the graphics state, as they would on a real context.
#pragma once

#include <string_view>

#include "host/DisplayList.h"

namespace sim {

class DrawRecorder {
 public:
  // Drawing calls go into `item` until End. Nested begins are not allowed: the host draws items one
  // at a time.
  void Begin(DisplayItem* item) { target_ = item; }
  void End() { target_ = nullptr; }
  bool Recording() const { return target_ != nullptr; }

  // ---- the SDK's state calls
  void SetTexturing(int textureUnits) { textured_ = textureUnits > 0; }
  void BindTexture(int texture, int unit);

  // ---- OpenGL 1.x immediate mode
  void BeginPrimitive(int mode);
  void EndPrimitive();
  void Vertex(float x, float y);
  void TexCoord(float s, float t) { s_ = s; t_ = t; }
  void Colour(float r, float g, float b, float a) { colour_ = Rgba{r, g, b, a}; }
  void LineWidth(float width) { lineWidth_ = width; }
  void Rect(float x1, float y1, float x2, float y2);  // glRect: a filled quad in the current colour

  // ---- the SDK's drawing calls
  void Text(int x, int y, std::string_view text, const float* rgb, int font);
  void Element(const DrawnElement& element);
  void Box(const ScreenRect& rect, const Rgba& colour);  // an untextured quad

  const Rgba& CurrentColour() const { return colour_; }

 private:
  DisplayItem* target_ = nullptr;
  bool inPrimitive_ = false;
  DrawnPrimitive primitive_;
  Rgba colour_{1, 1, 1, 1};
  float s_ = 0;
  float t_ = 0;
  float lineWidth_ = 1;
  bool textured_ = false;
  int boundTexture_ = 0;
};

}  // namespace sim
