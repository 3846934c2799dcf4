// The function layer's own datarefs (autopilot state and knobs) and their announcement to the
// DataRefEditor plug-in.
#pragma once

namespace drav {

// The DataRefEditor plug-in lists a dataref when it receives this message with the path as parameter.
inline constexpr const char* kDataRefEditorSignature = "xplanesdk.examples.DataRefEditor";
inline constexpr int kDataRefEditorAddDataref = 0x01000000;

// Looks up the simulator datarefs they mirror and registers every published dataref. Once, at start.
void PublishCustomDatarefs();
// Announces the published datarefs (and the x737 ones) to the DataRefEditor, when it is loaded.
void AnnounceCustomDatarefs();

}  // namespace drav
