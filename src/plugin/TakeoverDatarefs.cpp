#include "plugin/TakeoverDatarefs.h"

#include <XPLMDataAccess.h>

#include <atomic>

#include "base/HostState.h"
#include "base/Log.h"
#include "ui/AssignDialog.h"

namespace drav {

namespace {

struct TakeoverSwitch {
  const char* path;
  int HostFlags::*flag;  // in the running plug-in's flags
  const char* disabledLine;
  const char* enabledLine;
  XPLMDataRef handle;
};

TakeoverSwitch gTakeoverSwitches[] = {
    {kMcpProDisabledDataref, &HostFlags::mcpProDisabled, "MCPPro has been disabled by another plugin.",
     "MCPPro has been enabled by another plugin.", nullptr},
    {kEfisDisabledDataref, &HostFlags::efisDisabled, "EFIS has been disabled by another plugin.",
     "EFIS has been enabled by another plugin.", nullptr},
};

int GetSwitch(void* refcon) { return CurrentHostFlags().*static_cast<TakeoverSwitch*>(refcon)->flag; }

// The dialog lists the panels as enabled or taken over, so an open one is closed and shows the new
// state when the pilot opens it again.
void SetSwitch(void* refcon, int value) {
  auto* takeover = static_cast<TakeoverSwitch*>(refcon);
  // The panels' input threads read the flag while they decode, so it is stored atomically.
  std::atomic_ref<int>(CurrentHostFlags().*takeover->flag).store(value);
  LogLine(value != 0 ? takeover->disabledLine : takeover->enabledLine);
  CloseAssignDialog();
}

}  // namespace

void RegisterTakeoverDatarefs() {
  for (TakeoverSwitch& takeover : gTakeoverSwitches) {
    takeover.handle = XPLMRegisterDataAccessor(takeover.path, xplmType_Int, 1, GetSwitch, SetSwitch,
                                               nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                               nullptr, nullptr, nullptr, nullptr, &takeover,
                                               &takeover);
  }
}

void UnregisterTakeoverDatarefs() {
  for (TakeoverSwitch& takeover : gTakeoverSwitches) {
    if (takeover.handle != nullptr) XPLMUnregisterDataAccessor(takeover.handle);
    takeover.handle = nullptr;
  }
}

}  // namespace drav
