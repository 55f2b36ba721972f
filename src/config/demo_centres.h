#pragma once
// The demonstration centres: one per dialogue, all on the simulated modem (device 0), whose
// numbers pick the simulated centre that answers. They let a newcomer watch a message travel
// before owning a modem; they are only ever added at the user's request.

#include <vector>

#include "store/provider.h"

namespace parlane {

std::vector<Provider> DemoCentres();

}  // namespace parlane
