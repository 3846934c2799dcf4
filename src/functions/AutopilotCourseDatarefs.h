// "drav/autopilot/nav1_obs", "nav2_obs" and "heading_crs": magnetic courses whatever the simulator
// version offers. A simulator with magnetic datarefs is read and written directly; an older one has
// only true values, and the heading bug then gets the magnetic variation added.
#pragma once

#include <XPLMDataAccess.h>

#include <array>
#include <cstddef>

namespace drav {

inline constexpr std::size_t kCourseDatarefCount = 3;

// What one course dataref reads and writes, looked up at start. Its accessors get it as their
// reference constant.
struct CourseSources {
  XPLMDataRef magnetic = nullptr;
  XPLMDataRef trueCourse = nullptr;
  XPLMDataRef variation = nullptr;  // added to a true course; null where the true value needs none
};
using CourseDatarefSources = std::array<CourseSources, kCourseDatarefCount>;

// Looks up the simulator's course and variation datarefs and registers the three course datarefs.
void PublishCourseDatarefs();

// Brings a course that one addition or subtraction took out of (0, 360] back into it. Only once:
// the inputs are courses and a variation, never more than a turn away.
float NormaliseCourse(float course);

}  // namespace drav
