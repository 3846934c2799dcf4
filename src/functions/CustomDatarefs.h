// The function layer's own datarefs (autopilot state and knobs) and their announcement to the
// dataref browsers (the DataRefEditor and DataRefTool plug-ins).
#pragma once

namespace drav {

// The DataRefEditor plug-in lists a dataref when it receives this message with the path as parameter;
// DataRefTool takes the same message.
inline constexpr const char* kDataRefEditorSignature = "xplanesdk.examples.DataRefEditor";
inline constexpr const char* kDataRefToolSignature = "com.leecbaker.datareftool";
inline constexpr int kDataRefEditorAddDataref = 0x01000000;

// Tells every loaded dataref browser about one path. Not per frame: it looks the browsers up.
void AnnounceDataref(const char* path);

// Looks up the simulator datarefs they mirror and registers every published dataref. Once, at start.
void PublishCustomDatarefs();
// Unregisters them again, before the plug-in's state goes (their accessors read it).
void WithdrawCustomDatarefs();
// Announces the published datarefs (and the x737 ones) to each dataref browser that is loaded.
void AnnounceCustomDatarefs();

}  // namespace drav
