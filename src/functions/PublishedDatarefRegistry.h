// Registration of the function layer's own datarefs: every published row hands its row number to
// the simulator as the accessors' reference constant, so one accessor pair serves a whole table.
#pragma once

#include <XPLMDataAccess.h>

#include <cstddef>
#include <cstdint>

namespace drav {

inline void* RowRefcon(std::size_t row) { return reinterpret_cast<void*>(static_cast<std::uintptr_t>(row)); }
inline std::size_t RowOf(void* refcon) {
  return static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(refcon));
}

// Both register a writable dataref with one accessor pair. When the path is already live (the
// plug-in started a second time in the same simulator) the simulator refuses it and the earlier
// registration, which calls the same accessors with the same row, stays in place.
void RegisterIntDataref(const char* path, XPLMGetDatai_f read, XPLMSetDatai_f write, std::size_t row);
void RegisterFloatDataref(const char* path, XPLMGetDataf_f read, XPLMSetDataf_f write, std::size_t row);

// The simulator's values where its dataref may be missing: a null handle reads 0 and takes no write.
int ReadIntOrZero(XPLMDataRef dataref);
float ReadFloatOrZero(XPLMDataRef dataref);
void WriteIntIfPresent(XPLMDataRef dataref, int value);
void WriteFloatIfPresent(XPLMDataRef dataref, float value);

// A simulator dataref looked up the first time it is needed, not at start (under X-Plane 12's new
// name where the simulator has renamed it).
struct LazyDataref {
  const char* path;
  XPLMDataRef handle = nullptr;
  bool lookedUp = false;
};

XPLMDataRef Resolve(LazyDataref& dataref);
// Forgets the handle, so the next use looks the path up again (a new simulator).
void Forget(LazyDataref& dataref);

}  // namespace drav
