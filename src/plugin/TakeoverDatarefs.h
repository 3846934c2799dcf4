// "merrow/drav/mcppro_disabled" and "merrow/drav/efis_disabled": two writable int datarefs through
// which another plug-in takes the GF-MCPPro or the GF-EFIS over.
#pragma once

#include <XPLMDataAccess.h>

#include <array>

namespace drav {

inline constexpr const char* kMcpProDisabledDataref = "merrow/drav/mcppro_disabled";
inline constexpr const char* kEfisDisabledDataref = "merrow/drav/efis_disabled";

// Their handles while registered (PluginState::takeoverDatarefs).
using TakeoverDatarefHandles = std::array<XPLMDataRef, 2>;

void RegisterTakeoverDatarefs();
void UnregisterTakeoverDatarefs();

}  // namespace drav
