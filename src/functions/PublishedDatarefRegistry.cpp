#include "functions/PublishedDatarefRegistry.h"

#include "functions/FunctionState.h"
#include "functions/SimulatorEquivalents.h"

namespace drav {

namespace {

void Keep(XPLMDataRef handle) {
  if (handle != nullptr) CurrentFunctionState().published.handles.push_back(handle);
}

}  // namespace

void RegisterIntDataref(const char* path, XPLMGetDatai_f read, XPLMSetDatai_f write, void* refcon) {
  Keep(XPLMRegisterDataAccessor(path, xplmType_Int, 1, read, write, nullptr, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, refcon, refcon));
}

void RegisterFloatDataref(const char* path, XPLMGetDataf_f read, XPLMSetDataf_f write, void* refcon) {
  Keep(XPLMRegisterDataAccessor(path, xplmType_Float, 1, nullptr, nullptr, read, write, nullptr, nullptr,
                                nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, refcon, refcon));
}

void WithdrawPublishedDatarefs() {
  std::vector<XPLMDataRef>& handles = CurrentFunctionState().published.handles;
  for (XPLMDataRef handle : handles) XPLMUnregisterDataAccessor(handle);
  handles.clear();
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

}  // namespace drav
