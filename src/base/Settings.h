// The debug switches (section "DEBUG") and the global settings (section "CONFIG") of DRAV.INI, read
// at start and again whenever the pilot reloads DRAV.INI.
#pragma once

namespace drav {

struct DebugSwitches {
  int DebugEnabled = 0;
  int DebugViewEnabled = 0;
  int DebugFunctionAssignments = 0;
  int DebugDeviceInfo = 0;
  int DebugRegisterFunction = 0;
  int DebugGetButtonFunction = 0;
  int DebugHandleInputFunction = 0;
  int DebugSetDisplayFunction = 0;
};

struct GlobalSettings {
  int GRP48ReverseFix = 0;
  int RMK166EncoderType = 1;
  int ShowCustomDatarefs = 0;
  int GFLGT2AileronReverseFix = 0;
  int GFLGT2ElevatorReverseFix = 0;
  int GFLGT2RudderReverseFix = 0;
  int GFLGT2LandingLightsReverseFix = 0;
  float ElevatorTrimIncrement = 0.005f;
  float AileronTrimIncrement = 0.001f;
  float RudderTrimIncrement = 0.001f;
  float RotorTrimIncrement = 0.001f;
  int GFTQ6UsePropMinimumOfZero = 0;
  int GFTQ6UseSpeedBrakeArmed = 0;
};

// The running plug-in's switches and settings (BaseState). Written only by the reads below, on the
// main thread (at start, and at a reload). The panels' input threads read the debug switches too:
// they live only while the plug-in's context does.
DebugSwitches& CurrentDebugSwitches();
GlobalSettings& CurrentSettings();

void ReadDebugSwitches();   // the eight switches of "DEBUG"; reads never trace
void ReadGlobalSettings();  // the thirteen settings of "CONFIG", in table order

}  // namespace drav
