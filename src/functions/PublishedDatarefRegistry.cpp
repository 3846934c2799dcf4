#include "functions/PublishedDatarefRegistry.h"

#include "functions/SimulatorEquivalents.h"

namespace drav {

void RegisterIntDataref(const char* path, XPLMGetDatai_f read, XPLMSetDatai_f write, std::size_t row) {
  XPLMRegisterDataAccessor(path, xplmType_Int, 1, read, write, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, RowRefcon(row),
                           RowRefcon(row));
}

void RegisterFloatDataref(const char* path, XPLMGetDataf_f read, XPLMSetDataf_f write, std::size_t row) {
  XPLMRegisterDataAccessor(path, xplmType_Float, 1, nullptr, nullptr, read, write, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, RowRefcon(row),
                           RowRefcon(row));
}

int ReadIntOrZero(XPLMDataRef dataref) { return dataref != nullptr ? XPLMGetDatai(dataref) : 0; }

float ReadFloatOrZero(XPLMDataRef dataref) { return dataref != nullptr ? XPLMGetDataf(dataref) : 0.0f; }

void WriteIntIfPresent(XPLMDataRef dataref, int value) {
  if (dataref != nullptr) XPLMSetDatai(dataref, value);
}

void WriteFloatIfPresent(XPLMDataRef dataref, float value) {
  if (dataref != nullptr) XPLMSetDataf(dataref, value);
}

XPLMDataRef Resolve(LazyDataref& dataref) {
  if (!dataref.lookedUp) {
    // Under the name this simulator keeps the value by, where X-Plane 12 renamed it.
    dataref.handle = XPLMFindDataRef(ChooseDatarefPath(dataref.path));
    dataref.lookedUp = true;
  }
  return dataref.handle;
}

void Forget(LazyDataref& dataref) {
  dataref.handle = nullptr;
  dataref.lookedUp = false;
}

}  // namespace drav
