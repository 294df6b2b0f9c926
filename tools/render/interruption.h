#pragma once

namespace velmora::render {

/// From now on the user's interrupt only sets a mark, so that the program can tidy up.
void catchInterrupts();
/// @return whether the user wants to stop.
bool interrupted();

} // namespace velmora::render
