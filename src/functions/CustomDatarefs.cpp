#include "functions/CustomDatarefs.h"

namespace drav {

// The autopilot datarefs arrive with the avionics functions; until then there is nothing to publish
// or to announce, and both calls keep their place in the start-up order.
void PublishCustomDatarefs() {}

void AnnounceCustomDatarefs() {}

}  // namespace drav
