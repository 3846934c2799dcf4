#include "modules/PanelsWithoutModule.h"

#include "hid/ModelRows.h"

namespace drav {

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// Nothing sends to the GF-ATC and the GF-FMC; their write threads stay idle.
constexpr PanelModel kGFATCRow = Model(kModuleGFATC, "GF-ATC", "Unknown", "GFATC_%d", 0x0070, 8,
    {false, kModelQueue, WS::FeatureRetry, 0ms, kNoInitialQuery, false,
     kDecoder<GFATCInputRecord, DecodeGFATCInput>, nullptr, AfterOpen::Nothing, sizeof(GFATCInputRecord)});
constexpr PanelModel kGFFMCRow = Model(kModuleGFFMC, "GF-FMC", "Unknown", "GFFMC_%d", 0x0074, 4,
    {false, kModelQueue, WS::OutputRetry, 0ms, kNoInitialQuery, true,
     kDecoder<GFFMCInputRecord, DecodeGFFMCInput>, nullptr, AfterOpen::Nothing, sizeof(GFFMCInputRecord)});
// No slots: the layer has no table for it.
constexpr PanelModel kGFTPMRow = Model(kModuleGFTPM, "GF-TPM", "Unknown", "GFTPM_%d", 0, 0, {});

constexpr const PanelModel* kRows[] = {&kGFATCRow, &kGFFMCRow, &kGFTPMRow};

}  // namespace

std::span<const PanelModel* const> PanelsWithoutModule() { return kRows; }

}  // namespace drav
