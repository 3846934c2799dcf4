// Flight-loop callbacks on the simulator's virtual clock of whole frames (60 per second).
#pragma once

#include <XPLMProcessing.h>

#include <cstdint>
#include <vector>

namespace sim {

inline constexpr int kFramesPerSecond = 60;
inline constexpr float kFrameSeconds = 1.0f / kFramesPerSecond;

class FlightLoopScheduler {
 public:
  // Frames until a loop with this interval (or callback return value) is due: I > 0 seconds gives
  // ceil(I x 60), -N gives N frames, 0 (or NaN) gives 0, meaning never.
  static std::int64_t FramesUntilDue(float interval);

  void Register(XPLMFlightLoop_f callback, float interval, void* refcon, std::int64_t frame);
  void Unregister(XPLMFlightLoop_f callback, void* refcon);
  // Counted from `frame` when relativeToNow, else from the loop's last run (or registration). Set
  // from inside the loop's own callback, it is overridden by the callback's return value.
  void SetInterval(XPLMFlightLoop_f callback, float interval, bool relativeToNow, void* refcon,
                   std::int64_t frame);

  // Runs every loop due at `frame`, in registration order. Callbacks may register and unregister
  // loops (their own included); a loop registered now first runs in a later frame.
  void RunDue(std::int64_t frame);

  int ActiveCount() const;  // registered loops that are scheduled to run

 private:
  static constexpr std::int64_t kNever = -1;

  struct Loop {
    XPLMFlightLoop_f callback = nullptr;
    void* refcon = nullptr;
    std::int64_t lastRunFrame = 0;  // or the frame it was registered in
    std::int64_t dueFrame = kNever;
    bool removed = false;
  };

  static std::int64_t DueFrame(float interval, std::int64_t from);
  Loop* FindLoop(XPLMFlightLoop_f callback, void* refcon);
  void PurgeRemovedWhenIdle();

  std::vector<Loop> loops_;
  int runDepth_ = 0;
  bool hasRemoved_ = false;
};

}  // namespace sim
