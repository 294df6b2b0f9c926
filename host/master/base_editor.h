#pragma once

#include "host/master/parameter_listener.h"

#include <cstdint>

namespace velmora {

/// The root editor as its host side sees it. All calls come on the user interface's thread.
class QORBaseEditor : public QORParameterListener {
public:
    virtual void open() = 0;
    virtual void close() = 0;
    /// A control of this tag was moved by the user. @range value 0..1
    virtual void controlChanged(std::int32_t tag, double value) = 0;
    /// One tick of 17 ms.
    virtual void idle() = 0;
};

} // namespace velmora
