#include "tests/editor/x_client.h"

#include "platform/clock.h"

#include <algorithm>

#include <poll.h>
#include <xcb/xtest.h>

namespace velmora::test {
namespace {

template <class T>
std::unique_ptr<T, FreeMemory> held(T* memory)
{
    return std::unique_ptr<T, FreeMemory>(memory);
}

} // namespace

XClient::XClient() : connection_(xcb_connect(nullptr, nullptr))
{
    if (isConnected()) screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
}

XClient::~XClient()
{
    xcb_disconnect(connection_);
}

xcb_visualid_t XClient::alphaVisual() const
{
    for (auto depth = xcb_screen_allowed_depths_iterator(screen_); depth.rem > 0; xcb_depth_next(&depth))
        if (depth.data->depth == 32) return xcb_depth_visuals_iterator(depth.data).data->visual_id;
    return XCB_NONE;
}

xcb_window_t XClient::openWindow(int x, int y, int width, int height, bool alpha)
{
    const xcb_window_t window = xcb_generate_id(connection_);
    const xcb_visualid_t visual = alpha ? alphaVisual() : screen_->root_visual;
    const xcb_colormap_t colours = xcb_generate_id(connection_);
    xcb_create_colormap(connection_, XCB_COLORMAP_ALLOC_NONE, colours, screen_->root, visual);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_PROPERTY_CHANGE;
    const std::uint32_t values[] = {0, 0, events, colours};
    xcb_create_window(connection_, alpha ? 32 : screen_->root_depth, window, screen_->root,
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
                      static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP, values);
    xcb_map_window(connection_, window);
    sync();
    return window;
}

void XClient::closeWindow(xcb_window_t window)
{
    xcb_destroy_window(connection_, window);
    sync();
}

xcb_atom_t XClient::atom(const std::string& name)
{
    const auto asked = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const auto answer = held(xcb_intern_atom_reply(connection_, asked, nullptr));
    return answer ? answer->atom : XCB_NONE;
}

void XClient::sync()
{
    focus();
}

XEvent XClient::await(std::uint8_t type, const std::function<void()>& meanwhile)
{
    constexpr std::uint32_t kPatience = 2000;
    xcb_flush(connection_);
    const std::uint32_t start = tickMilliseconds();
    while (isConnected() && tickMilliseconds() - start < kPatience) {
        while (XEvent event = XEvent(xcb_poll_for_event(connection_)))
            if ((event->response_type & 0x7F) == type) return event;
        meanwhile();
        pollfd socket{xcb_get_file_descriptor(connection_), POLLIN, 0};
        poll(&socket, 1, 5);
    }
    return nullptr;
}

std::uint32_t XClient::pixelAt(xcb_window_t window, int x, int y)
{
    const auto asked = xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                     static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1, 1, ~0U);
    const auto image = held(xcb_get_image_reply(connection_, asked, nullptr));
    if (!image) return ~0U;
    return *reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get())) & 0xFFFFFF;
}

int XClient::childCount(xcb_window_t window)
{
    const auto tree = held(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
    return tree ? tree->children_len : -1;
}

std::optional<std::string> XClient::takeProperty(xcb_window_t window, xcb_atom_t property)
{
    const auto asked =
        xcb_get_property(connection_, 1, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 20);
    const auto read = held(xcb_get_property_reply(connection_, asked, nullptr));
    if (!read || read->type == XCB_NONE) return std::nullopt;
    return std::string(static_cast<const char*>(xcb_get_property_value(read.get())),
                       static_cast<std::size_t>(xcb_get_property_value_length(read.get())));
}

void XClient::input(std::uint8_t type, int detail, int x, int y)
{
    xcb_test_fake_input(connection_, type, static_cast<std::uint8_t>(detail), XCB_CURRENT_TIME, screen_->root,
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    sync();
}

void XClient::movePointer(int x, int y)
{
    input(XCB_MOTION_NOTIFY, 0, x, y);
}
void XClient::button(int number, bool down)
{
    input(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, number);
}
void XClient::key(int code, bool down)
{
    input(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, code);
}

void XClient::click(int number, int times)
{
    for (int i = 0; i < times; ++i) {
        button(number, true);
        button(number, false);
    }
}

void XClient::type(int code, int held)
{
    if (held != 0) key(held, true);
    key(code, true);
    key(code, false);
    if (held != 0) key(held, false);
}

xcb_window_t XClient::focus()
{
    const auto answer =
        held(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    return answer ? answer->focus : XCB_NONE;
}

void XClient::setFocus(xcb_window_t window)
{
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    sync();
}

void XClient::own(xcb_window_t window, xcb_atom_t selection)
{
    xcb_set_selection_owner(connection_, window, selection, XCB_CURRENT_TIME);
    sync();
}

std::optional<std::string> XClient::fetch(xcb_window_t window, xcb_atom_t selection,
                                          const std::string& target, const std::function<void()>& meanwhile)
{
    const xcb_atom_t property = atom("TEST_FETCHED");
    xcb_convert_selection(connection_, window, selection, atom(target), property, XCB_CURRENT_TIME);
    const XEvent event = await(XCB_SELECTION_NOTIFY, meanwhile);
    if (!event || reinterpret_cast<xcb_selection_notify_event_t*>(event.get())->property == XCB_NONE)
        return std::nullopt;
    return takeProperty(window, property);
}

void XClient::write(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const std::string& bytes)
{
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    sync();
}

void XClient::answer(const xcb_selection_request_event_t& request, xcb_atom_t property)
{
    xcb_selection_notify_event_t notify{};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = property;
    char bytes[32] = {};
    std::copy_n(reinterpret_cast<const char*>(&notify), sizeof notify, bytes);
    xcb_send_event(connection_, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes);
    sync();
}

} // namespace velmora::test
