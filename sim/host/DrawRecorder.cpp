#include "host/DrawRecorder.h"

#include <GL/gl.h>

#include <algorithm>
#include <string>
#include <utility>

namespace sim {

bool ScreenRect::Contains(int x, int y) const {
  return x >= std::min(left, right) && x <= std::max(left, right) && y >= std::min(bottom, top) &&
         y <= std::max(bottom, top);
}

void DrawRecorder::BindTexture(int texture, int unit) {
  if (unit == 0) boundTexture_ = texture;  // the recorded primitives only ever use unit 0
}

void DrawRecorder::BeginPrimitive(int mode) {
  // A glBegin inside glBegin is a GL error that the driver ignores; so do we.
  if (inPrimitive_) return;
  inPrimitive_ = true;
  primitive_ = DrawnPrimitive{mode, {}, textured_, boundTexture_, lineWidth_};
}

void DrawRecorder::EndPrimitive() {
  if (!inPrimitive_) return;
  inPrimitive_ = false;
  if (target_ != nullptr && !primitive_.vertices.empty()) {
    target_->primitives.push_back(std::move(primitive_));
  }
  primitive_ = DrawnPrimitive{};
}

void DrawRecorder::Vertex(float x, float y) {
  // Vertices outside glBegin/glEnd are ignored by GL too.
  if (!inPrimitive_ || target_ == nullptr) return;
  primitive_.vertices.push_back(DrawnVertex{x, y, s_, t_, colour_});
}

void DrawRecorder::Rect(float x1, float y1, float x2, float y2) {
  if (target_ == nullptr || inPrimitive_) return;
  DrawnPrimitive quad{GL_QUADS, {}, false, 0, lineWidth_};
  for (const auto& [x, y] : {std::pair{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}) {
    quad.vertices.push_back(DrawnVertex{x, y, 0, 0, colour_});
  }
  target_->primitives.push_back(std::move(quad));
}

void DrawRecorder::Text(int x, int y, std::string_view text, const float* rgb, int font) {
  if (target_ == nullptr) return;
  Rgba colour{1, 1, 1, 1};
  if (rgb != nullptr) colour = Rgba{rgb[0], rgb[1], rgb[2], 1};
  target_->texts.push_back(DrawnText{x, y, std::string(text), colour, font});
}

void DrawRecorder::Element(const DrawnElement& element) {
  if (target_ != nullptr) target_->elements.push_back(element);
}

void DrawRecorder::Box(const ScreenRect& rect, const Rgba& colour) {
  if (target_ == nullptr) return;
  DrawnPrimitive quad{GL_QUADS, {}, false, 0, lineWidth_};
  const float l = static_cast<float>(rect.left), r = static_cast<float>(rect.right);
  const float t = static_cast<float>(rect.top), b = static_cast<float>(rect.bottom);
  for (const auto& [x, y] : {std::pair{l, b}, {r, b}, {r, t}, {l, t}}) {
    quad.vertices.push_back(DrawnVertex{x, y, 0, 0, colour});
  }
  target_->primitives.push_back(std::move(quad));
}

}  // namespace sim
