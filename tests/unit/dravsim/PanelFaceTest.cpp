// A panel's face survives `clear`: the reports folded into it keep, in order, the last report of
// each report id and first data byte, which is all a display, light or colour check reads.
#include <gtest/gtest.h>

#include "dravsim/PanelBoard.h"

namespace dravsim {
namespace {

using Kind = drav::VirtualSentReport::Kind;

drav::VirtualSentReport Report(Kind kind, std::vector<std::uint8_t> bytes) { return {kind, std::move(bytes)}; }

TEST(PanelFace, KeepsTheLastReportOfEachSlotInOrder) {
  std::vector<drav::VirtualSentReport> face;
  FoldIntoFace(face, {Report(Kind::Feature, {3, 1, 0xAA}), Report(Kind::Feature, {5, 1, 0xBB}),
                      Report(Kind::Feature, {3, 1, 0xCC}), Report(Kind::Output, {3, 1, 0xDD})});
  ASSERT_EQ(face.size(), 3u);
  EXPECT_EQ(face[0].bytes, (std::vector<std::uint8_t>{5, 1, 0xBB}));
  EXPECT_EQ(face[1].bytes, (std::vector<std::uint8_t>{3, 1, 0xCC})) << "the later report of id 3 wins";
  EXPECT_EQ(face[2].kind, Kind::Output) << "an output report is a slot of its own";

  // A second clear: older slots stay unless overtaken, new ones follow.
  FoldIntoFace(face, {Report(Kind::Feature, {5, 1, 0xEE}), Report(Kind::Feature, {7, 2})});
  ASSERT_EQ(face.size(), 4u);
  EXPECT_EQ(face[0].bytes, (std::vector<std::uint8_t>{3, 1, 0xCC}));
  EXPECT_EQ(face[2].bytes, (std::vector<std::uint8_t>{5, 1, 0xEE}));
  EXPECT_EQ(face[3].bytes, (std::vector<std::uint8_t>{7, 2}));
}

TEST(PanelFace, LightIndexInTheFirstDataByteAndLengthSeparateSlots) {
  std::vector<drav::VirtualSentReport> face;
  FoldIntoFace(face, {Report(Kind::Output, {1, 1, 9}), Report(Kind::Output, {1, 2, 9}),
                      Report(Kind::Output, {1, 1}), Report(Kind::Output, {}), Report(Kind::Output, {})});
  ASSERT_EQ(face.size(), 4u) << "light 1 and light 2 are kept apart, as are reports of other lengths";
  EXPECT_TRUE(face[3].bytes.empty()) << "an empty report is kept once";
}

}  // namespace
}  // namespace dravsim
