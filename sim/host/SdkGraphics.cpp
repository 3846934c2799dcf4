// XPLMGraphics.h. Nothing is rendered: what a window or widget draws is recorded into its item of
// the display list, and the graphics state is kept for the OpenGL calls that follow.
#include <XPLMGraphics.h>

#include <cstring>
#include <iterator>

#include "host/SdkHost.h"

using sim::SdkHost;

namespace {

// XPLMGetFontDimensions answers the monospaced 8 x 12 pixel cell of the classic UI font; X-Plane
// calls that width an average for its proportional fonts, and so does the simulator.
constexpr int kCharWidth = 8;
constexpr int kCharHeight = 12;

// X-Plane 12 draws its UI text in a proportional sans face, so a measured string is narrower than
// its character count suggests when it is lower case, and wider when it is capitals (an identifier
// such as "AP_STATE_ALTITUDE_HOLD_ENGAGED" is). The advances are those of DejaVu Sans, in 1/2048 em,
// for the characters ' ' to '~', drawn at 12 pixels; any other byte is as wide as a digit.
constexpr int kEmUnits = 2048;
constexpr int kFontPixels = 12;
constexpr int kFirstAdvance = ' ';
constexpr int kAdvances[] = {
    651,  821,  942,  1716, 1303, 1946, 1597, 563,  799,  799,  1024, 1716, 651,  739,  651,  690,   //  !"#$%&'()*+,-./
    1303, 1303, 1303, 1303, 1303, 1303, 1303, 1303, 1303, 1303, 690,  690,  1716, 1716, 1716, 1087,  // 0-9:;<=>?
    2048, 1401, 1405, 1430, 1577, 1294, 1178, 1587, 1540, 604,  604,  1343, 1141, 1767, 1532, 1612,  // @A-O
    1235, 1612, 1423, 1300, 1251, 1499, 1401, 2025, 1403, 1251, 1403, 799,  690,  799,  1716, 1024,  // P-Z[\]^_
    1024, 1255, 1300, 1126, 1300, 1260, 721,  1300, 1298, 569,  569,  1186, 569,  1995, 1298, 1253,  // `a-o
    1300, 1300, 842,  1067, 803,  1298, 1212, 1675, 1212, 1212, 1075, 1303, 690,  1303, 1716,        // p-z{|}~
};
constexpr int kDigitAdvance = 1303;

int AdvanceOf(unsigned char c) {
  const int index = static_cast<int>(c) - kFirstAdvance;
  return index >= 0 && index < static_cast<int>(std::size(kAdvances)) ? kAdvances[index] : kDigitAdvance;
}

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
  long units = 0;
  for (std::size_t i = 0; i < chars; ++i) units += AdvanceOf(static_cast<unsigned char>(inChar[i]));
  return static_cast<float>(units) * kFontPixels / kEmUnits;
}
