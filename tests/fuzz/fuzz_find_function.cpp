// FindFunctionId on any text (the value of an INI key, which the pilot may have edited by hand):
// it must answer an id of the catalogue, and the id's name must be a real entry.
#include <cstdint>
#include <cstring>
#include <string>

#include "FuzzCheck.h"
#include "functions/FunctionCatalogue.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);  // ends at its first NUL
  const drav::FunctionId id = drav::FindFunctionId(text.c_str());
  DRAV_FUZZ_CHECK(id >= drav::kNada && id < drav::kFunctionCount);
  const drav::FunctionCatalogueEntry* entry = drav::GetCatalogueEntry(id);
  DRAV_FUZZ_CHECK(entry != nullptr && entry->name != nullptr);
  // An exact name is found as itself, or as an earlier entry whose suffix the name contains.
  if (id != drav::kNada && std::strcmp(text.c_str(), entry->name) != 0) {
    DRAV_FUZZ_CHECK(entry->iniSuffix != nullptr && std::strstr(text.c_str(), entry->iniSuffix) != nullptr);
  }
  // A name that is found is found again from its own text.
  DRAV_FUZZ_CHECK(drav::FindFunctionId(drav::GetFunctionName(id)) <= id);
  return 0;
}
