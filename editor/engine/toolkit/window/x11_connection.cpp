#include "editor/engine/toolkit/window/x11_connection.h"

#include "editor/engine/toolkit/window/quiet_pipe.h"
#include "platform/clock.h"

#include <bit>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <xcb/xcbext.h>

namespace velmora::Qorvane {
namespace {

struct NamedAtom {
    const char* name;
    xcb_atom_t Atoms::*atom;
};
constexpr NamedAtom kAtoms[] = {
    {"CLIPBOARD", &Atoms::clipboard},
    {"UTF8_STRING", &Atoms::utf8String},
    {"text/plain;charset=utf-8", &Atoms::utf8Plain},
    {"TARGETS", &Atoms::targets},
    {"TIMESTAMP", &Atoms::timestamp},
    {"INCR", &Atoms::incr},
    {"QOR_VELMORA_PASTED", &Atoms::pasted},
    {"_XEMBED_INFO", &Atoms::xembedInfo},
};

/// What is left of a wait that began at `start`.
std::uint32_t remaining(std::uint32_t start, std::uint32_t milliseconds)
{
    const std::uint32_t passed = tickMilliseconds() - start;
    return passed < milliseconds ? milliseconds - passed : 0;
}

bool hasOurByteOrder(const xcb_setup_t& setup)
{
    constexpr bool kLittle = std::endian::native == std::endian::little;
    return setup.image_byte_order == (kLittle ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST);
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open()
{
    const QuietPipe quiet;
    std::unique_ptr<X11Connection> connection(new X11Connection(xcb_connect(nullptr, nullptr)));
    if (!connection->isAlive() || !hasOurByteOrder(*xcb_get_setup(connection->get()))) return nullptr;
    return connection->internAtoms() ? std::move(connection) : nullptr;
}

X11Connection::~X11Connection()
{
    const QuietPipe quiet;
    xcb_disconnect(connection_);
}

bool X11Connection::isLocal() const
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    const int socket = xcb_get_file_descriptor(connection_);
    return getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length) == 0 &&
           address.ss_family == AF_UNIX;
}

void X11Connection::flush()
{
    const QuietPipe quiet;
    xcb_flush(connection_);
}

bool X11Connection::internAtoms()
{
    unsigned requests[std::size(kAtoms)];
    for (std::size_t i = 0; i < std::size(kAtoms); ++i) {
        const char* name = kAtoms[i].name;
        const auto length = static_cast<std::uint16_t>(std::strlen(name));
        requests[i] = xcb_intern_atom(connection_, 0, length, name).sequence;
    }
    bool complete = true;
    for (std::size_t i = 0; i < std::size(kAtoms); ++i) {
        const auto answer = reply<xcb_intern_atom_reply_t>(requests[i]);
        if (answer) atoms_.*kAtoms[i].atom = answer->atom;
        complete = complete && answer;
    }
    return complete;
}

/// Moves one event from the socket to those that wait.
bool X11Connection::readEvent()
{
    xcb_generic_event_t* event = xcb_poll_for_event(connection_);
    if (event == nullptr) return false;
    waiting_.emplace_back(event);
    return true;
}

Event X11Connection::nextEvent()
{
    if (waiting_.empty() && !readEvent()) return nullptr;
    Event event = std::move(waiting_.front());
    waiting_.pop_front();
    return event;
}

void X11Connection::waitForBytes(std::uint32_t milliseconds)
{
    pollfd socket{xcb_get_file_descriptor(connection_), POLLIN, 0};
    poll(&socket, 1, static_cast<int>(milliseconds));
}

bool X11Connection::awaitEvent(const std::function<bool(const xcb_generic_event_t&)>& wanted,
                               std::uint32_t milliseconds)
{
    flush();
    const std::uint32_t start = tickMilliseconds();
    std::size_t seen = 0;
    while (isAlive()) {
        while (seen < waiting_.size() || readEvent()) {
            if (wanted(*waiting_[seen])) {
                waiting_.erase(waiting_.begin() + static_cast<std::ptrdiff_t>(seen));
                return true;
            }
            ++seen;
        }
        const std::uint32_t left = remaining(start, milliseconds);
        if (left == 0) return false;
        waitForBytes(left);
    }
    return false;
}

void* X11Connection::awaitReply(unsigned sequence, std::uint32_t milliseconds)
{
    flush();
    const std::uint32_t start = tickMilliseconds();
    while (isAlive()) {
        while (readEvent()) {
        }
        void* answer = nullptr;
        xcb_generic_error_t* error = nullptr;
        if (xcb_poll_for_reply(connection_, sequence, &answer, &error) != 0) {
            std::free(error);
            return answer;
        }
        const std::uint32_t left = remaining(start, milliseconds);
        if (left == 0) break;
        waitForBytes(left);
    }
    xcb_discard_reply(connection_, sequence);
    return nullptr;
}

bool X11Connection::succeeded(xcb_void_cookie_t request)
{
    const QuietPipe quiet;
    // A later reply proves that the request was run; only then the check can't wait.
    const unsigned later = xcb_get_input_focus(connection_).sequence;
    if (!reply<xcb_get_input_focus_reply_t>(later)) {
        xcb_discard_reply(connection_, request.sequence);
        return false;
    }
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection_, request));
    return error == nullptr;
}

} // namespace velmora::Qorvane
