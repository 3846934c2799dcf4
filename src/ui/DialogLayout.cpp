#include "ui/DialogLayout.h"

#include <algorithm>

#include "ui/PopupList.h"

namespace drav {

namespace {

// The room the designed layout gives each column, and the gaps it keeps between them.
constexpr int kDevicePopupWidth = 120;
constexpr int kDeviceToCaptionGap = 20;
constexpr int kCaptionWidth = 100;
constexpr int kCaptionToColourOffset = 80;  // a colour pop-up starts this far into the caption column
constexpr int kColourPopupWidth = 70;
constexpr int kColumnGap = 10;
constexpr int kFunctionPopupWidth = 300;
constexpr int kRightMargin = 40;

}  // namespace

DialogColumns LayoutDialogColumns(const DialogTextWidths& widths, int requestedWidth) {
  const DialogColumns designed;
  DialogColumns c;
  c.deviceRight = c.deviceLeft + std::max(kDevicePopupWidth, PopupWidthFor(widths.device));
  c.captionLeft = std::max(designed.captionLeft, c.deviceRight + kDeviceToCaptionGap);
  c.captionRight = c.captionLeft + std::max(kCaptionWidth, widths.caption);
  c.colourLeft = c.captionLeft + std::max(kCaptionToColourOffset, widths.colourCaption + kColumnGap);
  c.colourRight = c.colourLeft + std::max(kColourPopupWidth, PopupWidthFor(widths.colourItem));
  c.functionLeft = std::max({designed.functionLeft, c.captionRight + kColumnGap, c.colourRight + kColumnGap});
  c.functionRight = c.functionLeft + std::max(kFunctionPopupWidth, PopupWidthFor(widths.functionItem));
  c.sliderShift = c.functionLeft - designed.functionLeft;
  c.windowWidth = std::max(requestedWidth, c.functionRight + kRightMargin);
  return c;
}

}  // namespace drav
