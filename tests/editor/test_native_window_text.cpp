#include "tests/editor/window_test.h"

#include "editor/engine/toolkit/window/clean_text.h"

namespace velmora::test {
namespace {

using Texts = std::vector<std::string>;

class ClipboardTest : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        if (HasFatalFailure()) return;
        clipboard = host->atom("CLIPBOARD");
        utf8 = host->atom("UTF8_STRING");
        incr = host->atom("INCR");
    }

    /// What the host gets of our clipboard in a form.
    std::optional<std::string> fetch(xcb_atom_t selection, const std::string& form)
    {
        return host->fetch(parent, selection, form, [&] { window->pollEvents(notes); });
    }
    /// The request that our window made of the host, once it comes; polls meanwhile.
    xcb_selection_request_event_t awaitRequest()
    {
        const XEvent event = host->await(XCB_SELECTION_REQUEST, [&] { window->pollEvents(notes); });
        EXPECT_TRUE(event);
        return event ? *reinterpret_cast<xcb_selection_request_event_t*>(event.get())
                     : xcb_selection_request_event_t{};
    }
    /// Sends `bytes` as the host does it with much text, `piece` at once.
    void sendInPieces(const xcb_selection_request_event_t& request, const std::string& bytes,
                      std::size_t piece);
    Texts arrived()
    {
        pollUntil([&] { return !notes.texts.empty(); });
        return std::exchange(notes.texts, {});
    }

    xcb_atom_t clipboard = XCB_NONE, utf8 = XCB_NONE, incr = XCB_NONE;
};

void ClipboardTest::sendInPieces(const xcb_selection_request_event_t& request, const std::string& bytes,
                                 std::size_t piece)
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(host->get(), request.requestor, XCB_CW_EVENT_MASK, &events);
    const auto awaitTaken = [&] {
        for (;;) {
            const XEvent event = host->await(XCB_PROPERTY_NOTIFY, [&] { window->pollEvents(notes); });
            if (!event) return false;
            const auto* change = reinterpret_cast<xcb_property_notify_event_t*>(event.get());
            if (change->window == request.requestor && change->state == XCB_PROPERTY_DELETE) return true;
        }
    };
    const std::uint32_t size = static_cast<std::uint32_t>(bytes.size());
    xcb_change_property(host->get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, incr, 32, 1,
                        &size);
    host->answer(request, request.property);
    ASSERT_TRUE(awaitTaken());
    for (std::size_t sent = 0; sent < bytes.size(); sent += piece) {
        host->write(request.requestor, request.property, request.target, bytes.substr(sent, piece));
        ASSERT_TRUE(awaitTaken()) << "after " << sent;
    }
    host->write(request.requestor, request.property, request.target, "");
}

TEST_F(ClipboardTest, OffersTextInEveryForm)
{
    window->offerText("Größe €");
    window->offerSelection("primary");
    EXPECT_EQ(fetch(clipboard, "UTF8_STRING"), "Größe €");
    EXPECT_EQ(fetch(clipboard, "text/plain;charset=utf-8"), "Größe €");
    EXPECT_EQ(fetch(clipboard, "STRING"), "Gr\xF6\xDF"
                                          "e ?");
    EXPECT_EQ(fetch(clipboard, "image/png"), std::nullopt);
    EXPECT_EQ(fetch(XCB_ATOM_PRIMARY, "UTF8_STRING"), "primary");
    const auto forms = fetch(clipboard, "TARGETS");
    ASSERT_TRUE(forms);
    EXPECT_EQ(forms->size(), 5 * sizeof(xcb_atom_t));
    EXPECT_EQ(fetch(clipboard, "TIMESTAMP")->size(), sizeof(xcb_timestamp_t));

    window->offerText(std::string(60000, 'x'));
    EXPECT_EQ(fetch(clipboard, "UTF8_STRING"), std::string(60000, 'x'));
    host->own(parent, clipboard);
    EXPECT_EQ(polled().size(), 0U);
    EXPECT_EQ(fetch(XCB_ATOM_PRIMARY, "STRING"), "primary");
}

