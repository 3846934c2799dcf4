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
#include "modules/PanelsWithoutModule.h"

namespace drav {

namespace {

// One line per model with a module class, in the order in which CreateModules sizes the containers.
constexpr const ModelDescriptor* kProductionModels[] = {
    &kGF45Descriptor,    &kGF46Descriptor,  &kGFP8Descriptor,   &kGFT8Descriptor,     &kGFLGTDescriptor,
    &kGFLGT2Descriptor,  &kGFMCPDescriptor, &kGF166Descriptor,  &kGFRP48Descriptor,   &kGFTQ6Descriptor,
    &kGFMCPProDescriptor, &kGFEFISDescriptor, &kGFSECMDescriptor, &kGFWCPDescriptor, &kGFMESMDescriptor,
    &kGFDIODescriptor,
};

// The order in which a unit's product id is tested against the models, which is also the order in
// which the device layer walks and tears down its tables: every model number once (a number without
// slots, the GF-TPM, gets no table).
constexpr ModuleType kPanelLookupOrder[] = {
    kModuleGF45,   kModuleGF46,  kModuleGFP8,  kModuleGFRP48,   kModuleGFWCP,  kModuleGFT8,  kModuleGFLGT,
    kModuleGFLGT2, kModuleGF166, kModuleGFMCP, kModuleGFMCPPro, kModuleGFEFIS, kModuleGFATC, kModuleGFSECM,
    kModuleGFMESM, kModuleGFFMC, kModuleGFTQ6, kModuleGFDIO,    kModuleGFTPM,
};

// The order in which every unit's assignments are loaded: radios first, the GF-DIO last.
constexpr ModuleType kAssignmentLoadOrder[] = {
    kModuleGF45,  kModuleGF46,  kModuleGF166,    kModuleGFLGT,   kModuleGFLGT2, kModuleGFMCP,
    kModuleGFT8,  kModuleGFP8,  kModuleGFRP48,   kModuleGFTQ6,   kModuleGFMCPPro, kModuleGFEFIS,
    kModuleGFSECM, kModuleGFWCP, kModuleGFMESM,  kModuleGFDIO,
};

// The order of the Assign Functions dialog's device list.
constexpr ModuleType kDialogDeviceOrder[] = {
    kModuleGF45,   kModuleGF46,  kModuleGFP8,  kModuleGFRP48,   kModuleGFT8,  kModuleGFLGT,
    kModuleGFLGT2, kModuleGF166, kModuleGFMCP, kModuleGFMCPPro, kModuleGFTQ6, kModuleGFEFIS,
    kModuleGFSECM, kModuleGFWCP, kModuleGFMESM, kModuleGFDIO,
};

// The panels asked for the shared display brightness: the first model with a unit answers (its
// unit 0). The GF-45 has no getter. The GF-LGT2's answer is taken as it comes, on its own reversed
// scale.
constexpr ModuleType kBrightnessReadOrder[] = {
    kModuleGFP8,  kModuleGFT8,     kModuleGF166,  kModuleGFLGT, kModuleGFLGT2,
    kModuleGFMCP, kModuleGFMCPPro, kModuleGFRP48, kModuleGF46,  kModuleGFWCP,
};

// The panels sent the level, every unit of each.
constexpr ModuleType kBrightnessWriteOrder[] = {
    kModuleGF45,   kModuleGF46,  kModuleGFP8,  kModuleGFT8,     kModuleGFLGT,  kModuleGFLGT2,
    kModuleGF166,  kModuleGFMCP, kModuleGFMCPPro, kModuleGFRP48, kModuleGFWCP,
};

constexpr bool EveryModelLookedUpOnce() {
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    if (std::ranges::count(kPanelLookupOrder, type) != 1) return false;
  }
  return std::size(kPanelLookupOrder) == kLastModuleType;
}
static_assert(EveryModelLookedUpOnce(), "the lookup order names every model number exactly once");

}  // namespace

const PanelModel* RegisteredPanelModel(std::uint32_t moduleType) {
  if (const ModelDescriptor* model = FindProductionModel(moduleType)) return model->hid;
  for (const PanelModel* row : PanelsWithoutModule()) {
    if (row->moduleType == moduleType) return row;
  }
  return nullptr;
}

namespace {

const PanelModel& RowOf(std::uint32_t type) {
  const PanelModel* row = RegisteredPanelModel(type);
  return row != nullptr ? *row : kNoPanelModel;
}

}  // namespace

const char* ModelName(std::uint32_t type) { return RowOf(type).name; }
const char* ModelWord(std::uint32_t type) { return RowOf(type).logWord; }
const char* SectionFormat(std::uint32_t type) { return RowOf(type).sectionFormat; }

std::array<const PanelModel*, kLastModuleType> PanelModelsInLookupOrder() {
  std::array<const PanelModel*, kLastModuleType> rows{};
  std::ranges::transform(kPanelLookupOrder, rows.begin(), RegisteredPanelModel);
  return rows;
}

std::span<const ModuleType> AssignmentLoadOrder() { return kAssignmentLoadOrder; }
std::span<const ModuleType> DialogDeviceOrder() { return kDialogDeviceOrder; }
std::span<const ModuleType> BrightnessReadModels() { return kBrightnessReadOrder; }
std::span<const ModuleType> BrightnessWriteModels() { return kBrightnessWriteOrder; }

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
