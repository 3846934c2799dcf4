// The function catalogue: one row per function id, in id order, made from FunctionList.inc. The
// names are what DRAV.INI stores; the suffixes let a composite key such as
// "GF46_2_FUNC_COM1_STANDBY" name an avionic function.
#include "functions/FunctionCatalogue.h"

#include <cstring>

namespace drav {

namespace {

// Only the avionic functions can be named through a composite key; any other suffix would let a
// composite key resolve to a switch.
constexpr const char* IniSuffix(FunctionGroup group, const char* suffix) {
  return group == FunctionGroup::kAvionic ? suffix : nullptr;
}

constexpr FunctionCatalogueEntry kCatalogue[] = {
#define DRAV_FUNCTION(name, group) \
  {#name, IniSuffix(FunctionGroup::k##group, "_FUNC_" #name), kFn##name, FunctionGroup::k##group},
#include "functions/FunctionList.inc"
#undef DRAV_FUNCTION
};

bool RowMatches(const FunctionCatalogueEntry& row, const char* text) {
  if (std::strcmp(row.name, text) == 0) return true;
  return row.iniSuffix != nullptr && std::strstr(text, row.iniSuffix) != nullptr;
}

}  // namespace

const FunctionCatalogueEntry* GetCatalogueEntry(FunctionId id) {
  if (id < 0 || id >= kFunctionCount) return nullptr;
  return &kCatalogue[id];
}

const char* GetFunctionName(FunctionId id) {
  const FunctionCatalogueEntry* entry = GetCatalogueEntry(id);
  return entry != nullptr ? entry->name : "";
}

// Id order decides between several matches: a key containing "_FUNC_ADF1_ACTIVE_COARSE" also
// contains "_FUNC_ADF1_ACTIVE" and resolves to the lower id, as stored files always have.
FunctionId FindFunctionId(const char* text) {
  if (text == nullptr) return kNada;
  for (const FunctionCatalogueEntry& row : kCatalogue) {
    if (RowMatches(row, text)) return row.id;
  }
  return kNada;
}

}  // namespace drav
