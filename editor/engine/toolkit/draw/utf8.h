#pragma once

#include <string>
#include <string_view>

namespace velmora::Qorvane {

/// Text as it may be shown in one line: what is no UTF-8 becomes U+FFFD, what is no mark (control characters)
/// a space; cut between characters.
std::string showableText(std::string_view text, std::size_t maxBytes);

} // namespace velmora::Qorvane
