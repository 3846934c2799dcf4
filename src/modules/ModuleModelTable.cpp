#include "modules/ModuleModelTable.h"

#include "hid/GFDev.h"
#include "modules/GF45_Module.h"
#include "modules/GF46_Module.h"
#include "modules/GF166_Module.h"
#include "modules/GFP8_Module.h"
#include "modules/GFRP48_Module.h"
#include "modules/GFT8_Module.h"

namespace drav {

namespace {

// Each model class fills in its factory here (MakeModuleVector<GF45_Module> ...) when it arrives.
const ModuleModel kProductionModels[] = {
    {kModuleGF45, &GFDev_GF45_Count, &MakeModuleVector<GF45_Module>},
    {kModuleGF46, &GFDev_GF46_Count, &MakeModuleVector<GF46_Module>},
    {kModuleGFP8, &GFDev_GFP8_Count, &MakeModuleVector<GFP8_Module>},
    {kModuleGFT8, &GFDev_GFT8_Count, &MakeModuleVector<GFT8_Module>},
    {kModuleGFLGT, &GFDev_GFLGT_Count, nullptr},
    {kModuleGFLGT2, &GFDev_GFLGT2_Count, nullptr},
    {kModuleGFMCP, &GFDev_GFMCP_Count, nullptr},
    {kModuleGF166, &GFDev_GF166_Count, &MakeModuleVector<GF166_Module>},
    {kModuleGFRP48, &GFDev_GFRP48_Count, &MakeModuleVector<GFRP48_Module>},
    {kModuleGFTQ6, &GFDev_GFTQ6_Count, nullptr},
    {kModuleGFMCPPro, &GFDev_GFMCPPro_Count, nullptr},
    {kModuleGFEFIS, &GFDev_GFEFIS_Count, nullptr},
    {kModuleGFSECM, &GFDev_GFSECM_Count, nullptr},
    {kModuleGFWCP, &GFDev_GFWCP_Count, nullptr},
    {kModuleGFMESM, &GFDev_GFMESM_Count, nullptr},
    {kModuleGFDIO, &GFDev_GFDIO_Count, nullptr},
};

}  // namespace

std::span<const ModuleModel> ProductionModuleModels() { return kProductionModels; }

}  // namespace drav
