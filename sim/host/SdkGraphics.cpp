// XPLMGraphics.h. Nothing is rendered: what a window or widget draws is recorded into its item of
// the display list, and the graphics state is kept for the OpenGL calls that follow.
#include <XPLMGraphics.h>

#include <cstring>

#include "host/SdkHost.h"

using sim::SdkHost;

namespace {

// Every font is measured as the basic UI font: a monospaced 8 x 12 pixel cell, close to X-Plane's
// own interface font and easy to reason about in tests (a text of n characters is 8n wide).
constexpr int kCharWidth = 8;
constexpr int kCharHeight = 12;

}  // namespace

void XPLMSetGraphicsState(int /*inEnableFog*/, int inNumberTexUnits, int /*inEnableLighting*/,
                          int /*inEnableAlphaTesting*/, int /*inEnableAlphaBlending*/,
                          int /*inEnableDepthTesting*/, int /*inEnableDepthWriting*/) {
  SdkHost().drawing.SetTexturing(inNumberTexUnits);
}

void XPLMBindTexture2d(int inTextureNum, int inTextureUnit) {
  SdkHost().drawing.BindTexture(inTextureNum, inTextureUnit);
}

int XPLMGetTexture(XPLMTextureID /*inTexture*/) { return 0; }  // no OpenGL texture exists

void XPLMDrawTranslucentDarkBox(int inLeft, int inTop, int inRight, int inBottom) {
  SdkHost().drawing.Box(sim::ScreenRect{inLeft, inTop, inRight, inBottom}, sim::Rgba{0, 0, 0, 0.5f});
}

void XPLMDrawString(float* inColorRGB, int inXOffset, int inYOffset, const char* inChar,
                    int* /*inWordWrapWidth*/, XPLMFontID inFontID) {
  if (inChar == nullptr) return;
  SdkHost().drawing.Text(inXOffset, inYOffset, inChar, inColorRGB, inFontID);
}

void XPLMGetFontDimensions(XPLMFontID /*inFontID*/, int* outCharWidth, int* outCharHeight,
                           int* outDigitsOnly) {
  if (outCharWidth != nullptr) *outCharWidth = kCharWidth;
  if (outCharHeight != nullptr) *outCharHeight = kCharHeight;
  if (outDigitsOnly != nullptr) *outDigitsOnly = 0;
}

float XPLMMeasureString(XPLMFontID /*inFontID*/, const char* inChar, int inNumChars) {
  if (inChar == nullptr || inNumChars <= 0) return 0;
  const std::size_t chars = strnlen(inChar, static_cast<std::size_t>(inNumChars));
  return static_cast<float>(chars * kCharWidth);
}
