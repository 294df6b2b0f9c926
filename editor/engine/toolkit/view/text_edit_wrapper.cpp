#include "editor/engine/toolkit/view/text_edit_wrapper.h"

#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/draw/text_measure.h"
#include "editor/engine/toolkit/view/frame.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora::Qorvane {

namespace {

constexpr double kCaretMargin = 2.0;
constexpr double kTextRoom = 1.0e4; // wider than any text, so that nothing is cut
constexpr double kStartMove = 3.0;  // a press that wanders further selects

EditedText::Step stepOf(const KeyPress& press)
{
    return (press.modifiers & kControlKey) != 0 ? EditedText::Step::Word : EditedText::Step::Character;
}

} // namespace

CQORTextEditWrapper::CQORTextEditWrapper(QORTextEdit& ownEdit) : CTextWidget(ownEdit), edit(ownEdit) {}

CQORTextEditWrapper::~CQORTextEditWrapper()
{
    if (!editing) return;
    editing = false;
    if (QORFrame* const frame = getFrame()) frame->setKeyTarget(nullptr);
}

void CQORTextEditWrapper::takeFocus()
{
    QORFrame* const frame = getFrame();
    if (frame == nullptr || editing) return;
    edit.beginText();
    typed.start(text);
    opened = typed.text();
    pasteAsked = false;
    scroll = 0.0;
    editing = true;
    accepting = true;
    frame->setKeyTarget(this);
    edited();
}

void CQORTextEditWrapper::leaveEdit(bool accept)
{
    if (!editing) return;
    accepting = accept;
    if (QORFrame* const frame = getFrame())
        frame->setKeyTarget(nullptr); // comes back as onKeysLost
    else
        onKeysLost();
}

void CQORTextEditWrapper::onKeysLost()
{
    if (!editing) return;
    editing = false;
    selecting = Selecting::No;
    invalidate();
    if (accepting && typed.text() != opened) // what was only looked at keeps its value's full precision
        edit.commitText(typed.text());
    else
        edit.cancelText();
}

// A new value under an open edit: this is what Escape goes back to.
void CQORTextEditWrapper::setText(std::string_view newText)
{
    CTextWidget::setText(newText);
    if (editing) edit.beginText();
}

bool CQORTextEditWrapper::holdsPoint(Point framePoint) const
{
    return inFrame(rect).contains(framePoint);
}

int CQORTextEditWrapper::onMouseDown(Point point, std::uint32_t buttons)
{
    if ((buttons & kMiddleButton) != 0 && editing) {
        typed.moveTo(byteAtPoint(point), false);
        pasteAsked = true;
        getFrame()->getWindow().requestSelection();
        edited();
        return kMouseHandled;
    }
    if ((buttons & kLeftButton) == 0) return kMouseNotHandled;
    pressPoint = point;
    if (!editing) {
        takeFocus();
        selecting = Selecting::Waits;
        return kMouseHandled;
    }
    if ((buttons & kDoubleClick) != 0) {
        typed.selectWordAt(byteAtPoint(point));
        selecting = Selecting::Waits;
    } else {
        typed.moveTo(byteAtPoint(point), (buttons & kShiftKey) != 0);
        selecting = Selecting::Extends;
    }
    edited();
    return kMouseHandled;
}

int CQORTextEditWrapper::onMouseMoved(Point point, std::uint32_t)
{
    if (!editing || selecting == Selecting::No) return kMouseNotHandled;
    if (selecting == Selecting::Waits) {
        if (std::abs(point.x - pressPoint.x) <= kStartMove) return kMouseHandled;
        typed.moveTo(byteAtPoint(pressPoint), false);
        selecting = Selecting::Extends;
    }
    const std::size_t byte = byteAtPoint(point);
    if (byte != typed.caret()) {
        typed.moveTo(byte, true);
        edited();
    }
    return kMouseHandled;
}

int CQORTextEditWrapper::onMouseUp(Point, std::uint32_t)
{
    selecting = Selecting::No;
    if (editing && !typed.selected().empty()) getFrame()->getWindow().offerSelection(typed.selected());
    return kMouseHandled;
}

void CQORTextEditWrapper::onMouseWheel(Point point, float distance, std::uint32_t buttons)
{
    if (!editing) CTextWidget::onMouseWheel(point, distance, buttons);
}

