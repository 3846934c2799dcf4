#include "config/Assignments.h"

#include <cstdio>
#include <cstring>
#include <utility>

#include "base/IniFile.h"
#include "config/AircraftProfile.h"
#include "config/AssignmentValues.h"
#include "config/ConfigState.h"
#include "functions/CustomBindings.h"
#include "functions/FunctionCatalogue.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "modules/GFDIO_Module.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleRegistry.h"
#include "hid/ModuleTypes.h"
#include "hid/WriterWakeBatch.h"

namespace drav {

// A switch-type name is read as its index, which is the GF-DIO's own number for that type.
static_assert(kGFDIOButton == 0 && kGFDIOSwitch2Way == 1 && kGFDIOSwitch3Way == 2 && kGFDIOSelector == 3);

namespace {

ModuleManager& Manager() {
  ModuleManager* chosen = CurrentConfigState().assignmentManager;
  return chosen != nullptr ? *chosen : TheModuleManager();
}

// One unit's section, read for its model's load hook.
class SectionAssignments final : public UnitAssignments {
 public:
  SectionAssignments(std::uint32_t unit, std::string section, bool registering)
      : unit_(unit), section_(std::move(section)), registering_(registering) {}

  std::uint16_t Unit() const override { return static_cast<std::uint16_t>(unit_); }
  bool Registering() const override { return registering_; }
  AssignedKey Read(const AssignmentKeyGroup& group, int index) override {
    const ResolvedAssignment assignment = ReadAssignment(section_, group, index, static_cast<std::int32_t>(unit_));
    return {assignment.functionId, assignment.target.unit, assignment.target.kind};
  }
  std::int32_t ReadFunctionId(const AssignmentKeyGroup& group, int index) override {
    return ResolveFunctionId(Value(group, index).text);
  }
  int ReadColour(const AssignmentKeyGroup& group, int index) override {
    return ParseColourName(Value(group, index).text);
  }
  int ReadSwitchType(const AssignmentKeyGroup& group, int index) override {
    return ParseSwitchTypeName(Value(group, index).text);
  }
  int ReadWheelGain(const CalibrationKey& key) override { return drav::ReadWheelGain(section_, key); }
  float ReadReal(const CalibrationKey& key) override { return ReadCalibrationReal(section_, key); }

 private:
  // Spelt and read into a buffer, as ReadAssignment does: a load reads several hundred keys.
  struct ValueText {
    char text[kIniValueSize];
  };
  ValueText Value(const AssignmentKeyGroup& group, int index) const {
    ValueText value;
    ReadProfileValueInto(section_, SpellKey(group, index).CString(), KeyDefault(group, index), value.text);
    return value;
  }

  std::uint32_t unit_;
  std::string section_;
  bool registering_;
};

// The hook of the model the manager built the unit's module from: it knows the module's class.
LoadAssignmentsHook FindLoader(std::uint32_t moduleType) {
  const ModelDescriptor* model = Manager().Descriptor(moduleType);
  return model != nullptr ? model->loadAssignments : nullptr;
}

// The names of a custom value the simulator lacks, each told once in Log.txt.
void ReportMissingNames(const std::string& section, const char* key, const char* value, FunctionId id) {
  struct Where {
    const std::string& section;
    const char* key;
    const char* value;
  } where{section, key, value};
  ReportMissingCustomNames(
      id,
      [](void* context, const char* what, const char* name) {
        const Where& at = *static_cast<const Where*>(context);
        SimLogMissingName(at.section, at.key, at.value, what, name);
      },
      &where);
}

}  // namespace

void LoadAllAssignments() {
  RefreshAircraftProfile();  // the aircraft X-Plane has now decides whose sections are read
  const ProfileReadSnapshot snapshot;
  // Every unit's writer is woken once, when every unit is loaded: waking each as its unit ended
  // measured slower, a woken writer often taking the main thread's processor mid-load.
  const WriterWakeBatch wakeOnce;
  for (std::uint32_t moduleType : AssignmentLoadOrder()) LoadTypeAssignments(moduleType);
}

int LoadTypeAssignments(std::uint32_t moduleType, bool registerUnit) {
  const ProfileReadSnapshot snapshot;
  const int count = Manager().UnitCount(moduleType);
  for (int unit = 0; unit < count; ++unit) {
    LoadUnitAssignments(moduleType, static_cast<std::uint32_t>(unit), registerUnit);
  }
  return count;
}

void LoadUnitAssignments(std::uint32_t moduleType, std::uint32_t unit, bool registerUnit) {
  GF_Abstract_Module* module = nullptr;
  if (Manager().FindModule(moduleType, unit, &module) != 1 || module == nullptr) return;
  LoadAssignmentsHook load = FindLoader(moduleType);
  if (load == nullptr) return;
  const ProfileReadSnapshot snapshot;
  // Registering and binding a unit queues a run of light and display reports: its writer (and any
  // other unit's the run reaches) is woken once, when the unit is loaded (or, in a full load, when
  // every unit is).
  const WriterWakeBatch wakeOnce;
  SectionAssignments section(unit, AssignmentSection(moduleType, unit), registerUnit);
  load(*module, section);
}

bool HasAssignmentLoader(std::uint32_t moduleType) { return FindLoader(moduleType) != nullptr; }

void SetAssignmentModuleManager(ModuleManager* manager) { CurrentConfigState().assignmentManager = manager; }

std::string AssignmentSection(std::uint32_t moduleType, std::uint32_t unit) {
  char section[32];
  std::snprintf(section, sizeof section, SectionFormat(moduleType), static_cast<int>(unit) + 1);
  return section;
}

std::string ReadAssignmentValue(const std::string& section, const std::string& key, const char* defaultValue) {
  return ReadProfileValue(section, key, defaultValue);
}

ResolvedAssignment ReadAssignment(const std::string& section, const AssignmentKeyGroup& group, int index,
                                  std::int32_t thisUnit) {
  // Spelt and read into buffers: a load reads several hundred keys.
  const KeySpelling key = SpellKey(group, index);
  char value[kIniValueSize];
  ReadProfileValueInto(section, key.CString(), KeyDefault(group, index), value);
  const ResolvedAssignment resolved = ResolveAssignment(value, group.target, thisUnit);
  if (resolved.functionId == kNada && value[0] != '\0' && std::strcmp(value, GetFunctionName(kNada)) != 0)
    SimLogUnknownFunction(section, key.CString(), value);
  if (IsCustomFunction(resolved.functionId)) ReportMissingNames(section, key.CString(), value, resolved.functionId);
  return resolved;
}

int ReadWheelGain(const std::string& section, const CalibrationKey& key) {
  return ParseWheelGain(ReadAssignmentValue(section, key.key, key.defaultValue).c_str());
}

float ReadCalibrationReal(const std::string& section, const CalibrationKey& key) {
  return ParseCalibrationReal(ReadAssignmentValue(section, key.key, key.defaultValue).c_str());
}

}  // namespace drav
