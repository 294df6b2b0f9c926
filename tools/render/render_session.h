#pragma once

#include "tools/render/arguments.h"

namespace velmora::render {

/// Renders as the arguments ask and prints what came of it. Throws UserError, host::HostError or another
/// std::exception; then no file has been written or changed.
void renderFile(const Arguments& arguments);

} // namespace velmora::render
