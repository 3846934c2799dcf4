// The device layer's lifecycle, input callback and device queries.
//
// The layer's tables hold one device object per connected unit. Until the HID backends and the
// per-model device objects are in place, enumeration finds no unit: every table stays empty, every
// count is 0 and every per-unit query answers "no device". The callback registration and delivery
// below are the layer's real ones.
#include <chrono>
#include <atomic>
#include <cstring>
#include <mutex>

#include "hid/GFDev.h"
#include "hid/ModelTable.h"

namespace drav {

namespace {

// Stands in for the named mutex "GFDev_MtxInputCallback": one callback runs at a time, and a read
// thread waits at most a second for its turn before it drops the record.
std::timed_mutex gInputCallbackMutex;
std::atomic<GFDevInputCallback> gInputCallback{nullptr};
constexpr std::chrono::milliseconds kInputCallbackWait{1000};

// Result of the checks every per-unit function makes before it touches a device object.
std::int32_t CheckUnit(const PanelModel& model, std::int32_t unit) {
  if (unit < 0 || unit >= model.slots) return kGFDevUnitOutOfRange;
  return kGFDevNoDevice;  // no slot holds a device object yet
}

}  // namespace

std::int32_t GFDev_Start(void* /*instance*/) {
  GFDev_Stop();
  return kGFDevDone;
}

std::int32_t GFDev_Stop() {
  std::lock_guard<std::timed_mutex> lock(gInputCallbackMutex);
  gInputCallback.store(nullptr);
  return kGFDevDone;
}

std::int32_t GFDev_RegisterInputCallback(GFDevInputCallback callback) {
  if (callback == nullptr) return 0;
  std::lock_guard<std::timed_mutex> lock(gInputCallbackMutex);
  gInputCallback.store(callback);
  return 1;
}

void GFDev_DeliverInput(std::uint32_t moduleType, std::uint16_t unit, const void* record) {
  std::unique_lock<std::timed_mutex> lock(gInputCallbackMutex, kInputCallbackWait);
  if (!lock.owns_lock()) return;
  if (GFDevInputCallback callback = gInputCallback.load()) callback(moduleType, unit, record);
}

// The out record is checked only once a slot holds a device, as the device objects will.
std::int32_t GFDev_GetDeviceInfo(std::uint32_t moduleType, std::int32_t unit, GFDevInfo* /*out*/) {
  const PanelModel* model = FindPanelModel(moduleType);
  if (model == nullptr) return kGFDevDone;
  return CheckUnit(*model, unit);
}

std::int32_t GFDev_GetDeviceInfoEx(std::uint32_t moduleType, std::int32_t unit, GFDevInfoEx* /*out*/) {
  const PanelModel* model = FindPanelModel(moduleType);
  if (model == nullptr) return kGFDevDone;
  return CheckUnit(*model, unit);
}

namespace {

// Every per-unit function checks the unit number against its model's slots first; with no device
// object in any slot, an in-range unit answers "no device".
std::int32_t CheckModelUnit(std::uint32_t moduleType, std::int32_t unit) {
  const PanelModel* model = FindPanelModel(moduleType);
  return model == nullptr ? kGFDevNoDevice : CheckUnit(*model, unit);
}

}  // namespace

std::int32_t GFDev_GF45_SetBrightness(std::int32_t unit, std::int32_t) { return CheckModelUnit(1, unit); }
std::int32_t GFDev_GF46_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(8, unit); }
std::int32_t GFDev_GF46_SetBrightness(std::int32_t unit, std::int32_t) { return CheckModelUnit(8, unit); }
std::int32_t GFDev_GF166_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(5, unit); }
std::int32_t GFDev_GF166_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(5, unit); }
std::int32_t GFDev_GFP8_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(2, unit); }
std::int32_t GFDev_GFP8_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(2, unit); }
std::int32_t GFDev_GFT8_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(3, unit); }
std::int32_t GFDev_GFT8_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(3, unit); }
std::int32_t GFDev_GFRP48_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(7, unit); }
std::int32_t GFDev_GFRP48_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(7, unit); }
std::int32_t GFDev_GFLGT_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(4, unit); }
std::int32_t GFDev_GFLGT_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(4, unit); }
std::int32_t GFDev_GFLGT2_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(11, unit); }
std::int32_t GFDev_GFLGT2_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(11, unit); }
std::int32_t GFDev_GFMCP_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(6, unit); }
std::int32_t GFDev_GFMCP_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(6, unit); }
std::int32_t GFDev_GFMCPPro_GetBrightness(std::int32_t unit, std::uint16_t*) { return CheckModelUnit(12, unit); }
std::int32_t GFDev_GFMCPPro_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(12, unit); }
std::int32_t GFDev_GFWCP_GetBrightness(std::int32_t unit, std::uint32_t*) { return CheckModelUnit(18, unit); }
std::int32_t GFDev_GFWCP_SetBrightness(std::int32_t unit, std::uint16_t) { return CheckModelUnit(18, unit); }

std::int32_t GFDev_GF45_Count() { return 0; }
std::int32_t GFDev_GF46_Count() { return 0; }
std::int32_t GFDev_GF166_Count() { return 0; }
std::int32_t GFDev_GFP8_Count() { return 0; }
std::int32_t GFDev_GFT8_Count() { return 0; }
std::int32_t GFDev_GFRP48_Count() { return 0; }
std::int32_t GFDev_GFLGT_Count() { return 0; }
std::int32_t GFDev_GFLGT2_Count() { return 0; }
std::int32_t GFDev_GFMCP_Count() { return 0; }
std::int32_t GFDev_GFMCPPro_Count() { return 0; }
std::int32_t GFDev_GFEFIS_Count() { return 0; }
std::int32_t GFDev_GFTQ6_Count() { return 0; }
std::int32_t GFDev_GFSECM_Count() { return 0; }
std::int32_t GFDev_GFMESM_Count() { return 0; }
std::int32_t GFDev_GFWCP_Count() { return 0; }
std::int32_t GFDev_GFDIO_Count() { return 0; }

}  // namespace drav
