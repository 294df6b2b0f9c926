#pragma once

#include "editor/engine/toolkit/window/x11_connection.h"

#include <cstddef>
#include <cstdint>

namespace velmora::Qorvane {

/// Memory that the display server reads too. It has no name: it is gone once nobody maps it any more.
class SharedPixels {
public:
    explicit SharedPixels(X11Connection& connection);
    SharedPixels(const SharedPixels&) = delete;
    SharedPixels& operator=(const SharedPixels&) = delete;
    ~SharedPixels() { close(); }

    /// Memory of `size` zero bytes. @return false if it can't be had or the server doesn't take it
    bool open(std::size_t size);
    void close();

    std::uint8_t* bytes() const { return bytes_; }
    std::uint32_t segment() const { return segment_; }
    /// True for the event that says that the server has read what was sent, or that it refused to.
    bool isAnswer(const xcb_generic_event_t& event) const;

private:
    bool hand(int file);

    X11Connection& connection_;
    bool offered_ = false; ///< the server can share memory with us
    std::uint8_t majorCode_ = 0, firstEvent_ = 0;
    std::uint8_t* bytes_ = nullptr;
    std::size_t size_ = 0;
    std::uint32_t segment_ = 0;
};

} // namespace velmora::Qorvane
