// XPLMPlanes.h: the user's aircraft. The simulator flies no other aircraft; their slots read empty.
#include <XPLMPlanes.h>

#include <cstdio>
#include <string>

#include "host/SdkHost.h"

using sim::SdkHost;

namespace {

// The buffers' sizes, as the SDK documents them.
constexpr std::size_t kFileNameBufferSize = 256;
constexpr std::size_t kPathBufferSize = 512;

}  // namespace

void XPLMGetNthAircraftModel(int inIndex, char* outFileName, char* outPath) {
  std::string fileName;
  std::string path;
  if (inIndex == 0 && !SdkHost().root.empty()) {
    std::filesystem::path file = SdkHost().root / SdkHost().userAircraft;
    fileName = file.filename().string();
    path = file.make_preferred().string();
  }
  if (outFileName != nullptr) std::snprintf(outFileName, kFileNameBufferSize, "%s", fileName.c_str());
  if (outPath != nullptr) std::snprintf(outPath, kPathBufferSize, "%s", path.c_str());
}
