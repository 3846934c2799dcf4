// Messages from the simulator and from other plug-ins.
#pragma once

namespace drav {

inline constexpr int kX737McpOn = static_cast<int>(0x8888888E);
inline constexpr int kX737McpOff = static_cast<int>(0x8888888F);
inline constexpr int kPlaneLoaded = 102;
inline constexpr int kSimulatorId = 0;

void HandleMessage(int from, int message, void* param);

}  // namespace drav
