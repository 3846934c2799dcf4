// The magnetic course datarefs: straight through to a magnetic source when the simulator has one,
// otherwise from the true value, with the magnetic variation for the heading bug only.
#include <XPLMDataAccess.h>

#include <string>
#include <vector>

#include "CustomDatarefsFixture.h"
#include "functions/AutopilotCourseDatarefs.h"

namespace drav {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kHeadingCourse = "drav/autopilot/heading_crs";
constexpr const char* kNav1Course = "drav/autopilot/nav1_obs";
constexpr const char* kNav2Course = "drav/autopilot/nav2_obs";
constexpr const char* kHeadingMag = "sim/cockpit/autopilot/heading_mag";
constexpr const char* kHeadingTrue = "sim/cockpit/autopilot/heading";
constexpr const char* kNav1Mag = "sim/cockpit/radios/nav1_obs_degm";
constexpr const char* kNav1True = "sim/cockpit/radios/nav1_obs_degt";
constexpr const char* kNav2Mag = "sim/cockpit/radios/nav2_obs_degm";
constexpr const char* kNav2True = "sim/cockpit/radios/nav2_obs_degt";
constexpr const char* kVariation = "sim/flightmodel/position/magnetic_variation";

class CourseDatarefsTest : public testing::CustomDatarefsTest {
 protected:
  // A simulator with only true courses, as older versions are.
  void PublishWithoutMagneticSources() {
    for (const char* path : {kHeadingMag, kNav1Mag, kNav2Mag}) Remove(path);
    Publish();
  }
};

TEST(NormaliseCourseTest, FoldsOneTurnIntoZeroExclusiveToThreeSixtyInclusive) {
  EXPECT_FLOAT_EQ(NormaliseCourse(0.0f), 360.0f);
  EXPECT_FLOAT_EQ(NormaliseCourse(-10.0f), 350.0f);
  EXPECT_FLOAT_EQ(NormaliseCourse(0.5f), 0.5f);
  EXPECT_FLOAT_EQ(NormaliseCourse(360.0f), 360.0f);
  EXPECT_FLOAT_EQ(NormaliseCourse(365.0f), 5.0f);
  // Once only: the inputs are never more than a turn out.
  EXPECT_FLOAT_EQ(NormaliseCourse(800.0f), 440.0f);
}

TEST_F(CourseDatarefsTest, AreWritableFloats) {
  Publish();
  for (const char* path : {kNav1Course, kNav2Course, kHeadingCourse}) {
    XPLMDataRef dataref = XPLMFindDataRef(path);
    ASSERT_NE(dataref, nullptr) << path;
    EXPECT_EQ(XPLMGetDataRefTypes(dataref), xplmType_Float) << path;
    EXPECT_EQ(XPLMCanWriteDataRef(dataref), 1) << path;
  }
}

TEST_F(CourseDatarefsTest, MagneticSourcesAreReadAndWrittenAsTheyAre) {
  Publish();
  Set(kVariation, 10.0);
  Set(kHeadingMag, 0.0);  // a magnetic source is not normalised
  Set(kHeadingTrue, 100.0);
  Set(kNav1Mag, 123.5);
  Set(kNav2Mag, 361.0);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 0.0f);
  EXPECT_FLOAT_EQ(Get(kNav1Course), 123.5f);
  EXPECT_FLOAT_EQ(Get(kNav2Course), 361.0f);

  ClearEvents();
  Write(kHeadingCourse, 200.0);
  Write(kNav1Course, 45.25);
  Write(kNav2Course, 0.0);
  EXPECT_EQ(Events(), (Texts{DatarefWrite(kHeadingMag, "200"), DatarefWrite(kNav1Mag, "45.25"),
                             DatarefWrite(kNav2Mag, "0")}));
  EXPECT_FLOAT_EQ(Get(kHeadingTrue), 100.0f);
}

TEST_F(CourseDatarefsTest, TrueHeadingGetsTheVariationAndWrapsOnce) {
  PublishWithoutMagneticSources();
  Set(kHeadingTrue, 355.0);
  Set(kVariation, 10.0);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 5.0f);
  Set(kHeadingTrue, 350.0);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 360.0f);  // 360 stays, 0 does not exist
  Set(kHeadingTrue, 20.0);
  Set(kVariation, -30.0);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 350.0f);
  Set(kHeadingTrue, 0.0);
  Set(kVariation, 0.0);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 360.0f);
}

TEST_F(CourseDatarefsTest, HeadingWriteTakesTheVariationOffTheTrueValue) {
  PublishWithoutMagneticSources();
  Set(kVariation, 10.0);
  ClearEvents();
  Write(kHeadingCourse, 5.0);  // 5 - 10 = -5, once round: 355
  EXPECT_EQ(Events(), Texts{DatarefWrite(kHeadingTrue, "355")});
  Set(kVariation, -10.0);
  Write(kHeadingCourse, 355.0);  // 355 + 10 = 365: 5
  EXPECT_FLOAT_EQ(Get(kHeadingTrue), 5.0f);
  Write(kHeadingCourse, 100.0);
  EXPECT_FLOAT_EQ(Get(kHeadingTrue), 110.0f);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 100.0f);  // round trip
}

TEST_F(CourseDatarefsTest, TrueNavCoursesIgnoreTheVariation) {
  PublishWithoutMagneticSources();
  Set(kVariation, 10.0);
  Set(kNav1True, 355.0);
  Set(kNav2True, 0.0);
  EXPECT_FLOAT_EQ(Get(kNav1Course), 355.0f);
  EXPECT_FLOAT_EQ(Get(kNav2Course), 360.0f);  // still normalised
  ClearEvents();
  Write(kNav1Course, 90.0);
  Write(kNav2Course, -90.0);
  EXPECT_EQ(Events(), (Texts{DatarefWrite(kNav1True, "90"), DatarefWrite(kNav2True, "270")}));
}

TEST_F(CourseDatarefsTest, WithoutAnySourceReadsTheVariationAloneAndWritesNothing) {
  for (const char* path : {kHeadingMag, kHeadingTrue, kNav1Mag, kNav1True}) Remove(path);
  Publish();
  Set(kVariation, 10.0);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 10.0f);
  EXPECT_FLOAT_EQ(Get(kNav1Course), 360.0f);
  ClearEvents();
  Write(kHeadingCourse, 90.0);
  Write(kNav1Course, 90.0);
  EXPECT_TRUE(Events().empty());
}

TEST_F(CourseDatarefsTest, WithoutAVariationTheTrueHeadingIsTakenAsMagnetic) {
  Remove(kVariation);
  PublishWithoutMagneticSources();
  Set(kHeadingTrue, 270.0);
  EXPECT_FLOAT_EQ(Get(kHeadingCourse), 270.0f);
  Write(kHeadingCourse, 30.0);
  EXPECT_FLOAT_EQ(Get(kHeadingTrue), 30.0f);
}

}  // namespace
}  // namespace drav