TEST_F(ClipboardTest, PastesBetweenWindowsAndFromItself)
{
    window->requestText();
    polled();
    EXPECT_EQ(notes.texts, Texts()) << "nobody owns it";

    window->offerText("own");
    window->requestText();
    window->pollEvents(notes);
    EXPECT_EQ(std::exchange(notes.texts, {}), Texts({"own"})) << "at once, without the server";

    auto other = open();
    Notes others;
    const std::string much = std::string(59998, 'y') + "ü";
    other->offerText(much);
    polled();
    window->requestText();
    EXPECT_TRUE(pollUntil([&] {
        other->pollEvents(others);
        return !notes.texts.empty();
    }));
    EXPECT_EQ(std::exchange(notes.texts, {}), Texts({much}));
    window->offerText("back");
    other->pollEvents(others);
    other->requestText();
    pollUntil([&] {
        other->pollEvents(others);
        return !others.texts.empty();
    });
    EXPECT_EQ(others.texts, Texts({"back"}));
}

TEST_F(ClipboardTest, TakesWhatOtherProgramsSend)
{
    host->own(parent, clipboard);
    // One that only has Latin-1.
    window->requestText();
    xcb_selection_request_event_t request = awaitRequest();
    EXPECT_EQ(request.target, utf8);
    host->answer(request, XCB_NONE);
    request = awaitRequest();
    EXPECT_EQ(request.target, XCB_ATOM_STRING);
    host->write(request.requestor, request.property, XCB_ATOM_STRING,
                "Gr\xF6\xDF"
                "e");
    host->answer(request, request.property);
    EXPECT_EQ(arrived(), Texts({"Größe"}));

    // One that sends no text at all.
    window->requestText();
    request = awaitRequest();
    host->write(request.requestor, request.property, utf8, std::string("a\xFF\xC3") + '\0' + "\xED\xA0\x80z");
    host->answer(request, request.property);
    EXPECT_EQ(arrived(), Texts({"a\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDz"}));

    // More than we take, cut in front of a character.
    window->requestText();
    request = awaitRequest();
    host->write(request.requestor, request.property, utf8, "x" + std::string(100000, '\xC3'));
    std::string umlauts = "x";
    for (int i = 0; i < 50000; ++i) umlauts += "ü";
    host->write(request.requestor, request.property, utf8, umlauts);
    host->answer(request, request.property);
    EXPECT_EQ(arrived(), Texts({umlauts.substr(0, Qorvane::kMaxPastedBytes - 1)}));
}

TEST_F(ClipboardTest, TakesTextInPieces)
{
    host->own(parent, clipboard);
    std::string text;
    for (int i = 0; i < 9000; ++i) text += std::to_string(i) + "ü";
    for (const std::size_t piece : {5000U, 7U * 1024U}) {
        window->requestText();
        sendInPieces(awaitRequest(), text, piece);
        EXPECT_EQ(arrived(), Texts({text}));
    }
    // A sender of too much comes to its end, and to the next request.
    text += text;
    window->requestText();
    sendInPieces(awaitRequest(), text, 30000);
    EXPECT_EQ(arrived(), Texts({Qorvane::cleanUtf8(text, Qorvane::kMaxPastedBytes)}));

    // Asked anew while a sender is at work: the old one is forgotten.
    window->requestText();
    xcb_selection_request_event_t request = awaitRequest();
    const std::uint32_t size = 100;
    xcb_change_property(host->get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, incr, 32, 1,
                        &size);
    host->answer(request, request.property);
    polled();
    window->requestText();
    request = awaitRequest();
    host->write(request.requestor, request.property, utf8, "anew");
    host->answer(request, request.property);
    EXPECT_EQ(arrived(), Texts({"anew"}));
}

} // namespace
} // namespace velmora::test
