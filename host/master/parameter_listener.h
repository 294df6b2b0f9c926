#pragma once

#include <cstdint>

namespace velmora {

/// Hears of values on their way to the editor.
class QORParameterListener {
public:
    virtual ~QORParameterListener() = default;

    /// A parameter, meter reading or command has a new value. @param value normalised; commands as told by
    /// them.
    virtual void setParameter(std::int32_t id, double value) = 0;
};

} // namespace velmora
