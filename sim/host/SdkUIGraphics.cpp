// XPUIGraphics.h: windows and interface elements are recorded into the display item being drawn;
// their default sizes are those of X-Plane's classic interface texture.
#include <XPUIGraphics.h>

#include <algorithm>

#include "host/SdkHost.h"

namespace {

struct ElementSize {
  int style;
  int width;
  int height;
  bool canBeLit;
};

constexpr ElementSize kElementSizes[] = {
    {xpElement_TextField, 6, 20, false},           {xpElement_CheckBox, 16, 16, true},
    {xpElement_CheckBoxLit, 16, 16, true},         {xpElement_WindowCloseBox, 12, 12, false},
    {xpElement_WindowCloseBoxPressed, 12, 12, false}, {xpElement_PushButton, 16, 20, true},
    {xpElement_PushButtonLit, 16, 20, true},       {xpElement_ScrollBar, 16, 16, false},
    {xpElement_TextFieldMiddle, 6, 20, false},     {xpElement_LittleDownArrow, 12, 10, false},
    {xpElement_LittleUpArrow, 12, 10, false},      {xpElement_WindowDragBar, 16, 16, false},
    {xpElement_WindowDragBarSmooth, 16, 26, false},
};
constexpr ElementSize kMapSymbolSize{0, 16, 16, false};  // airports, navaids and the like

struct WindowSize {
  int style;
  int width;
  int height;
};
constexpr WindowSize kWindowSizes[] = {
    {xpWindow_Help, 64, 64},     {xpWindow_MainWindow, 64, 40}, {xpWindow_SubWindow, 32, 32},
    {xpWindow_Screen, 32, 32},   {xpWindow_ListView, 32, 32},
};

sim::DrawnElement Element(bool isWindow, int style, int x1, int y1, int x2, int y2, bool lit) {
  // The calls take two corners in any order; the record keeps left/top/right/bottom.
  return sim::DrawnElement{isWindow, style,
                           sim::ScreenRect{std::min(x1, x2), std::max(y1, y2), std::max(x1, x2),
                                           std::min(y1, y2)},
                           lit};
}

}  // namespace

void XPDrawWindow(int inX1, int inY1, int inX2, int inY2, XPWindowStyle inStyle) {
  sim::SdkHost().drawing.Element(Element(true, inStyle, inX1, inY1, inX2, inY2, false));
}

void XPGetWindowDefaultDimensions(XPWindowStyle inStyle, int* outWidth, int* outHeight) {
  const auto* found = std::find_if(std::begin(kWindowSizes), std::end(kWindowSizes),
                                   [&](const WindowSize& size) { return size.style == inStyle; });
  const WindowSize size = found != std::end(kWindowSizes) ? *found : WindowSize{inStyle, 0, 0};
  if (outWidth != nullptr) *outWidth = size.width;
  if (outHeight != nullptr) *outHeight = size.height;
}

void XPDrawElement(int inX1, int inY1, int inX2, int inY2, XPElementStyle inStyle, int inLit) {
  sim::SdkHost().drawing.Element(Element(false, inStyle, inX1, inY1, inX2, inY2, inLit != 0));
}

void XPGetElementDefaultDimensions(XPElementStyle inStyle, int* outWidth, int* outHeight,
                                   int* outCanBeLit) {
  const auto* found = std::find_if(std::begin(kElementSizes), std::end(kElementSizes),
                                   [&](const ElementSize& size) { return size.style == inStyle; });
  const ElementSize size = found != std::end(kElementSizes) ? *found : kMapSymbolSize;
  if (outWidth != nullptr) *outWidth = size.width;
  if (outHeight != nullptr) *outHeight = size.height;
  if (outCanBeLit != nullptr) *outCanBeLit = size.canBeLit ? 1 : 0;
}
