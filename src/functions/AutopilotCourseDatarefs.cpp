#include "functions/AutopilotCourseDatarefs.h"

#include <XPLMDataAccess.h>

#include <array>
#include <cstddef>
#include <iterator>

#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

struct CourseDatarefRow {
  const char* path;
  const char* magneticSource;
  const char* trueSource;
  bool addsMagneticVariation;  // the course radios' true values already are what the pilot set
};

constexpr CourseDatarefRow kCourseDatarefs[] = {
    {"drav/autopilot/nav1_obs", "sim/cockpit/radios/nav1_obs_degm", "sim/cockpit/radios/nav1_obs_degt",
     false},
    {"drav/autopilot/nav2_obs", "sim/cockpit/radios/nav2_obs_degm", "sim/cockpit/radios/nav2_obs_degt",
     false},
    {"drav/autopilot/heading_crs", "sim/cockpit/autopilot/heading_mag", "sim/cockpit/autopilot/heading",
     true},
};
constexpr std::size_t kCourseCount = std::size(kCourseDatarefs);

struct CourseSources {
  XPLMDataRef magnetic = nullptr;
  XPLMDataRef trueCourse = nullptr;
};

std::array<CourseSources, kCourseCount> gSources;
XPLMDataRef gMagneticVariation = nullptr;

float VariationFor(const CourseDatarefRow& row) {
  return row.addsMagneticVariation ? ReadFloatOrZero(gMagneticVariation) : 0.0f;
}

float ReadCourse(void* refcon) {
  const std::size_t row = RowOf(refcon);
  if (row >= kCourseCount) return 0.0f;
  const CourseSources& sources = gSources[row];
  if (sources.magnetic != nullptr) return XPLMGetDataf(sources.magnetic);
  return NormaliseCourse(ReadFloatOrZero(sources.trueCourse) + VariationFor(kCourseDatarefs[row]));
}

void WriteCourse(void* refcon, float course) {
  const std::size_t row = RowOf(refcon);
  if (row >= kCourseCount) return;
  const CourseSources& sources = gSources[row];
  if (sources.magnetic != nullptr) {
    XPLMSetDataf(sources.magnetic, course);
    return;
  }
  WriteFloatIfPresent(sources.trueCourse, NormaliseCourse(course - VariationFor(kCourseDatarefs[row])));
}

}  // namespace

float NormaliseCourse(float course) {
  if (course <= 0.0f) return course + 360.0f;
  if (course > 360.0f) return course - 360.0f;
  return course;
}

void PublishCourseDatarefs() {
  gMagneticVariation = XPLMFindDataRef("sim/flightmodel/position/magnetic_variation");
  for (std::size_t row = 0; row < kCourseCount; ++row) {
    gSources[row].magnetic = XPLMFindDataRef(kCourseDatarefs[row].magneticSource);
    gSources[row].trueCourse = XPLMFindDataRef(kCourseDatarefs[row].trueSource);
    RegisterFloatDataref(kCourseDatarefs[row].path, ReadCourse, WriteCourse, row);
  }
}

}  // namespace drav
