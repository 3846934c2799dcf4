// The handlers of the command table, grouped by the file that defines them.
#pragma once

#include "dravsim/CommandTable.h"

namespace dravsim {

// SetupCommands.cpp: the simulator's state before (and, for datarefs and files, during) a run.
void XPlaneVersionCommand(ScenarioContext& ctx, const Invocation& call);
void IniCommand(ScenarioContext& ctx, const Invocation& call);
void FileCommand(ScenarioContext& ctx, const Invocation& call);
void AircraftCommand(ScenarioContext& ctx, const Invocation& call);
void AircraftIniCommand(ScenarioContext& ctx, const Invocation& call);
void DatarefCommand(ScenarioContext& ctx, const Invocation& call);
void SimCommandCommand(ScenarioContext& ctx, const Invocation& call);
void OtherPluginCommand(ScenarioContext& ctx, const Invocation& call);
void NoSystemSymbolCommand(ScenarioContext& ctx, const Invocation& call);

// PluginCommands.cpp: the plug-in's entry points.
void StartCommand(ScenarioContext& ctx, const Invocation& call);
void EnableCommand(ScenarioContext& ctx, const Invocation& call);
void DisableCommand(ScenarioContext& ctx, const Invocation& call);
void StopCommand(ScenarioContext& ctx, const Invocation& call);
void BootCommand(ScenarioContext& ctx, const Invocation& call);
void MessageCommand(ScenarioContext& ctx, const Invocation& call);
void PlaneLoadedCommand(ScenarioContext& ctx, const Invocation& call);

// RunCommands.cpp: time, the menu, commands the pilot runs and other plug-ins' dataref writes.
void FrameCommand(ScenarioContext& ctx, const Invocation& call);
void RunCommand(ScenarioContext& ctx, const Invocation& call);
void RepeatCommand(ScenarioContext& ctx, const Invocation& call);
void MenuCommand(ScenarioContext& ctx, const Invocation& call);
void RunSimCommandCommand(ScenarioContext& ctx, const Invocation& call);
void WriteDatarefCommand(ScenarioContext& ctx, const Invocation& call);

// ExpectSimulator.cpp: checks of datarefs, events, windows and the screen.
void ExpectDatarefCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectEventCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectNoEventCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectEventCountCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectEventsCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectWindowCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectNoWindowCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectScreenCommand(ScenarioContext& ctx, const Invocation& call);

// ExpectFiles.cpp: checks of the plug-in folder's files and the user's aircraft's DRAV.INI.
void ExpectIniCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectFileCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectAircraftIniCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectAircraftFileCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectLogCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectXPlaneLogCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectNoXPlaneLogCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectXPlaneLogLinesCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectNoLogCommand(ScenarioContext& ctx, const Invocation& call);

// GeneralCommands.cpp
void ClearCommand(ScenarioContext& ctx, const Invocation& call);
void EchoCommand(ScenarioContext& ctx, const Invocation& call);
void SleepMsCommand(ScenarioContext& ctx, const Invocation& call);

}  // namespace dravsim
