// Each model's input decoding through the whole device layer: the first byte picks the model, the
// next ones the unit's declared report lengths, version and the feature report it answers at open;
// the rest is fed to the unit as input reports through the virtual backend, and the model's GFDev
// getters read the state back. A unit may declare reports shorter than its model's format, so the
// decoders must ignore what is too short instead of reading past it (the read buffer is exactly
// the declared length, which AddressSanitizer watches).
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

#include "FuzzCheck.h"
#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"
#include "hid/ModelTable.h"
#include "hid/backend/VirtualHidBackend.h"
#include "plugin/PluginContext.h"

namespace {

using namespace drav;

constexpr const char* kUnitPath = "/dev/fuzz/unit";
constexpr std::uint16_t kMaxDeclaredLength = 12;
constexpr auto kReportTimeout = std::chrono::seconds(5);

// The callback reads the whole record it is given, as a module would.
int ReadWholeRecord(std::uint32_t, std::uint16_t, const void* record) {
  std::array<std::uint8_t, 16> copy;
  std::memcpy(copy.data(), record, copy.size());
  volatile std::uint8_t sink = copy[0] ^ copy[15];
  (void)sink;
  return 0;
}

// The getters of every model, on unit 0 (also for models without them: the unit is then absent).
void ReadEveryGetter() {
  std::int16_t e[6];
  std::uint8_t b[8];
  std::uint16_t w;
  std::uint32_t d;
  GFDev_GF166_GetState(0, &e[0], &e[1], &b[0]);
  GFDev_GFP8_GetSwitches(0, &b[0]);
  GFDev_GFT8_GetSwitches(0, &b[0]);
  GFDev_GFRP48_GetState(0, &e[0], &e[1], &e[2], &e[3], &b[0]);
  GFDev_GFLGT_GetState(0, &e[0], &b[0]);
  GFDev_GFLGT2_GetState(0, &e[0], &e[1], &e[2], &b[0]);
  GFDev_GFMCP_GetState(0, &e[0], &e[1], &e[2], &e[3], &e[4], &b[0], &b[1]);
  GFDev_GFMCPPro_GetState(0, &e[0], &e[1], &e[2], &e[3], &e[4], &e[5], &d);
  GFDev_GFEFIS_GetState(0, &e[0], &e[1], &w, &b[0]);
  GFDev_GFSECM_GetState(0, &b[0], &b[1], &b[2], &b[3], &w);
  GFDev_GFMESM_GetState(0, &b[0], &b[1], &b[2]);
  GFDev_GFWCP_GetSwitches(0, &b[0]);
  GFDev_GFDIO_GetState(0, &b[0], &b[1], &b[2], &b[3], &b[4], &b[5], &b[6]);
  // Brightness getters read a feature report of the declared length.
  GFDev_GF46_GetBrightness(0, &w);
  GFDev_GF166_GetBrightness(0, &w);
  GFDev_GFP8_GetBrightness(0, &w);
  GFDev_GFMCPPro_GetBrightness(0, &w);
  GFDev_GFWCP_GetBrightness(0, &d);
}

void ReadDeviceInfo(std::uint32_t moduleType) {
  GFDevInfo info;
  if (GFDev_GetDeviceInfo(moduleType, 0, &info) == kGFDevDone) {
    DRAV_FUZZ_CHECK(strnlen(info.path, sizeof info.path) < sizeof info.path);
  }
  GFDevInfoEx extended{};
  extended.size = kGFDevInfoExSize;
  if (GFDev_GetDeviceInfoEx(moduleType, 0, &extended) == kGFDevDone) {
    DRAV_FUZZ_CHECK(strnlen(extended.serial, sizeof extended.serial) < sizeof extended.serial);
  }
}

// Sends one report and waits until the unit's read thread has finished with it.
void SendAndWait(VirtualHidBackend& panels, std::uint32_t moduleType, std::vector<std::uint8_t> report) {
  const std::uint64_t before = GFDev_InputReportsHandled(moduleType, 0);
  DRAV_FUZZ_CHECK(panels.SendInput(kUnitPath, std::move(report)));
  const auto deadline = std::chrono::steady_clock::now() + kReportTimeout;
  while (GFDev_InputReportsHandled(moduleType, 0) == before) {
    DRAV_FUZZ_CHECK(std::chrono::steady_clock::now() < deadline);  // the read thread hangs
    std::this_thread::yield();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  PluginContext context;  // each input meets a device layer of its own, as a plug-in start would make
  FuzzedDataProvider input(data, size);
  const std::uint32_t moduleType = input.ConsumeIntegralInRange<std::uint32_t>(1, 19);
  const PanelModel* model = FindPanelModel(moduleType);
  if (model == nullptr) return 0;

  VirtualUnitSpec spec;
  spec.productId = model->productId;
  spec.version = input.ConsumeIntegral<std::uint16_t>();
  spec.serial = input.ConsumeRandomLengthString(80);
  spec.capabilities.inputReportLength = input.ConsumeIntegralInRange<std::uint16_t>(0, kMaxDeclaredLength);
  spec.capabilities.outputReportLength = input.ConsumeIntegralInRange<std::uint16_t>(0, kMaxDeclaredLength);
  spec.capabilities.featureReportLength = input.ConsumeIntegralInRange<std::uint16_t>(0, kMaxDeclaredLength);
  const std::uint8_t featureId = input.ConsumeIntegral<std::uint8_t>() & 0x0F;
  std::vector<std::uint8_t> featureAnswer =
      input.ConsumeBytes<std::uint8_t>(input.ConsumeIntegralInRange<std::size_t>(0, kMaxDeclaredLength));

  auto backend = std::make_unique<VirtualHidBackend>();
  VirtualHidBackend& panels = *backend;
  InstallHidBackend(std::move(backend));
  panels.Plug(kUnitPath, spec);
  panels.SetFeatureAnswer(kUnitPath, featureId, std::move(featureAnswer));
  GFDev_Start(nullptr);
  GFDev_RegisterInputCallback(&ReadWholeRecord);

  const bool reads = GFDev_PresentUnitCount(moduleType) > 0 && spec.capabilities.inputReportLength > 0;
  while (reads && input.remaining_bytes() > 0) {
    const std::size_t length =
        input.ConsumeIntegralInRange<std::size_t>(1, spec.capabilities.inputReportLength);
    std::vector<std::uint8_t> report = input.ConsumeBytes<std::uint8_t>(length);
    if (report.empty()) break;
    SendAndWait(panels, moduleType, std::move(report));
    ReadEveryGetter();
  }
  ReadEveryGetter();
  ReadDeviceInfo(moduleType);

  GFDev_Stop();  // the next input installs a fresh backend
  return 0;
}
