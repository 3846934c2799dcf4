// Drawing pieces of the simulator's interface texture (a 512 x 512 image of buttons, frames and
// boxes), so that the plug-in's own controls look like the simulator's.
#pragma once

namespace drav {

// A piece of the texture cut in three columns and three rows (texel edges, left to right and
// bottom to top). The corners keep their size, the edges and the centre stretch.
struct NinePartPiece {
  int columns[4];
  int rows[4];
};

// The pop-up button and the pick menu's box.
inline constexpr NinePartPiece kPopupButtonPiece = {{357, 369, 399, 425}, {486, 494, 500, 512}};
inline constexpr NinePartPiece kMenuBoxPiece = {{70, 82, 100, 112}, {315, 329, 339, 357}};

// From X-Plane 7 on the interface texture holds these pieces.
inline constexpr int kInterfaceTextureVersion = 700;
bool HasInterfaceTexture();

// Binds the interface texture and draws the piece over the rectangle in white at `alpha`.
void DrawInterfacePiece(const NinePartPiece& piece, int left, int bottom, int right, int top, float alpha = 1.0f);

// Back to untextured drawing with blending, for flat boxes and lines.
void SetFlatDrawing();

}  // namespace drav
