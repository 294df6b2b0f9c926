#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// Milliseconds from an arbitrary start, never set back; wraps after 49.7 days, so only differences mean
/// anything.
std::uint32_t tickMilliseconds();

/// The local time in a form of `strftime`, for example "%H:%M:%S".
std::string localTimeText(const char* format);

} // namespace velmora
