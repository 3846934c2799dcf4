// The part of the plug-in's state that belongs to the base floor (the log, the debug switches and
// settings, the INI reader's snapshots, what is known of the host), owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentBaseState().
#pragma once

#include <array>
#include <mutex>
#include <string>
#include <vector>

#include "base/ContextSlot.h"
#include "base/HostState.h"
#include "base/IniFile.h"
#include "base/OptionalXplmApi.h"
#include "base/Settings.h"

namespace drav {

// The log file's path, asked for once; the panels' input threads log too, hence the lock.
struct LogFile {
  std::mutex mutex;
  std::string path;  // guarded by mutex
};

struct BaseState {
  DebugSwitches debug;
  GlobalSettings settings;
  LogFile log;
  // The Log.txt lines already told about DRAV.INI values that name nothing (Log.cpp); main thread
  // only.
  std::vector<std::string> toldValues;
  IniFiles iniFiles;
  HostFlags host;
  SimulatorVersions versions;
  OptionalXplmApi optionalApi;
};

inline BaseState& CurrentBaseState() { return ContextSlot<BaseState>::Current(); }

}  // namespace drav
