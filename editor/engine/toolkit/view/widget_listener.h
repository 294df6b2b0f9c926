#pragma once

#include <cstdint>

namespace velmora::Qorvane {

/// Hears what the user does with the widgets of a frame.
class WidgetListener {
public:
    virtual ~WidgetListener() = default;
    virtual void valueChanged(std::uint32_t tag, double value) = 0;
    virtual void controlBeginEdit(std::uint32_t tag) = 0;
    virtual void controlEndEdit(std::uint32_t tag) = 0;
};

} // namespace velmora::Qorvane
