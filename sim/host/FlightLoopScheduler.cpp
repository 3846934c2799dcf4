#include "host/FlightLoopScheduler.h"

#include <algorithm>
#include <cmath>

namespace sim {

namespace {

// A day of frames: a longer interval is as good as "much later" and cannot overflow the clock.
constexpr double kMaxFramesAhead = 24.0 * 3600.0 * kFramesPerSecond;

// Float intervals such as 0.1f are a hair above their decimal value; the tolerance keeps 0.1 at 6
// frames instead of 7.
constexpr double kRoundingTolerance = 1e-3;

}  // namespace

std::int64_t FlightLoopScheduler::FramesUntilDue(float interval) {
  if (std::isnan(interval) || interval == 0.0f) return 0;
  const double frames = interval > 0 ? static_cast<double>(interval) * kFramesPerSecond
                                     : -static_cast<double>(interval);
  const double whole = std::ceil(std::min(frames, kMaxFramesAhead) - kRoundingTolerance);
  return std::max<std::int64_t>(1, static_cast<std::int64_t>(whole));
}

std::int64_t FlightLoopScheduler::DueFrame(float interval, std::int64_t from) {
  const std::int64_t frames = FramesUntilDue(interval);
  return frames == 0 ? kNever : from + frames;
}

void FlightLoopScheduler::Register(XPLMFlightLoop_f callback, float interval, void* refcon,
                                   std::int64_t frame) {
  if (callback == nullptr) return;
  loops_.push_back(Loop{callback, refcon, frame, DueFrame(interval, frame), false});
}

FlightLoopScheduler::Loop* FlightLoopScheduler::FindLoop(XPLMFlightLoop_f callback, void* refcon) {
  for (Loop& loop : loops_) {
    if (!loop.removed && loop.callback == callback && loop.refcon == refcon) return &loop;
  }
  return nullptr;
}

void FlightLoopScheduler::Unregister(XPLMFlightLoop_f callback, void* refcon) {
  Loop* loop = FindLoop(callback, refcon);
  if (loop == nullptr) return;
  loop->removed = true;
  hasRemoved_ = true;
  PurgeRemovedWhenIdle();
}

void FlightLoopScheduler::SetInterval(XPLMFlightLoop_f callback, float interval, bool relativeToNow,
                                      void* refcon, std::int64_t frame) {
  Loop* loop = FindLoop(callback, refcon);
  if (loop == nullptr) return;
  loop->dueFrame = DueFrame(interval, relativeToNow ? frame : loop->lastRunFrame);
}

void FlightLoopScheduler::RunDue(std::int64_t frame) {
  ++runDepth_;
  // Indexes, not references: a callback that registers a loop may move the vector. Removed loops
  // stay in place until the run is over, so the indexes hold.
  for (std::size_t i = 0; i < loops_.size(); ++i) {
    const Loop& loop = loops_[i];
    if (loop.removed || loop.dueFrame == kNever || loop.dueFrame > frame) continue;
    const float sinceLastRun = static_cast<float>(frame - loop.lastRunFrame) / kFramesPerSecond;
    const float next = loop.callback(sinceLastRun, kFrameSeconds, static_cast<int>(frame), loop.refcon);
    Loop& after = loops_[i];
    if (after.removed) continue;  // it unregistered itself
    after.lastRunFrame = frame;
    after.dueFrame = DueFrame(next, frame);
  }
  --runDepth_;
  PurgeRemovedWhenIdle();
}

void FlightLoopScheduler::PurgeRemovedWhenIdle() {
  if (runDepth_ > 0 || !hasRemoved_) return;
  std::erase_if(loops_, [](const Loop& loop) { return loop.removed; });
  hasRemoved_ = false;
}

int FlightLoopScheduler::ActiveCount() const {
  return static_cast<int>(std::count_if(loops_.begin(), loops_.end(), [](const Loop& loop) {
    return !loop.removed && loop.dueFrame != kNever;
  }));
}

}  // namespace sim
