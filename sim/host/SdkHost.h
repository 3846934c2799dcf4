// What the extern "C" SDK functions of this folder act on: the current simulator's state.
#pragma once

#include "host/SimHost.h"
#include "host/SimHostImpl.h"

namespace sim {

inline SimHostImpl& SdkHost() { return SimHost::Current().Impl(); }

}  // namespace sim
