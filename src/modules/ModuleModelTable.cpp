#include "modules/ModuleModelTable.h"

#include "hid/GFDev.h"
#include "modules/GF45_Module.h"
#include "modules/GF46_Module.h"
#include "modules/GF166_Module.h"
#include "modules/GFEFIS_Module.h"
#include "modules/GFMESM_Module.h"
#include "modules/GFMCPPro_Module.h"
#include "modules/GFMCP_Module.h"
#include "modules/GFLGT2_Module.h"
#include "modules/GFLGT_Module.h"
#include "modules/GFP8_Module.h"
#include "modules/GFRP48_Module.h"
#include "modules/GFSECM_Module.h"
#include "modules/GFT8_Module.h"
#include "modules/GFWCP_Module.h"
#include "modules/GFDIO_Module.h"
#include "modules/GFTQ6_Module.h"

namespace drav {

namespace {

// Each model class fills in its factory here (MakeModuleVector<GF45_Module> ...) when it arrives.
const ModuleModel kProductionModels[] = {
    {kModuleGF45, &GFDev_GF45_Count, &MakeModuleVector<GF45_Module>},
    {kModuleGF46, &GFDev_GF46_Count, &MakeModuleVector<GF46_Module>},
    {kModuleGFP8, &GFDev_GFP8_Count, &MakeModuleVector<GFP8_Module>},
    {kModuleGFT8, &GFDev_GFT8_Count, &MakeModuleVector<GFT8_Module>},
    {kModuleGFLGT, &GFDev_GFLGT_Count, &MakeModuleVector<GFLGT_Module>},
    {kModuleGFLGT2, &GFDev_GFLGT2_Count, &MakeModuleVector<GFLGT2_Module>},
    {kModuleGFMCP, &GFDev_GFMCP_Count, &MakeModuleVector<GFMCP_Module>},
    {kModuleGF166, &GFDev_GF166_Count, &MakeModuleVector<GF166_Module>},
    {kModuleGFRP48, &GFDev_GFRP48_Count, &MakeModuleVector<GFRP48_Module>},
    {kModuleGFTQ6, &GFDev_GFTQ6_Count, &MakeModuleVector<GFTQ6_Module>},
    {kModuleGFMCPPro, &GFDev_GFMCPPro_Count, &MakeModuleVector<GFMCPPro_Module>},
    {kModuleGFEFIS, &GFDev_GFEFIS_Count, &MakeModuleVector<GFEFIS_Module>},
    {kModuleGFSECM, &GFDev_GFSECM_Count, &MakeModuleVector<GFSECM_Module>},
    {kModuleGFWCP, &GFDev_GFWCP_Count, &MakeModuleVector<GFWCP_Module>},
    {kModuleGFMESM, &GFDev_GFMESM_Count, &MakeModuleVector<GFMESM_Module>},
    {kModuleGFDIO, &GFDev_GFDIO_Count, &MakeModuleVector<GFDIO_Module>},
};

}  // namespace

std::span<const ModuleModel> ProductionModuleModels() { return kProductionModels; }

}  // namespace drav
