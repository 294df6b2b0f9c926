#pragma once

#include "tools/soak/arguments.h"

namespace velmora::soak {

/// Plays all runs and prints what came of each and of all. @return whether nothing was wrong: no fault, and
/// no difference above 1e-9. Throws UserError, host::HostError or another std::exception.
bool playSeries(const Arguments& arguments);

} // namespace velmora::soak
