// XPLMGraphics.h. Nothing is rendered: strings drawn inside a window's draw callback are captured,
// everything else only has to be harmless.
#include <XPLMGraphics.h>

#include <cstring>

#include "host/SdkHost.h"

using sim::SdkHost;

namespace {

// Every font is measured as the basic UI font: a monospaced 8 x 12 pixel cell.
constexpr int kCharWidth = 8;
constexpr int kCharHeight = 12;

}  // namespace

void XPLMSetGraphicsState(int /*inEnableFog*/, int /*inNumberTexUnits*/, int /*inEnableLighting*/,
                          int /*inEnableAlphaTesting*/, int /*inEnableAlphaBlending*/,
                          int /*inEnableDepthTesting*/, int /*inEnableDepthWriting*/) {}

void XPLMBindTexture2d(int /*inTextureNum*/, int /*inTextureUnit*/) {}

int XPLMGetTexture(XPLMTextureID /*inTexture*/) { return 0; }  // no OpenGL texture exists

void XPLMDrawTranslucentDarkBox(int /*inLeft*/, int /*inTop*/, int /*inRight*/, int /*inBottom*/) {}

void XPLMDrawString(float* /*inColorRGB*/, int /*inXOffset*/, int /*inYOffset*/, const char* inChar,
                    int* /*inWordWrapWidth*/, XPLMFontID /*inFontID*/) {
  SdkHost().windows.CaptureString(inChar);
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
