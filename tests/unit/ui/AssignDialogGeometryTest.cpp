// Where the Assign Functions dialog opens: centred on the design screen, at least as large as asked.
// The scenarios read the dialog's texts and rows, not its pixels, so only this sees its place.
#include <gtest/gtest.h>

#include <cstdlib>

#include "UiTestSupport.h"
#include "ui/AssignDialog.h"

namespace drav {
namespace {

using uitest::UiTest;

sim::ScreenRect Geometry(XPWidgetID widget) {
  const auto snapshot = sim::SimHost::Current().DescribeWidget(widget);
  return snapshot ? snapshot->geometry : sim::ScreenRect{};
}

class AssignDialogGeometryTest : public UiTest {};

TEST_F(AssignDialogGeometryTest, OpensCentredOnTheDesignScreen) {
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  AssignDialogWidgets widgets;
  ASSERT_TRUE(GetAssignDialogWidgets(widgets));
  const sim::ScreenRect window = Geometry(widgets.mainWindow);
  // 1024 x 768: 59 pixels above and below a 650 pixel high window.
  EXPECT_EQ(window.top, 709);
  EXPECT_EQ(window.bottom, 59);
  EXPECT_GE(window.right - window.left, 650);
  EXPECT_LE(std::abs((window.left + window.right) - 1024), 1);
  // The device pop-up and the rows sit inside it.
  const sim::ScreenRect devices = Geometry(widgets.devicePopup);
  EXPECT_GT(devices.left, window.left);
  EXPECT_LT(devices.top, window.top);
  const sim::ScreenRect row = Geometry(widgets.functionPopup[2]);
  EXPECT_LE(row.right, window.right);
  EXPECT_GT(row.bottom, window.bottom);
}

}  // namespace
}  // namespace drav
