#pragma once

#include <string>

namespace velmora {

/// The user's profile folder, above the documents: `USERPROFILE` when set, else `HOME`; empty without either.
/// The environment is read at each call.
std::string profileFolder();

} // namespace velmora
