// "merrow/drav/mcppro_disabled" and "merrow/drav/efis_disabled": two writable int datarefs through
// which another plug-in takes the GF-MCPPro or the GF-EFIS over.
#pragma once

namespace drav {

inline constexpr const char* kMcpProDisabledDataref = "merrow/drav/mcppro_disabled";
inline constexpr const char* kEfisDisabledDataref = "merrow/drav/efis_disabled";

void RegisterTakeoverDatarefs();
void UnregisterTakeoverDatarefs();

}  // namespace drav
