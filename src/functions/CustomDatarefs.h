// The function layer's own datarefs (autopilot state and knobs) and their announcement to the
// DataRefEditor plug-in.
#pragma once

namespace drav {

// Looks up the simulator datarefs they mirror and registers every published dataref. Once, at start.
void PublishCustomDatarefs();
// Announces the published datarefs (and the x737 ones) to the DataRefEditor, when it is loaded.
void AnnounceCustomDatarefs();

}  // namespace drav
