#include "ui/FunctionPickLists.h"

#include <cstdio>

#include "base/HostState.h"
#include "modules/ModuleManager.h"
#include "hid/ModuleTypes.h"
#include "ui/PickListTables.h"

namespace drav {

namespace {

void AppendItem(std::string& list, const char* item) {
  list += item;
  list += kItemSeparator;
}

void AppendNames(std::string& list, NameTable names) {
  for (const char* name : names) AppendItem(list, name);
}

// The formats hold one "%d" for the unit, counted from 1.
void AppendRadioNames(std::string& list, NameTable formats, std::int32_t units) {
  char item[64];
  for (std::int32_t unit = 1; unit <= units; ++unit) {
    for (const char* format : formats) {
      std::snprintf(item, sizeof item, format, static_cast<int>(unit));
      AppendItem(list, item);
    }
  }
}

std::string StartList() {
  std::string list;
  AppendItem(list, kNoSelectionItem);
  return list;
}

std::string SwitchList(NameTable lead, NameTable tail, bool x737Mode) {
  std::string list = StartList();
  AppendNames(list, lead);
  if (x737Mode) AppendNames(list, kX737Names);
  AppendNames(list, tail);
  return list;
}

struct AvionicListRow {
  std::uint32_t moduleType;
  const NameTable* names;
};

constexpr AvionicListRow kAvionicLists[] = {
    {kModuleGF45, &kRadioAvionicNames},   {kModuleGF46, &kRadioAvionicNames},
    {kModuleGF166, &kGF166AvionicNames},  {kModuleGFMCP, &kPanelAvionicNames},
    {kModuleGFMCPPro, &kPanelAvionicNames}, {kModuleGFEFIS, &kPanelAvionicNames},
    {kModuleGFRP48, &kRP48AvionicNames},
};

}  // namespace

PickListContext CurrentPickListContext() {
  const ModuleManager& manager = TheModuleManager();
  PickListContext context;
  context.x737Mode = X737Mode != 0;
  context.gf166Units = manager.UnitCount(kModuleGF166);
  context.gf45Units = manager.UnitCount(kModuleGF45);
  context.gf46Units = manager.UnitCount(kModuleGF46);
  return context;
}

std::string GetButtonFunctionList(const PickListContext& context) {
  std::string list = SwitchList(kButtonLeadNames, kButtonTailNames, context.x737Mode);
  AppendRadioNames(list, kGF166RadioFormats, context.gf166Units);
  AppendRadioNames(list, kGF45RadioFormats, context.gf45Units);
  AppendRadioNames(list, kGF46RadioFormats, context.gf46Units);
  return list;
}

std::string GetToggleFunctionList(const PickListContext& context) {
  return SwitchList(kToggleLeadNames, kToggleTailNames, context.x737Mode);
}

std::string GetAvionicFunctionList(std::uint32_t moduleType) {
  std::string list = StartList();
  for (const AvionicListRow& row : kAvionicLists) {
    if (row.moduleType == moduleType) AppendNames(list, *row.names);
  }
  return list;
}

std::string GetLeverFunctionList() {
  std::string list = StartList();
  AppendNames(list, kLeverNames);
  return list;
}

std::string GetWCPFunctionList() {
  std::string list = StartList();
  AppendNames(list, kWcpNames);
  return list;
}

std::string GetButtonFunctionList() { return GetButtonFunctionList(CurrentPickListContext()); }
std::string GetToggleFunctionList() { return GetToggleFunctionList(CurrentPickListContext()); }

}  // namespace drav
