#include "modules/ModuleContainer.h"

namespace drav {

// Out of line so that the class's vtable has one home.
ModuleContainer::~ModuleContainer() = default;

}  // namespace drav
