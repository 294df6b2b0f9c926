#include "editor/engine/toolkit/window/x11_window.h"

#include "editor/engine/toolkit/window/gathered_notices.h"
#include "editor/engine/toolkit/window/quiet_pipe.h"

#include <algorithm>
#include <utility>

namespace velmora::Qorvane {
namespace {

constexpr std::uint32_t kEvents =
    XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_BUTTON_PRESS |
    XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
    XCB_EVENT_MASK_LEAVE_WINDOW | XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_PROPERTY_CHANGE;

/// Of one poll, so that a flood of events can't keep the host.
constexpr int kMostNotices = 1000;

int boundedSide(int pixels)
{
    return std::clamp(pixels, 1, kMostWindowSide);
}

template <class T>
const T& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const T&>(event);
}

/// The visual of the host's window; nothing if nothing can be shown in it.
std::optional<X11Visual> visualFor(X11Connection& connection, xcb_window_t parent)
{
    const unsigned askedPlace = xcb_get_geometry(connection.get(), parent).sequence;
    const unsigned askedLooks = xcb_get_window_attributes(connection.get(), parent).sequence;
    const auto place = connection.reply<xcb_get_geometry_reply_t>(askedPlace);
    const auto looks = connection.reply<xcb_get_window_attributes_reply_t>(askedLooks);
    if (!place || !looks || looks->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) return std::nullopt;
    return chooseVisual(connection.get(), place->root, {looks->visual, place->depth});
}

/// @return 0 if the server refuses
xcb_window_t createWindow(X11Connection& connection, xcb_window_t parent, X11Visual visual, int width,
                          int height)
{
    const xcb_window_t window = xcb_generate_id(connection.get());
    const xcb_colormap_t colours = xcb_generate_id(connection.get());
    xcb_create_colormap(connection.get(), XCB_COLORMAP_ALLOC_NONE, colours, parent, visual.visual);
    // No background: what the server would paint first would flicker.
    const std::uint32_t values[] = {XCB_BACK_PIXMAP_NONE, 0, XCB_GRAVITY_NORTH_WEST, kEvents, colours};
    constexpr std::uint32_t kNamed =
        XCB_CW_BACK_PIXMAP | XCB_CW_BORDER_PIXEL | XCB_CW_BIT_GRAVITY | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP;
    const auto created = xcb_create_window_checked(
        connection.get(), visual.depth, window, parent, 0, 0, static_cast<std::uint16_t>(width),
        static_cast<std::uint16_t>(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual.visual, kNamed, values);
    return connection.succeeded(created) ? window : XCB_NONE;
}

/// Tells hosts that embed by protocol what they want to know, then shows the window.
void map(X11Connection& connection, xcb_window_t window)
{
    constexpr std::uint32_t kVersion = 0, kMapped = 1;
    const std::uint32_t information[] = {kVersion, kMapped};
    const xcb_atom_t property = connection.atoms().xembedInfo;
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, property, property, 32,
                        std::size(information), information);
    xcb_map_window(connection.get(), window);
}

} // namespace

std::unique_ptr<NativeWindow> openX11Window(std::uint32_t parent, int width, int height)
{
    return X11Window::open(parent, width, height);
}

std::unique_ptr<X11Window> X11Window::open(xcb_window_t parent, int width, int height)
{
    const QuietPipe quiet;
    auto connection = X11Connection::open();
    if (!connection) return nullptr;
    const std::optional<X11Visual> visual = visualFor(*connection, parent);
    if (!visual) return nullptr;
    const int w = boundedSide(width), h = boundedSide(height);
    const xcb_window_t window = createWindow(*connection, parent, *visual, w, h);
    if (window == XCB_NONE) return nullptr;
    map(*connection, window);
    std::unique_ptr<X11Window> opened(new X11Window(std::move(connection), window, parent, visual->depth));
    opened->width_ = w;
    opened->height_ = h;
    opened->image_.resize(w, h);
    opened->connection_->flush();
    return opened;
}

X11Window::X11Window(std::unique_ptr<X11Connection> connection, xcb_window_t window, xcb_window_t parent,
                     std::uint8_t depth)
    : connection_(std::move(connection)),
      window_(window),
      image_(*connection_, window, depth),
      keyboard_(*connection_),
      focus_(*connection_, window, parent, kEvents),
      clipboard_(*connection_, window, connection_->atoms().clipboard),
      primary_(*connection_, window, XCB_ATOM_PRIMARY),
      request_(*connection_, window)
{
}

X11Window::~X11Window()
{
    life_.reset();
    const QuietPipe quiet;
    if (isAlive()) {
        focus_.giveBack();
        xcb_destroy_window(connection_->get(), window_);
    }
    connection_->flush(); // hosts want it gone at once
}

void X11Window::resize(int width, int height)
{
    if (!isAlive()) return;
    const QuietPipe quiet;
    width_ = boundedSide(width);
    height_ = boundedSide(height);
    const std::uint32_t values[] = {static_cast<std::uint32_t>(width_), static_cast<std::uint32_t>(height_)};
    constexpr std::uint16_t kNamed = XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
    xcb_configure_window(connection_->get(), window_, kNamed, values);
    image_.resize(width_, height_);
    connection_->flush();
}

PixelBuffer X11Window::pixels()
{
    const QuietPipe quiet;
    return image_.pixels();
}

