// Typing: the line itself, and the edit in its window.

#include "tests/editor/frame_rig.h"

#include "editor/engine/text_edit.h"
#include "editor/engine/toolkit/draw/text_measure.h"
#include "editor/engine/toolkit/view/edited_text.h"

#include <algorithm>
#include <random>

namespace velmora::test {
namespace {

using Qorvane::EditedText;
using Step = EditedText::Step;

class TextEditTest : public FrameRig {
protected:
    void SetUp() override
    {
        FrameRig::SetUp();
        if (frame == nullptr) return;
        edit = &add<QORTextEdit>(rectAt(20.0, 0.0, 120.0, 20.0), 903, "old words");
        edit->setTextAlign(TextAlign::Left);
    }
    bool isEditing() const { return frame->getKeyTarget() != nullptr; }
    void openByClick()
    {
        screen->click(60.0, 40.0);
        poll();
    }

    QORTextEdit* edit = nullptr; // at 30, 30 to 150, 50 of the window
};

TEST_F(TextEditTest, RandomEditingKeepsCaretsBetweenCharacters)
{
    const std::string pieces[] = {"a",
                                  "ä",
                                  "word",
                                  " ",
                                  "日本",
                                  "é",
                                  "👩‍👩‍👧",
                                  "\xFF\xFE",
                                  "\n",
                                  "שלום",
                                  std::string(200, 'x')};
    std::mt19937 random(5);
    EditedText line;
    line.start("start \xC3");
    for (int step = 0; step < 3000; ++step) {
        const Step size = static_cast<Step>(random() % 3);
        const bool extend = random() % 2 == 0;
        switch (random() % 9) {
        case 0:
            line.moveLeft(size, extend);
            break;
        case 1:
            line.moveRight(size, extend);
            break;
        case 2:
            line.eraseLeft(size);
            break;
        case 3:
            line.eraseRight(size);
            break;
        case 4:
            line.selectWordAt(random() % (line.text().size() + 1));
            break;
        case 5:
            if (random() % 20 == 0) line.selectAll();
            break;
        default:
            line.insert(pieces[random() % std::size(pieces)]);
        }
        const auto stops = Qorvane::textStops(line.text());
        const auto isStop = [&](std::size_t byte) {
            return std::ranges::any_of(stops, [byte](const auto& stop) { return stop.byte == byte; });
        };
        ASSERT_LE(line.text().size(), EditedText::kMaxBytes);
        ASSERT_LE(line.selectionEnd(), line.text().size());
        ASSERT_EQ(line.text().find('\n'), std::string::npos);
        if (stops.size() > 1) {
            const auto begins = [&](std::size_t byte) {
                return byte == line.text().size() ||
                       (static_cast<unsigned char>(line.text()[byte]) & 0xC0) != 0x80;
            };
            ASSERT_TRUE(begins(line.caret()) && begins(line.selectionStart())) << "step " << step;
        }
        line.moveRight(Step::Character, false);
        ASSERT_TRUE(isStop(line.caret())) << "step " << step;
    }
}

TEST_F(TextEditTest, WordsAndSelections)
{
    EditedText line;
    line.start("one two  three");
    line.moveTo(5, false);
    line.moveLeft(Step::Word, false);
    EXPECT_EQ(line.caret(), 4u);
    line.moveRight(Step::Word, true);
    EXPECT_EQ(line.selected(), "two");
    line.moveRight(Step::Character, false);
    EXPECT_EQ(line.caret(), 7u) << "an arrow leaves the selection on its side";
    line.eraseRight(Step::Word);
    EXPECT_EQ(line.text(), "one two");
    line.selectWordAt(1);
    EXPECT_EQ(line.selected(), "one");
    line.insert("1");
    EXPECT_EQ(line.text(), "1 two");
}

TEST_F(TextEditTest, ReturnTabAndAClickElsewhereTakeEscapeRestores)
{
    const std::pair<std::function<void()>, const char*> ends[] = {
        {[this] { screen->key(Key::Return); }, "new"},
        {[this] { screen->key(Key::Tab); }, "new"},
        {[this] { screen->click(200.0, 190.0); }, "new"},
        {[this] { screen->events.push_back([](auto& to) { to.onKeyboardLost(); }); }, "new"},
        {[this] { screen->key(Key::Escape); }, "old words"},
    };
    for (const auto& [end, expected] : ends) {
        edit->setText("old words");
        takeHeard();
        openByClick();
        ASSERT_TRUE(isEditing() && screen->keyboardTaken);
        screen->type("n");
        screen->type("ew");
        poll();
        EXPECT_EQ(edit->getText(), "old words") << "not before the end";
        end();
        poll();
        EXPECT_FALSE(isEditing() || screen->keyboardTaken);
        EXPECT_EQ(edit->getText(), expected);
        EXPECT_EQ(heard.size(), std::string(expected) == "new" ? 1u : 0u);
    }
}

TEST_F(TextEditTest, OnlyLookedAtTheValueKeepsItsPrecision)
{
    edit->setConverters(
        [](std::string_view text) -> std::optional<double> {
            return text == "x" ? std::nullopt : std::optional(0.5);
        },
        [](double) { return std::string("about 0.5"); });
    edit->setValue(0.512345);
    edit->showValue();
    openByClick();
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(edit->getValue(), 0.512345);
    EXPECT_EQ(takeHeard(), Heard{});
    openByClick();
    screen->type("x");
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(edit->getText(), "about 0.5") << "refused";
    openByClick();
    screen->type("0.5");
    edit->setText("moved by the host");
    screen->key(Key::Escape);
    poll();
    EXPECT_EQ(edit->getText(), "moved by the host");
}

TEST_F(TextEditTest, MouseSelectsMovesAndMarksWords)
{
    openByClick();
    screen->press(60.0, 40.0);
    screen->release(60.0, 40.0);
    screen->type("|");
    poll();
    screen->key(Key::Return);
    poll();
    const std::string placed(edit->getText());
    EXPECT_EQ(placed.size(), 10u);
    EXPECT_GT(placed.find('|'), 2u) << "a second click puts the caret under the mouse";
    edit->setText("old words");

    screen->press(60.0, 40.0);
    screen->move(61.5, 40.0);
    screen->release(61.5, 40.0);
    screen->type("all");
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(edit->getText(), "all") << "a shaky click still selects everything";

    edit->setText("old words");
    screen->press(32.0, 40.0);
    screen->move(500.0, 40.0);
    screen->release(500.0, 40.0);
    poll();
    EXPECT_EQ(screen->selection, "old words");
    screen->click(36.0, 40.0, kLeftButton, kDoubleClick);
    screen->shortcut(U'c');
    poll();
    EXPECT_EQ(screen->clipboard, "old");
    screen->click(500.0, 190.0);
    poll();
}

TEST_F(TextEditTest, TheClipboardBothWaysAndNotTooLate)
{
    openByClick();
    screen->shortcut(U'x');
    poll();
    EXPECT_EQ(screen->clipboard, "old words");
    screen->clipboard = "two\nlines \xF0\x9F\x8E\xB5";
    screen->shortcut(U'v');
    poll();
    screen->deliverText();
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(edit->getText(), "two lines \xF0\x9F\x8E\xB5");

    openByClick();
    screen->shortcut(U'v');
    screen->key(Key::Escape);
    poll();
    auto& other = add<QORTextEdit>(rectAt(20.0, 60.0, 120.0, 20.0), 904, "other");
    other.takeFocus();
    screen->deliverText();
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(other.getText(), "other") << "was meant for the edit before";

    openByClick();
    screen->key(Key::End);
    screen->selection = "!";
    screen->click(145.0, 40.0, kMiddleButton);
    poll();
    screen->deliverText();
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(edit->getText(), "two lines \xF0\x9F\x8E\xB5!");
}

TEST_F(TextEditTest, ChangesFromInsideACommitDoNoHarm)
{
    auto& other = add<QORTextEdit>(rectAt(20.0, 60.0, 120.0, 20.0), 904, "other");
    onHeard = [&](const std::string& what) {
        if (what == "value 903") {
            panel->removeControl(edit);
            other.takeFocus();
        }
    };
    openByClick();
    screen->type("n");
    screen->key(Key::Return);
    poll();
    EXPECT_TRUE(isEditing()) << "the other one's";
    EXPECT_TRUE(screen->keyboardTaken);
    frame->paint();
    screen->type("taken");
    poll();
    frame->releaseInput();
    EXPECT_EQ(other.getText(), "taken");
    other.takeFocus();
    closeFrame();
}

TEST_F(TextEditTest, LongAndHostileTextsAreShownAroundTheCaret)
{
    edit->setText(std::string(120, 'W') + "\xC3\xFF\xED\xA0\x80");
    for (const TextAlign align : {TextAlign::Left, TextAlign::Centre, TextAlign::Right}) {
        edit->setTextAlign(align);
        openByClick();
        screen->key(Key::Home);
        poll();
        frame->paint();
        screen->key(Key::End);
        screen->type("i");
        poll();
        frame->paint();
        screen->key(Key::Escape);
        poll();
    }
    EXPECT_EQ(edit->getText().size(), 125u);
}

} // namespace
} // namespace velmora::test
