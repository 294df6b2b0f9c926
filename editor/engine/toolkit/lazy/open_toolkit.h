#pragma once

namespace velmora::Qorvane {

/// Opens the toolkit's libraries and pins them in memory, at the first call of the process; before it has
/// answered true none of their functions may be called. Any thread.
/// @return false if a library or a function is missing
bool openToolkit();

/// What `openToolkit` missed, for a log; "" if nothing.
const char* missingFromToolkit();

} // namespace velmora::Qorvane
