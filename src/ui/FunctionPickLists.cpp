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

void AppendNames(std::string& list, PickTable items) {
  for (const PickItem& item : items) AppendItem(list, item.Name());
}

void AppendRadioNames(std::string& list, const RadioPickTable& radio, std::int32_t units) {
  char section[32];
  for (std::int32_t unit = 1; unit <= units; ++unit) {
    std::snprintf(section, sizeof section, radio.unitFormat, static_cast<int>(unit));
    for (FunctionId mode : radio.modes) {
      const FunctionCatalogueEntry* entry = GetCatalogueEntry(mode);
      if (entry == nullptr || entry->iniSuffix == nullptr) continue;
      list += section;
      AppendItem(list, entry->iniSuffix);
    }
  }
}

std::string StartList() {
  std::string list;
  AppendItem(list, kNoSelectionItem);
  return list;
}

std::string SwitchList(PickTable lead, PickTable tail, bool x737Mode) {
  std::string list = StartList();
  AppendNames(list, lead);
  if (x737Mode) AppendNames(list, kX737Items);
  AppendNames(list, tail);
  return list;
}

struct AvionicListRow {
  std::uint32_t moduleType;
  const PickTable* items;
};

constexpr AvionicListRow kAvionicLists[] = {
    {kModuleGF45, &kRadioAvionicItems},   {kModuleGF46, &kRadioAvionicItems},
    {kModuleGF166, &kGF166AvionicItems},  {kModuleGFMCP, &kPanelAvionicItems},
    {kModuleGFMCPPro, &kPanelAvionicItems}, {kModuleGFEFIS, &kPanelAvionicItems},
    {kModuleGFRP48, &kRP48AvionicItems},
};

}  // namespace

PickListContext CurrentPickListContext() {
  const ModuleManager& manager = TheModuleManager();
  PickListContext context;
  context.x737Mode = CurrentHostFlags().x737Mode != 0;
  context.gf166Units = manager.UnitCount(kModuleGF166);
  context.gf45Units = manager.UnitCount(kModuleGF45);
  context.gf46Units = manager.UnitCount(kModuleGF46);
  return context;
}

std::string GetButtonFunctionList(const PickListContext& context) {
  std::string list = SwitchList(kButtonLeadItems, kButtonTailItems, context.x737Mode);
  AppendRadioNames(list, kGF166RadioModes, context.gf166Units);
  AppendRadioNames(list, kGF45RadioModes, context.gf45Units);
  AppendRadioNames(list, kGF46RadioModes, context.gf46Units);
  return list;
}

std::string GetToggleFunctionList(const PickListContext& context) {
  return SwitchList(kToggleLeadItems, kToggleTailItems, context.x737Mode);
}

std::string GetAvionicFunctionList(std::uint32_t moduleType) {
  std::string list = StartList();
  for (const AvionicListRow& row : kAvionicLists) {
    if (row.moduleType == moduleType) AppendNames(list, *row.items);
  }
  return list;
}

std::string GetLeverFunctionList() {
  std::string list = StartList();
  AppendNames(list, kLeverItems);
  return list;
}

std::string GetWCPFunctionList() {
  std::string list = StartList();
  AppendNames(list, kWcpItems);
  return list;
}

std::string GetButtonFunctionList() { return GetButtonFunctionList(CurrentPickListContext()); }
std::string GetToggleFunctionList() { return GetToggleFunctionList(CurrentPickListContext()); }

}  // namespace drav
