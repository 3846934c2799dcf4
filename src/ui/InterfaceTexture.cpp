#include "ui/InterfaceTexture.h"

#include <XPLMGraphics.h>

#include <GL/gl.h>

#include "base/HostState.h"

namespace drav {

namespace {

constexpr float kTextureSize = 512.0f;

// Screen edges of the three parts along one axis: the outer parts keep the texel size of the piece.
void SplitAxis(const int texels[4], int low, int high, float out[4]) {
  const int lowPart = texels[1] - texels[0];
  const int highPart = texels[3] - texels[2];
  out[0] = static_cast<float>(low);
  out[1] = static_cast<float>(low + lowPart);
  out[2] = static_cast<float>(high - highPart);
  out[3] = static_cast<float>(high);
}

}  // namespace

bool HasInterfaceTexture() { return CurrentSimulatorVersions().xplaneVersion >= kInterfaceTextureVersion; }

void DrawInterfacePiece(const NinePartPiece& piece, int left, int bottom, int right, int top, float alpha) {
  XPLMSetGraphicsState(0, 1, 0, 0, 1, 0, 0);
  XPLMBindTexture2d(XPLMGetTexture(xplm_Tex_GeneralInterface), 0);
  float x[4];
  float y[4];
  SplitAxis(piece.columns, left, right, x);
  SplitAxis(piece.rows, bottom, top, y);
  glColor4f(1.0f, 1.0f, 1.0f, alpha);
  glBegin(GL_QUADS);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      const float s0 = static_cast<float>(piece.columns[column]) / kTextureSize;
      const float s1 = static_cast<float>(piece.columns[column + 1]) / kTextureSize;
      const float t0 = static_cast<float>(piece.rows[row]) / kTextureSize;
      const float t1 = static_cast<float>(piece.rows[row + 1]) / kTextureSize;
      glTexCoord2f(s0, t0);
      glVertex2f(x[column], y[row]);
      glTexCoord2f(s0, t1);
      glVertex2f(x[column], y[row + 1]);
      glTexCoord2f(s1, t1);
      glVertex2f(x[column + 1], y[row + 1]);
      glTexCoord2f(s1, t0);
      glVertex2f(x[column + 1], y[row]);
    }
  }
  glEnd();
}

void SetFlatDrawing() { XPLMSetGraphicsState(0, 0, 0, 0, 1, 0, 0); }

}  // namespace drav
