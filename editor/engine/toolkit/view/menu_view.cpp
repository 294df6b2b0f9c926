#include "editor/engine/toolkit/view/menu_view.h"

#include "editor/engine/resource_factory.h"
#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/draw/text_measure.h"
#include "editor/engine/toolkit/view/frame.h"
#include "editor/engine/toolkit/view/view_container.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace velmora::Qorvane {

namespace {

constexpr double kFontSize = 12.0;
constexpr double kLine = 19.0;
constexpr double kSeparator = 7.0;
constexpr double kMargin = 4.0; // above the first and below the last entry
constexpr double kMarkWidth = 18.0;
constexpr double kTextRight = 14.0;
constexpr double kStartMove = 3.0; // a press that wanders further chooses where it is released
constexpr double kWheelLines = 3.0;
constexpr double kStrip = 14.0; // at an end behind which there is more
constexpr double kScrollPerTick = 4.0;

constexpr Rgba kGround{30, 30, 32, 252};
constexpr Rgba kEdge{101, 101, 107, 255};
constexpr Rgba kHighlight{19, 59, 124, 255};
constexpr Rgba kInk{210, 210, 210, 255};
constexpr Rgba kDisabledInk{131, 131, 131, 255};
constexpr Rgba kHighlightInk{255, 255, 255, 255};
constexpr Rgba kMark{251, 168, 60, 255};

} // namespace

MenuView::MenuView(MenuOwner& menuOwner)
    : CView({}), owner(menuOwner), font(ResourceRef<QORFont>::adopt(createFont("Arial", kFontSize)))
{
}

MenuView::~MenuView()
{
    if (owningFrame == nullptr) return;
    QORFrame& frame = *std::exchange(owningFrame, nullptr);
    if (frame.getPopup() == this) frame.setPopup(nullptr);
    if (frame.getKeyTarget() == this) frame.setKeyTarget(nullptr);
}

void MenuView::open(QORFrame& frame, const std::vector<MenuEntry>& menuEntries, int current,
                    const Rect& openAnchor)
{
    if (isOpen()) return;
    frame.setKeyTarget(nullptr); // an edit is taken, another list closes: anything may happen
    if (owner.menuAnchor()->getFrame() != &frame || menuEntries.empty()) return;
    entries = menuEntries;
    anchor = openAnchor;
    checked = current;
    highlighted = canChoose(current) ? current : kNothing;
    scroll = 0.0;
    pressPoint = frame.getMousePosition();
    openingPress = (frame.getCurrentMouseButtons() & (kLeftButton | kMiddleButton | kRightButton)) != 0;
    movedSinceOpen = false;
    rect = placeFor(frame.outermost().getPlace());
    owningFrame = &frame;
    showHighlighted();
    frame.setPopup(this);
    frame.setKeyTarget(this);
}

void MenuView::close(int index)
{
    if (owningFrame == nullptr) return;
    QORFrame& frame = *std::exchange(owningFrame, nullptr);
    if (frame.getPopup() == this) frame.setPopup(nullptr);
    if (frame.getKeyTarget() == this) frame.setKeyTarget(nullptr);
    owner.menuClosed(index);
}

Rect MenuView::placeFor(const Rect& room) const
{
    double widest = anchor.width();
    for (const MenuEntry& entry : entries)
        widest = std::max(widest, kMarkWidth + std::ceil(textWidth(entry.text, font.get())) + kTextRight);
    const double width = std::min(widest, room.width());
    const double left = std::clamp(anchor.left, 0.0, room.width() - width);
    const double wanted = contentHeight();
    const double below = room.height() - anchor.bottom;
    const double above = anchor.top;
    if (wanted <= below) return rectAt(left, anchor.bottom, width, wanted);
    if (wanted <= above) return rectAt(left, anchor.top - wanted, width, wanted);
    const double height = std::min(wanted, room.height()); // over the anchor, as low as it goes
    return rectAt(left, room.height() - height, width, height);
}

bool MenuView::canChoose(int index) const
{
    return index >= 0 && index < static_cast<int>(entries.size()) &&
           entries[static_cast<std::size_t>(index)].canBeChosen();
}

double MenuView::heightOf(int index) const
{
    return entries[static_cast<std::size_t>(index)].separator ? kSeparator : kLine;
}

