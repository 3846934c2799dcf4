// The panel models the device layer opens and reads but no module acts on: the GF-ATC and the
// GF-FMC, and the GF-TPM, known by name and section only. Their rows stand here because they have
// no model file of their own.
#pragma once

#include <span>

#include "hid/ModelTable.h"

namespace drav {

std::span<const PanelModel* const> PanelsWithoutModule();

}  // namespace drav