bool CQORTextEditWrapper::onKeyPress(const KeyPress& press)
{
    const bool extend = (press.modifiers & kShiftKey) != 0;
    switch (press.key) {
    case Key::Return:
    case Key::Tab:
        leaveEdit(true);
        return true;
    case Key::Escape:
        leaveEdit(false);
        return true;
    case Key::Left:
        typed.moveLeft(stepOf(press), extend);
        break;
    case Key::Right:
        typed.moveRight(stepOf(press), extend);
        break;
    case Key::Home:
        typed.moveLeft(EditedText::Step::All, extend);
        break;
    case Key::End:
        typed.moveRight(EditedText::Step::All, extend);
        break;
    case Key::Backspace:
        typed.eraseLeft(stepOf(press));
        break;
    case Key::Delete:
        typed.eraseRight(stepOf(press));
        break;
    default:
        if ((press.modifiers & kControlKey) != 0 && (press.modifiers & kAltKey) == 0)
            return onShortcut(press.letter);
        if (press.text.empty()) return false;
        typed.insert(press.text);
    }
    edited();
    return true;
}

bool CQORTextEditWrapper::onShortcut(char32_t letter)
{
    NativeWindow& window = getFrame()->getWindow();
    switch (letter) {
    case U'a':
        typed.selectAll();
        break;
    case U'c':
        copySelection();
        break;
    case U'x':
        copySelection();
        if (!typed.selected().empty()) typed.eraseLeft(EditedText::Step::Character);
        break;
    case U'v':
        pasteAsked = true;
        window.requestText();
        break;
    default:
        return false;
    }
    edited();
    return true;
}

void CQORTextEditWrapper::copySelection() const
{
    if (!typed.selected().empty()) getFrame()->getWindow().offerText(typed.selected());
}

void CQORTextEditWrapper::onPasted(const std::string& pasted)
{
    if (!editing || !std::exchange(pasteAsked, false)) return; // or asked for by an edit before
    typed.insert(pasted);
    edited();
}

void CQORTextEditWrapper::edited()
{
    const Rect place = look.textPlace(rect);
    const double caret = caretPosition(typed.text(), typed.caret(), look.font.get());
    const double whole = textWidth(typed.text(), look.font.get());
    const double furthest = std::max(0.0, whole + kCaretMargin - place.width());
    scroll = std::clamp(scroll, std::max(0.0, caret + kCaretMargin - place.width()), std::max(0.0, caret));
    scroll = std::min(scroll, furthest);
    invalidate();
}

double CQORTextEditWrapper::textLeft() const
{
    const Rect place = look.textPlace(rect);
    const double spare = place.width() - textWidth(typed.text(), look.font.get());
    if (spare < kCaretMargin) return place.left - scroll;
    switch (look.align) {
    case TextAlign::Left:
        return place.left;
    case TextAlign::Centre:
        return place.left + spare * 0.5;
    case TextAlign::Right:
        return place.left + spare - kCaretMargin;
    }
    return place.left;
}

std::size_t CQORTextEditWrapper::byteAtPoint(Point point) const
{
    return byteAt(typed.text(), point.x - textLeft(), look.font.get());
}

void CQORTextEditWrapper::draw(CQORDrawContext& context, const Rect& damage)
{
    if (!editing) {
        CTextWidget::draw(context, damage);
        return;
    }
    look.drawGround(context, rect);
    const Rect place = look.textPlace(rect);
    const double left = textLeft();
    const Rect window{place.left - 1.0, rect.top, place.right + 1.0, rect.bottom};
    context.setClipRect(window);
    const Rect line{left, place.top, left + kTextRoom, place.bottom};
    const Rgba ink = look.fontColor.alpha != 0 ? look.fontColor : edit.getSelectedTextColor();
    context.setFont(look.font.get());
    context.setFontColor(ink);
    context.drawStringInRect(typed.text(), line, TextAlign::Left);
    const double caret = left + caretPosition(typed.text(), typed.caret(), look.font.get());
    context.setFillColor(ink);
    context.drawRect({caret, rect.top + 1.0, caret + 1.0, rect.bottom - 1.0}, DrawStyle::Filled);
    if (const Rect selection = intersection(selectionPlace(left), window); !selection.empty()) {
        context.setClipRect(selection);
        context.setFillColor(edit.getSelectionColor());
        context.drawRect(selection, DrawStyle::Filled);
        context.setFontColor(edit.getSelectedTextColor());
        context.drawStringInRect(typed.text(), line, TextAlign::Left);
    }
    context.resetClipRect();
}

Rect CQORTextEditWrapper::selectionPlace(double left) const
{
    if (typed.selectionStart() == typed.selectionEnd()) return {};
    double from = left + caretPosition(typed.text(), typed.selectionStart(), look.font.get());
    double to = left + caretPosition(typed.text(), typed.selectionEnd(), look.font.get());
    if (to < from) std::swap(from, to); // right to left
    return {from, rect.top + 1.0, to, rect.bottom - 1.0};
}

} // namespace velmora::Qorvane