double MenuView::topOf(int index) const
{
    double top = kMargin;
    for (int i = 0; i < index; ++i) top += heightOf(i);
    return top;
}

double MenuView::contentHeight() const
{
    return topOf(static_cast<int>(entries.size())) + kMargin;
}

int MenuView::entryAt(Point point) const
{
    if (!rect.contains(point) || scrollDirectionAt(point) != 0) return kNothing;
    double top = rect.top + kMargin - scroll;
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        const double bottom = top + heightOf(i);
        if (point.y >= top && point.y < bottom) return i;
        top = bottom;
    }
    return kNothing;
}

double MenuView::furthestScroll() const
{
    return std::max(0.0, contentHeight() - rect.height());
}

void MenuView::scrollBy(double pixels)
{
    const double target = std::clamp(scroll + pixels, 0.0, furthestScroll());
    if (target == scroll) return;
    scroll = target;
    invalidate();
}

int MenuView::scrollDirectionAt(Point point) const
{
    if (point.x < rect.left || point.x >= rect.right) return 0;
    if (scroll > 0.0 && point.y < rect.top + kStrip) return -1;
    return scroll < furthestScroll() && point.y >= rect.bottom - kStrip ? 1 : 0;
}

// A list that opens below the mouse waits for the user to move first.
void MenuView::onTick()
{
    if (!isOpen() || !movedSinceOpen || !owningFrame->isMouseInside()) return;
    const Point mouse = owningFrame->getMousePosition();
    if (!rect.contains(mouse) && !openingPress) return;
    if (const int direction = scrollDirectionAt(mouse)) scrollBy(direction * kScrollPerTick);
}

void MenuView::highlight(int index)
{
    const int target = canChoose(index) ? index : kNothing;
    if (target == highlighted) return;
    highlighted = target;
    invalidate();
}

void MenuView::step(int from, int direction, double distance)
{
    const int count = static_cast<int>(entries.size());
    const double start = topOf(std::clamp(from, 0, count - 1));
    int found = kNothing;
    for (int i = from + direction; i >= 0 && i < count; i += direction) {
        if (!canChoose(i)) continue;
        found = i;
        if (std::abs(topOf(i) - start) >= distance) break;
    }
    if (found == kNothing) return;
    highlight(found);
    showHighlighted();
}

// The next entry that begins with what was typed, in whatever case; at the end the search goes on at the top.
void MenuView::seek(const std::string& typed)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    const auto same = [&](char a, char b) { return lower(a) == lower(b); };
    const int count = static_cast<int>(entries.size());
    for (int i = 1; i <= count; ++i) {
        const int index = (highlighted + i) % count;
        const std::string& text = entries[static_cast<std::size_t>(index)].text;
        if (!canChoose(index) || text.size() < typed.size()) continue;
        if (!std::equal(typed.begin(), typed.end(), text.begin(), same)) continue;
        highlight(index);
        showHighlighted();
        return;
    }
}

void MenuView::showHighlighted()
{
    if (highlighted == kNothing) return;
    const double top = topOf(highlighted) - scroll;
    if (top < kStrip) scrollBy(top - kStrip);
    const double bottom = topOf(highlighted) + kLine - scroll;
    if (bottom > rect.height() - kStrip) scrollBy(bottom - rect.height() + kStrip);
}

int MenuView::onMouseDown(Point point, std::uint32_t buttons)
{
    movedSinceOpen = true; // the press that opened it is over
    openingPress = false;
    if (!rect.contains(point)) {
        close(kNothing);
        return kMouseNotHandled;
    }
    if ((buttons & (kLeftButton | kRightButton)) != 0) highlight(entryAt(point));
    return kMouseHandled;
}

int MenuView::onMouseMoved(Point point, std::uint32_t)
{
    if (std::abs(point.x - pressPoint.x) > kStartMove || std::abs(point.y - pressPoint.y) > kStartMove)
        movedSinceOpen = true;
    if (movedSinceOpen) highlight(entryAt(point)); // until then the current entry stays lit
    return kMouseHandled;
}

// A press that opened the list and was dragged chooses where it ends; ended elsewhere, it closes the list.
int MenuView::onMouseUp(Point point, std::uint32_t)
{
    const bool dragged = std::exchange(openingPress, false) && movedSinceOpen;
    const int index = entryAt(point);
    if (movedSinceOpen && canChoose(index))
        close(index);
    else if (dragged && !rect.contains(point) && !anchor.contains(point))
        close(kNothing);
    return kMouseHandled;
}

