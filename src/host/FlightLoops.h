// The three flight-loop callbacks that drive all periodic work, on the simulator's main thread.
#pragma once

namespace drav {

inline constexpr float kUpdateInterval = 0.5f;    // displays and lights refresh every half second
inline constexpr float kInputInterval = -1.0f;    // input is handled every frame
inline constexpr float kAnnounceDelay = 1.0f;     // the DataRefEditor hears of us once, a second in

float InputFlightLoop(float elapsedSinceLastCall, float elapsedSinceLastLoop, int counter, void* refcon);
float UpdateFlightLoop(float elapsedSinceLastCall, float elapsedSinceLastLoop, int counter, void* refcon);
float AnnounceFlightLoop(float elapsedSinceLastCall, float elapsedSinceLastLoop, int counter, void* refcon);

void RegisterFlightLoops();
void UnregisterFlightLoops();

}  // namespace drav
