// The three flight-loop callbacks that drive all periodic work, on the simulator's main thread.
#pragma once

#include <cstdint>

namespace drav {

inline constexpr float kUpdateInterval = 0.5f;    // displays and lights refresh every half second
inline constexpr float kInputInterval = -1.0f;    // input is handled every frame
inline constexpr float kAnnounceDelay = 1.0f;     // the DataRefEditor hears of us once, a second in

float InputFlightLoop(float elapsedSinceLastCall, float elapsedSinceLastLoop, int counter, void* refcon);
float UpdateFlightLoop(float elapsedSinceLastCall, float elapsedSinceLastLoop, int counter, void* refcon);
float AnnounceFlightLoop(float elapsedSinceLastCall, float elapsedSinceLastLoop, int counter, void* refcon);

// The device layer's handler for a unit that joined or came back while the plug-in runs. A newcomer
// gets its module, its functions and the simulator's state on its displays and lights at once; a
// unit that came back is registered again by its module (blanking it and forgetting what it was
// shown, as for a fresh unit) and shown everything. Before the first load of the assignments, that
// load binds and shows them anyway.
void ShowArrivedUnit(std::uint32_t moduleType, std::int32_t unit);

void RegisterFlightLoops();
void UnregisterFlightLoops();

}  // namespace drav
