#include "plugin/Messages.h"

#include <cstdint>

#include "config/AircraftProfile.h"
#include "config/Assignments.h"
#include "modules/CommandTables.h"
#include "base/HostState.h"
#include "base/OptionalXplmApi.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleState.h"
#include "modules/ModuleRegistry.h"
#include "ui/AssignDialog.h"

namespace drav {

namespace {

// The GF-MCPPro's defaults depend on the x737 mode, and the dialog shows it as available or not, so
// both are brought up to date.
void SwitchX737Mcp(int on) {
  CurrentHostFlags().x737Mode = on;
  CurrentHostFlags().x737McpDirect = on;
  if (LoadOptionalXplmApi()) ResolveX737McpCommands();
  CloseAssignDialog();
  LoadTypeAssignments(kModuleGFMCPPro);
}

// Each model that follows the aircraft (the throttle levers take its engine and control limits)
// hears of it on every unit. A model's walk stops at the first unit without a module object.
void TellModulesAircraftLoaded() {
  const ModuleManager& manager = TheModuleManager();
  for (const ModelDescriptor* listed : ProductionModels()) {
    const ModelDescriptor* model = manager.Descriptor(listed->Type());
    if (model == nullptr || model->aircraftLoaded == nullptr) continue;
    GF_Abstract_Module* module = nullptr;
    for (std::uint32_t unit = 0; manager.FindModule(model->Type(), unit, &module) == 1; ++unit) {
      model->aircraftLoaded(*module);
    }
  }
}

void UserAircraftLoaded() {
  CurrentModuleState().modulesInitialised = false;  // the next refresh tick reloads every assignment, from the new aircraft's profile
  RefreshAircraftProfile();
  RefreshAssignDialog();  // an open dialog shows where the new aircraft's assignments come from
  TellModulesAircraftLoaded();
}

}  // namespace

void HandleMessage(int from, int message, void* param) {
  if (message == kX737McpOn) {
    SwitchX737Mcp(1);
  } else if (message == kX737McpOff) {
    SwitchX737Mcp(0);
  } else if (message == kPlaneLoaded && from == kSimulatorId && param == nullptr) {
    UserAircraftLoaded();  // parameter 0 is the user's aircraft; AI aircraft change nothing here
  }
}

}  // namespace drav
