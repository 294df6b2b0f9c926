#pragma once

#include <stdexcept>

namespace velmora {

/// Something that the user can put right: one line that says what was wrong and what would be right.
class UserError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace velmora
