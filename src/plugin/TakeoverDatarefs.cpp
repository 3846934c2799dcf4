#include "plugin/TakeoverDatarefs.h"

#include <XPLMDataAccess.h>

#include <atomic>
#include <cstddef>
#include <iterator>
#include <tuple>

#include "base/HostState.h"
#include "base/Log.h"
#include "plugin/PluginState.h"
#include "ui/AssignDialog.h"

namespace drav {

namespace {

// A switch's row is its accessors' reference constant.
struct TakeoverSwitch {
  const char* path;
  int HostFlags::*flag;  // in the running plug-in's flags
  const char* disabledLine;
  const char* enabledLine;
};

const TakeoverSwitch kTakeoverSwitches[] = {
    {kMcpProDisabledDataref, &HostFlags::mcpProDisabled, "MCPPro has been disabled by another plugin.",
     "MCPPro has been enabled by another plugin."},
    {kEfisDisabledDataref, &HostFlags::efisDisabled, "EFIS has been disabled by another plugin.",
     "EFIS has been enabled by another plugin."},
};
static_assert(std::size(kTakeoverSwitches) == std::tuple_size_v<TakeoverDatarefHandles>);

const TakeoverSwitch& SwitchOf(void* refcon) { return *static_cast<const TakeoverSwitch*>(refcon); }

int GetSwitch(void* refcon) { return CurrentHostFlags().*SwitchOf(refcon).flag; }

// The dialog lists the panels as enabled or taken over, so an open one is closed and shows the new
// state when the pilot opens it again.
void SetSwitch(void* refcon, int value) {
  const TakeoverSwitch& takeover = SwitchOf(refcon);
  // The panels' input threads read the flag while they decode, so it is stored atomically.
  std::atomic_ref<int>(CurrentHostFlags().*takeover.flag).store(value);
  LogLine(value != 0 ? takeover.disabledLine : takeover.enabledLine);
  CloseAssignDialog();
}

}  // namespace

void RegisterTakeoverDatarefs() {
  TakeoverDatarefHandles& handles = CurrentPluginState().takeoverDatarefs;
  for (std::size_t row = 0; row < handles.size(); ++row) {
    void* refcon = const_cast<TakeoverSwitch*>(&kTakeoverSwitches[row]);
    handles[row] = XPLMRegisterDataAccessor(kTakeoverSwitches[row].path, xplmType_Int, 1, GetSwitch, SetSwitch,
                                            nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                            nullptr, nullptr, nullptr, refcon, refcon);
  }
}

void UnregisterTakeoverDatarefs() {
  for (XPLMDataRef& handle : CurrentPluginState().takeoverDatarefs) {
    if (handle != nullptr) XPLMUnregisterDataAccessor(handle);
    handle = nullptr;
  }
}

}  // namespace drav