void X11Window::present(std::span<const Rect> damage)
{
    if (!isAlive()) return;
    const QuietPipe quiet;
    image_.show(damage);
    connection_->flush();
}

void X11Window::pollEvents(WindowListener& listener)
{
    const std::weak_ptr<bool> life = life_;
    const auto tell = [&](const Notice& notice) {
        deliver(notice, listener);
        return !life.expired();
    };
    GatheredNotices gathered;
    for (int left = kMostNotices; left > 0; --left) {
        const std::optional<Notice> notice = nextNotice();
        if (!notice) break;
        if (gathered.takes(*notice)) continue;
        for (const Notice& earlier : gathered.release())
            if (!tell(earlier)) return;
        if (!gathered.takes(*notice) && !tell(*notice)) return;
    }
    for (const Notice& last : gathered.release())
        if (!tell(last)) return;
    if (std::exchange(heard_, false))
        connection_->flush(); // what was answered; a quiet window costs one read
}

std::optional<Notice> X11Window::nextNotice()
{
    while (const Event event = connection_->nextEvent()) {
        heard_ = true;
        noteTime(*event);
        if (auto notice = noticeOf(*event)) return notice;
    }
    return textNotice(std::exchange(ownText_, std::nullopt));
}

/// Selections are taken in the name of the user's last deed.
void X11Window::noteTime(const xcb_generic_event_t& event)
{
    const bool fromUser = event.response_type >= XCB_KEY_PRESS && event.response_type <= XCB_LEAVE_NOTIFY;
    if (fromUser) userTime_ = as<xcb_key_press_event_t>(event).time; // all these have it there
}

std::optional<Notice> X11Window::noticeOf(const xcb_generic_event_t& event)
{
    const unsigned type = typeOf(event);
    if (type >= XCB_KEY_PRESS && type <= XCB_LEAVE_NOTIFY) return inputNotice(event);
    if (type == XCB_EXPOSE) {
        const auto& expose = as<xcb_expose_event_t>(event);
        return Notice{.kind = Notice::Kind::Exposed,
                      .rect = rectAt(expose.x, expose.y, expose.width, expose.height)};
    }
    if (type == XCB_DESTROY_NOTIFY && as<xcb_destroy_notify_event_t>(event).window == window_)
        destroyed_ = true;
    if (image_.handle(event) || keyboard_.handle(event) || destroyed_) return std::nullopt;
    const QuietPipe quiet; // what follows answers
    if (focus_.isLoss(event)) {
        focus_.lose();
        keyboard_.forget();
        return Notice{.kind = Notice::Kind::KeyboardLost};
    }
    if (clipboard_.handle(event) || primary_.handle(event)) return std::nullopt;
    return textNotice(request_.handle(event));
}

std::optional<Notice> X11Window::inputNotice(const xcb_generic_event_t& event)
{
    switch (typeOf(event)) {
    case XCB_BUTTON_PRESS:
        return pointer_.pressed(as<xcb_button_press_event_t>(event));
    case XCB_BUTTON_RELEASE:
        return pointer_.released(as<xcb_button_release_event_t>(event));
    case XCB_MOTION_NOTIFY:
        return pointer_.moved(as<xcb_motion_notify_event_t>(event));
    case XCB_ENTER_NOTIFY:
        return pointer_.crossed(as<xcb_enter_notify_event_t>(event), true);
    case XCB_LEAVE_NOTIFY:
        return pointer_.crossed(as<xcb_leave_notify_event_t>(event), false);
    case XCB_KEY_PRESS:
        break;
    default:
        return std::nullopt;
    }
    if (!focus_.held()) return std::nullopt;
    auto press = keyboard_.pressed(as<xcb_key_press_event_t>(event));
    if (!press) return std::nullopt;
    return Notice{.kind = Notice::Kind::Key, .press = std::move(*press)};
}

std::optional<Notice> X11Window::textNotice(std::optional<std::string> text)
{
    if (!text) return std::nullopt;
    return Notice{.kind = Notice::Kind::Text, .text = std::move(*text)};
}

void X11Window::takeKeyboard()
{
    if (!isAlive()) return;
    const QuietPipe quiet;
    keyboard_.load();
    keyboard_.forget();
    focus_.take();
}

void X11Window::returnKeyboard()
{
    if (!isAlive()) return;
    const QuietPipe quiet;
    focus_.giveBack();
    connection_->flush();
}

void X11Window::offer(SelectionOffer& selection, const std::string& text)
{
    if (!isAlive()) return;
    const QuietPipe quiet;
    selection.offer(text, userTime_);
    connection_->flush();
}

void X11Window::request(const SelectionOffer& selection)
{
    if (!isAlive()) return;
    if (selection.owned()) {
        ownText_ = selection.text();
        return;
    }
    const QuietPipe quiet;
    request_.ask(selection.selection());
    connection_->flush();
}

bool X11Window::queryPointer(Point& point, std::uint32_t& buttons)
{
    if (!isAlive()) return false;
    const QuietPipe quiet;
    const auto place = connection_->reply<xcb_query_pointer_reply_t>(
        xcb_query_pointer(connection_->get(), window_).sequence);
    if (!place || place->same_screen == 0) return false;
    const Point found{static_cast<double>(place->win_x), static_cast<double>(place->win_y)};
    if (!rectAt(0, 0, width_, height_).contains(found)) return false;
    point = found;
    buttons = buttonsOf(place->mask);
    return true;
}

} // namespace velmora::Qorvane
