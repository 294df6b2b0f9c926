#include "editor/engine/toolkit/window/selection_request.h"

#include "editor/engine/toolkit/window/clean_text.h"
#include "editor/engine/toolkit/window/native_window.h"

#include <utility>

namespace velmora::Qorvane {

void SelectionRequest::ask(xcb_atom_t selection)
{
    selection_ = selection;
    bytes_.clear();
    convert(connection_.atoms().utf8String);
}

void SelectionRequest::convert(xcb_atom_t target)
{
    const xcb_atom_t property = connection_.atoms().pasted;
    target_ = target;
    stage_ = Stage::Asked;
    // Pieces of an earlier answer may lie there.
    xcb_delete_property(connection_.get(), window_, property);
    // Without a time: of keys that the host passes on we know none.
    const auto asked =
        xcb_convert_selection(connection_.get(), window_, selection_, target, property, XCB_CURRENT_TIME);
    askedBy_ = asked.sequence;
}

std::optional<std::string> SelectionRequest::handle(const xcb_generic_event_t& event)
{
    if (stage_ == Stage::Idle || isBefore(event, askedBy_)) return std::nullopt;
    if (stage_ == Stage::Asked && typeOf(event) == XCB_SELECTION_NOTIFY)
        return answered(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    if (stage_ == Stage::Pieces && typeOf(event) == XCB_PROPERTY_NOTIFY)
        return nextPiece(reinterpret_cast<const xcb_property_notify_event_t&>(event));
    return std::nullopt;
}

std::optional<std::string> SelectionRequest::answered(const xcb_selection_notify_event_t& notify)
{
    const Atoms& atoms = connection_.atoms();
    if (notify.selection != selection_ || notify.target != target_) return std::nullopt;
    stage_ = Stage::Idle;
    if (notify.property != atoms.pasted) {
        if (target_ == atoms.utf8String) convert(XCB_ATOM_STRING);
        return std::nullopt;
    }
    Piece piece = takePiece();
    if (piece.type == atoms.incr) { // taking it told the sender to begin
        stage_ = Stage::Pieces;
        return std::nullopt;
    }
    bytes_ = std::move(piece.bytes);
    return complete();
}

/// Pieces beyond the bound are taken as well, so that the sender comes to its end.
std::optional<std::string> SelectionRequest::nextPiece(const xcb_property_notify_event_t& notify)
{
    if (notify.atom != connection_.atoms().pasted || notify.state != XCB_PROPERTY_NEW_VALUE)
        return std::nullopt;
    const Piece piece = takePiece();
    if (piece.type == XCB_NONE) return std::nullopt; // taken already, with the one before
    if (piece.bytes.empty()) {
        stage_ = Stage::Idle;
        return complete();
    }
    if (bytes_.size() <= kMaxPastedBytes) bytes_ += piece.bytes;
    return std::nullopt;
}

/// Nothing comes of an empty text.
std::optional<std::string> SelectionRequest::complete()
{
    const std::string bytes = std::exchange(bytes_, {});
    const std::string text = target_ == XCB_ATOM_STRING ? utf8FromLatin1(bytes) : bytes;
    std::string clean = cleanUtf8(text, kMaxPastedBytes);
    return clean.empty() ? std::nullopt : std::optional(std::move(clean));
}

/// Reads our property and removes it.
SelectionRequest::Piece SelectionRequest::takePiece()
{
    // A little more than we keep, so that a character at the bound isn't taken for broken.
    constexpr std::uint32_t kWords = kMaxPastedBytes / 4 + 1;
    const xcb_atom_t property = connection_.atoms().pasted;
    const auto read = connection_.reply<xcb_get_property_reply_t>(
        xcb_get_property(connection_.get(), 1, window_, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kWords)
            .sequence);
    if (!read) return {XCB_NONE, {}};
    // What isn't read to its end stays.
    if (read->bytes_after > 0) xcb_delete_property(connection_.get(), window_, property);
    if (read->format != 8) return {read->type, {}};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(read.get()));
    return {read->type,
            std::string(bytes, static_cast<std::size_t>(xcb_get_property_value_length(read.get())))};
}

} // namespace velmora::Qorvane
