#include "editor/engine/toolkit/window/selection_offer.h"

#include "editor/engine/toolkit/window/clean_text.h"
#include "editor/engine/toolkit/window/native_window.h"

namespace velmora::Qorvane {

void SelectionOffer::offer(const std::string& text, xcb_timestamp_t time)
{
    text_ = cleanUtf8(text, kMaxPastedBytes);
    // Another program may have taken it after that time, without one of its own.
    owned_ = take(time) || take(XCB_CURRENT_TIME);
}

bool SelectionOffer::take(xcb_timestamp_t time)
{
    since_ = time;
    takenBy_ = xcb_set_selection_owner(connection_.get(), window_, selection_, time).sequence;
    const auto owner = connection_.reply<xcb_get_selection_owner_reply_t>(
        xcb_get_selection_owner(connection_.get(), selection_).sequence);
    return !owner || owner->owner == window_; // a server that is slow to answer tells if we lose it
}

bool SelectionOffer::handle(const xcb_generic_event_t& event)
{
    if (typeOf(event) == XCB_SELECTION_CLEAR) {
        const auto& clear = reinterpret_cast<const xcb_selection_clear_event_t&>(event);
        if (clear.selection != selection_) return false;
        if (!isBefore(event, takenBy_)) owned_ = false;
        return true;
    }
    if (typeOf(event) == XCB_SELECTION_REQUEST) {
        const auto& request = reinterpret_cast<const xcb_selection_request_event_t&>(event);
        if (request.selection != selection_) return false;
        serve(request);
        return true;
    }
    return false;
}

void SelectionOffer::serve(const xcb_selection_request_event_t& request)
{
    // Old programs name no property and mean the target.
    const xcb_atom_t property = request.property != XCB_NONE ? request.property : request.target;
    union {
        xcb_selection_notify_event_t notify;
        char bytes[32]; // of which the server reads all
    } answer{};
    answer.notify.response_type = XCB_SELECTION_NOTIFY;
    answer.notify.time = request.time;
    answer.notify.requestor = request.requestor;
    answer.notify.selection = request.selection;
    answer.notify.target = request.target;
    answer.notify.property = owned_ && write(request, property) ? property : XCB_NONE;
    xcb_send_event(connection_.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, answer.bytes);
}

/// @return false for a form that we don't have
bool SelectionOffer::write(const xcb_selection_request_event_t& request, xcb_atom_t property)
{
    const Atoms& atoms = connection_.atoms();
    const auto writeWords = [&](xcb_atom_t type, std::uint32_t count, const std::uint32_t* words) {
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, property, type, 32,
                            count, words);
        return true;
    };
    if (request.target == atoms.targets) {
        const std::uint32_t forms[] = {atoms.targets, atoms.timestamp, atoms.utf8String, atoms.utf8Plain,
                                       XCB_ATOM_STRING};
        return writeWords(XCB_ATOM_ATOM, std::size(forms), forms);
    }
    if (request.target == atoms.timestamp) return writeWords(XCB_ATOM_INTEGER, 1, &since_);
    if (request.target == atoms.utf8String || request.target == atoms.utf8Plain)
        return writeBytes(request.requestor, property, request.target, text_);
    if (request.target == XCB_ATOM_STRING)
        return writeBytes(request.requestor, property, request.target, latin1FromUtf8(text_));
    return false;
}

bool SelectionOffer::writeBytes(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                                const std::string& bytes)
{
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property, type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    return true;
}

} // namespace velmora::Qorvane