void MenuView::onMouseExited(Point, std::uint32_t)
{
    highlight(kNothing);
}

void MenuView::onMouseWheel(Point point, float distance, std::uint32_t)
{
    scrollBy(-static_cast<double>(distance) * kWheelLines * kLine);
    highlight(entryAt(point));
}

bool MenuView::onKeyPress(const KeyPress& press)
{
    const int count = static_cast<int>(entries.size());
    const double page = rect.height() - 2.0 * kStrip - kLine;
    switch (press.key) {
    case Key::Up:
        step(highlighted == kNothing ? count : highlighted, -1);
        return true;
    case Key::Down:
        step(highlighted, 1);
        return true;
    case Key::Home:
        step(kNothing, 1);
        return true;
    case Key::End:
        step(count, -1);
        return true;
    case Key::PageUp:
        step(highlighted == kNothing ? count : highlighted, -1, page);
        return true;
    case Key::PageDown:
        step(highlighted, 1, page);
        return true;
    case Key::Escape:
        close(kNothing);
        return true;
    case Key::Return:
        if (highlighted != kNothing) close(highlighted);
        return true;
    default:
        break;
    }
    if (press.text.empty()) return false;
    if (press.text != " ")
        seek(press.text);
    else if (highlighted != kNothing)
        close(highlighted);
    return true;
}

void MenuView::draw(CQORDrawContext& context, const Rect&)
{
    context.setFillColor(kGround);
    context.setFrameColor(kEdge);
    context.setLineWidth(1.0);
    context.drawRect(rect, DrawStyle::FilledAndStroked);
    context.setClipRect({rect.left + 1.0, rect.top + 1.0, rect.right - 1.0, rect.bottom - 1.0});
    context.setFont(font.get());
    double top = rect.top + kMargin - scroll;
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        const Rect line{rect.left + 1.0, top, rect.right - 1.0, top + heightOf(i)};
        if (line.bottom > rect.top && line.top < rect.bottom) drawEntry(context, i, line);
        top = line.bottom;
    }
    if (scroll > 0.0) drawStrip(context, -1);
    if (scroll < furthestScroll()) drawStrip(context, 1);
    context.resetClipRect();
}

void MenuView::drawStrip(CQORDrawContext& context, int direction) const
{
    constexpr double kHalf = 4.0; // of the arrow's width, and its height
    const double top = direction < 0 ? rect.top : rect.bottom - kStrip;
    const double middle = std::floor((rect.left + rect.right) * 0.5);
    const double base = top + kStrip * 0.5 - direction * kHalf * 0.5;
    const Point arrow[] = {
        {middle - kHalf, base}, {middle + kHalf, base}, {middle, base + direction * kHalf}};
    context.setFillColor(kGround);
    context.drawRect({rect.left, top, rect.right, top + kStrip}, DrawStyle::Filled);
    context.setFillColor(kInk);
    context.drawPolygon(arrow, static_cast<int>(std::size(arrow)), DrawStyle::Filled);
}

void MenuView::drawEntry(CQORDrawContext& context, int index, const Rect& line) const
{
    const MenuEntry& entry = entries[static_cast<std::size_t>(index)];
    if (entry.separator) {
        const double middle = std::floor((line.top + line.bottom) * 0.5);
        context.setFillColor(kEdge);
        context.drawRect({line.left + kTextRight, middle, line.right - kTextRight, middle + 1.0},
                         DrawStyle::Filled);
        return;
    }
    const bool lit = index == highlighted;
    if (lit) {
        context.setFillColor(kHighlight);
        context.drawRect(line, DrawStyle::Filled);
    }
    if (index == checked) {
        const double middle = (line.top + line.bottom) * 0.5;
        context.setFillColor(kMark);
        context.drawEllipse({line.left + 6.0, middle - 3.0, line.left + 12.0, middle + 3.0},
                            DrawStyle::Filled);
    }
    context.setFontColor(lit ? kHighlightInk : canChoose(index) ? kInk : kDisabledInk);
    context.drawStringInRect(entry.text, {line.left + kMarkWidth, line.top, line.right, line.bottom},
                             TextAlign::Left);
}

} // namespace velmora::Qorvane
