#include "modules/ModuleRegistry.h"

#include <algorithm>

#include "modules/GF45_Module.h"
#include "modules/GF46_Module.h"
#include "modules/GF166_Module.h"
#include "modules/GFDIO_Module.h"
#include "modules/GFEFIS_Module.h"
#include "modules/GFLGT2_Module.h"
#include "modules/GFLGT_Module.h"
#include "modules/GFMCPPro_Module.h"
#include "modules/GFMCP_Module.h"
#include "modules/GFMESM_Module.h"
#include "modules/GFP8_Module.h"
#include "modules/GFRP48_Module.h"
#include "modules/GFSECM_Module.h"
#include "modules/GFT8_Module.h"
#include "modules/GFTQ6_Module.h"
#include "modules/GFWCP_Module.h"

namespace drav {

namespace {

// One line per model with a module class, in the order in which CreateModules sizes the containers.
constexpr const ModelDescriptor* kProductionModels[] = {
    &kGF45Descriptor,    &kGF46Descriptor,  &kGFP8Descriptor,   &kGFT8Descriptor,     &kGFLGTDescriptor,
    &kGFLGT2Descriptor,  &kGFMCPDescriptor, &kGF166Descriptor,  &kGFRP48Descriptor,   &kGFTQ6Descriptor,
    &kGFMCPProDescriptor, &kGFEFISDescriptor, &kGFSECMDescriptor, &kGFWCPDescriptor, &kGFMESMDescriptor,
    &kGFDIODescriptor,
};

}  // namespace

std::span<const ModelDescriptor* const> ProductionModels() { return kProductionModels; }

const ModelDescriptor* FindProductionModel(std::uint32_t moduleType) {
  for (const ModelDescriptor* model : kProductionModels) {
    if (model->Type() == moduleType) return model;
  }
  return nullptr;
}

std::vector<const AssignmentKeyGroup*> AllFunctionKeyGroups() {
  std::vector<const AssignmentKeyGroup*> groups;
  for (const ModelDescriptor* model : kProductionModels) {
    for (const AssignmentKeyGroup* group : model->functionKeys) {
      if (std::ranges::find(groups, group) == groups.end()) groups.push_back(group);
    }
  }
  return groups;
}

void RegisterUnit(GF_Abstract_Module& module, const UnitAssignments& unit) { module.Register(unit.Unit()); }

void AssignGroup(GF_Abstract_Module& module, UnitAssignments& unit, const AssignmentKeyGroup& group) {
  for (int index = 0; index < KeyCount(group); ++index) {
    const AssignedKey key = unit.Read(group, index);
    module.AssignFunction(KeyControl(group, index), key.functionId, key.targetUnit, key.targetKind);
  }
}

void LoadRadioModes(GF_Abstract_AvionicDevice& radio, UnitAssignments& unit) {
  for (int mode = 0; mode < KeyCount(kRadioModeKeys) && mode < kModeCount; ++mode) {
    radio.modeFunction[mode] = unit.ReadFunctionId(kRadioModeKeys, mode);
  }
  radio.SelectFunction(radio.ChooseCurrentMode());
}

void LoadRadioAssignments(GF_Abstract_AvionicDevice& radio, UnitAssignments& unit) {
  RegisterUnit(radio, unit);
  LoadRadioModes(radio, unit);
  radio.SetDisplay();
}

}  // namespace drav
