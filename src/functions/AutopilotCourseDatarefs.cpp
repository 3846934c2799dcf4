#include "functions/AutopilotCourseDatarefs.h"

#include <XPLMDataAccess.h>

#include <cstddef>
#include <iterator>

#include "functions/FunctionState.h"
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
static_assert(std::size(kCourseDatarefs) == kCourseDatarefCount);

float ReadCourse(void* refcon) {
  const CourseSources& sources = *static_cast<const CourseSources*>(refcon);
  if (sources.magnetic != nullptr) return XPLMGetDataf(sources.magnetic);
  return NormaliseCourse(ReadFloatOrZero(sources.trueCourse) + ReadFloatOrZero(sources.variation));
}

void WriteCourse(void* refcon, float course) {
  const CourseSources& sources = *static_cast<const CourseSources*>(refcon);
  if (sources.magnetic != nullptr) {
    XPLMSetDataf(sources.magnetic, course);
    return;
  }
  WriteFloatIfPresent(sources.trueCourse, NormaliseCourse(course - ReadFloatOrZero(sources.variation)));
}

}  // namespace

float NormaliseCourse(float course) {
  if (course <= 0.0f) return course + 360.0f;
  if (course > 360.0f) return course - 360.0f;
  return course;
}

void PublishCourseDatarefs() {
  const XPLMDataRef variation = XPLMFindDataRef("sim/flightmodel/position/magnetic_variation");
  CourseDatarefSources& courses = CurrentFunctionState().courses;
  for (std::size_t row = 0; row < kCourseDatarefCount; ++row) {
    CourseSources& sources = courses[row];
    sources.magnetic = XPLMFindDataRef(kCourseDatarefs[row].magneticSource);
    sources.trueCourse = XPLMFindDataRef(kCourseDatarefs[row].trueSource);
    sources.variation = kCourseDatarefs[row].addsMagneticVariation ? variation : nullptr;
    RegisterFloatDataref(kCourseDatarefs[row].path, ReadCourse, WriteCourse, &sources);
  }
}

}  // namespace drav
