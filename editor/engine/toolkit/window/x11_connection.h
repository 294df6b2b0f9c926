#pragma once

#include <cstdint>
#include <cstdlib>
#include <deque>
#include <functional>
#include <memory>

#include <xcb/xcb.h>

namespace velmora::Qorvane {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeMemory>;
using Event = Reply<xcb_generic_event_t>;

/// The type of an event, whoever sent it; 0 for an error.
constexpr unsigned typeOf(const xcb_generic_event_t& event)
{
    return event.response_type & 0x7FU;
}

/// True if the server met `event` before it ran the request with that number.
constexpr bool isBefore(const xcb_generic_event_t& event, unsigned request)
{
    return static_cast<std::int32_t>(event.full_sequence - request) < 0;
}

struct Atoms {
    xcb_atom_t clipboard, utf8String, utf8Plain, targets, timestamp, incr, pasted, xembedInfo;
};

/// A connection of our own to the display, so that nothing of it reaches the host's. Waits are bounded: a
/// host may hold the server while it calls us.
class X11Connection {
public:
    /// @return null if there is no display, or not one with pixels as ours
    static std::unique_ptr<X11Connection> open();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    ~X11Connection();

    bool isAlive() const { return xcb_connection_has_error(connection_) == 0; }
    xcb_connection_t* get() const { return connection_; }
    const Atoms& atoms() const { return atoms_; }
    /// Both programs on one machine: memory can be shared.
    bool isLocal() const;
    void flush();

    /// The next event that waits; null if none.
    Event nextEvent();
    /// Waits for the event that `wanted` accepts, which is taken out; the others stay in order.
    bool awaitEvent(const std::function<bool(const xcb_generic_event_t&)>& wanted,
                    std::uint32_t milliseconds);

    /// The reply to a request; null after an error or too long a time.
    template <class T>
    Reply<T> reply(unsigned sequence, std::uint32_t milliseconds = kPatience)
    {
        return Reply<T>(static_cast<T*>(awaitReply(sequence, milliseconds)));
    }
    /// True if the server carried the checked request out.
    bool succeeded(xcb_void_cookie_t request);

    static constexpr std::uint32_t kPatience = 500; ///< milliseconds

private:
    explicit X11Connection(xcb_connection_t* connection) : connection_(connection) {}

    void* awaitReply(unsigned sequence, std::uint32_t milliseconds);
    bool internAtoms();
    bool readEvent();
    void waitForBytes(std::uint32_t milliseconds);

    xcb_connection_t* connection_;
    Atoms atoms_{};
    std::deque<Event> waiting_;
};

} // namespace velmora::Qorvane
