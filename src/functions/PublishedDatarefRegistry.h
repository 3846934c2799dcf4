// Registration of the function layer's own datarefs: one accessor pair serves a whole table, told
// apart by the reference constant each row hands the simulator (its row number, or the row's own
// part of the plug-in's state).
#pragma once

#include <XPLMDataAccess.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace drav {

inline void* RowRefcon(std::size_t row) { return reinterpret_cast<void*>(static_cast<std::uintptr_t>(row)); }
inline std::size_t RowOf(void* refcon) {
  return static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(refcon));
}

// The handles of the datarefs registered since the plug-in started, undone before its state goes:
// a reference constant may point into that state.
struct PublishedDatarefs {
  std::vector<XPLMDataRef> handles;
};

// Both register a writable dataref with one accessor pair and `refcon` for reads and writes. A
// path that is already live is refused by the simulator and left to its owner.
void RegisterIntDataref(const char* path, XPLMGetDatai_f read, XPLMSetDatai_f write, void* refcon);
void RegisterFloatDataref(const char* path, XPLMGetDataf_f read, XPLMSetDataf_f write, void* refcon);
// Unregisters every dataref registered through the two above since the plug-in started.
void WithdrawPublishedDatarefs();

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

}  // namespace drav
