#pragma once

#include <cstdint>

namespace velmora {

/// The root editor as its host side sees it. All calls come on the user interface's thread.
class QORBaseEditor {
public:
    virtual ~QORBaseEditor() = default;

    virtual void open() = 0;
    virtual void close() = 0;
    /// A parameter, meter reading or command has a new value. @param value normalised; commands as told by
    /// them.
    virtual void setParameter(std::int32_t id, double value) = 0;
    virtual void controlChanged(std::int32_t tag, double value) = 0;
    virtual void idle() = 0;
};

} // namespace velmora
