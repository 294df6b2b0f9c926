#include "editor/engine/toolkit/view/view_container.h"

#include "editor/engine/base_control.h"
#include "editor/engine/resource_factory.h"
#include "editor/engine/toolkit/draw/bitmap.h"
#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/view/control_widget.h"
#include "editor/engine/toolkit/view/frame.h"
#include "editor/engine/toolkit/view/widget_factory.h"

#include <algorithm>

namespace velmora::Qorvane {

CQORViewContainer::CQORViewContainer(const Rect& place) : CView(place) {}

CQORViewContainer::~CQORViewContainer()
{
    for (const auto& widget : widgets) std::erase(children, widget.get());
    widgets.clear(); // a widget speaks to its control and to the frame until its end
    controls.clear();
    for (CView* child : children) child->setParent(nullptr);
    if (parent != nullptr) parent->removeChild(this);
}

void CQORViewContainer::setBackground(QORBitmap* bitmap)
{
    background = ResourceRef<QORBitmap>(bitmap);
    CView::invalidate();
}

void CQORViewContainer::setBackgroundResource(std::uint32_t id)
{
    background = ResourceRef<QORBitmap>::adopt(createBitmap(id));
    CView::invalidate();
}

void CQORViewContainer::setBackgroundColor(Rgba newColour)
{
    colour = newColour;
    CView::invalidate();
}

void CQORViewContainer::redraw()
{
    CView::invalidate();
    if (QORFrame* const root = getFrame()) root->paint();
}

void CQORViewContainer::setContinuousRedraw(bool on)
{
    continuousRedraw = on;
    if (on) CView::invalidate();
}

CControlWidget* CQORViewContainer::widgetOf(const QORBaseControl* control) const
{
    const auto found = std::ranges::find_if(
        widgets, [control](const auto& widget) { return widget->getControl() == control; });
    return found == widgets.end() ? nullptr : found->get();
}

void CQORViewContainer::addControl(QORBaseControl* control)
{
    if (control == nullptr) return;
    if (control->getContainer() != nullptr && control->getContainer() != this) return;
    if (control->getContainer() == nullptr) {
        controls.emplace_back(control);
        control->setContainer(this);
    }
    CControlWidget* widget = widgetOf(control);
    if (widget == nullptr) {
        std::unique_ptr<CControlWidget> made = makeWidget(*control);
        if (made == nullptr) return;
        widget = made.get();
        widgets.push_back(std::move(made));
    }
    addChild(widget);
}

void CQORViewContainer::removeControl(QORBaseControl* control)
{
    if (CControlWidget* const widget = widgetOf(control)) removeChild(widget);
}

std::uint32_t CQORViewContainer::getTagAt(Point point, std::uint32_t)
{
    const Point origin = containerOrigin(); // of the frame; the plug-in area's origin lies in it
    Point areaOrigin;
    if (const QORFrame* const root = getFrame()) areaOrigin = root->areaOrigin();
    const Point local{point.x + areaOrigin.x - origin.x, point.y + areaOrigin.y - origin.y};
    const auto* const widget = dynamic_cast<CControlWidget*>(viewAt(local));
    return widget != nullptr ? widget->getControl()->getTag() : kNoTag;
}

void CQORViewContainer::addChild(CView* child)
{
    if (child == nullptr || hasChild(child)) return;
    child->setParent(this);
    children.push_back(child);
    child->invalidate();
}

void CQORViewContainer::removeChild(CView* child)
{
    if (!hasChild(child)) return;
    child->invalidate();
    std::erase(children, child); // before the calls, in which anything may happen
    if (QORFrame* const root = getFrame()) {
        root->forgetView(child);
        child->onRemoved();
    }
    if (child->getParent() == this && !hasChild(child)) child->setParent(nullptr);
}

void CQORViewContainer::onRemoved()
{
    const std::vector<CView*> inside = children; // a host that hears of an end may change them
    for (CView* child : inside)
        if (hasChild(child)) child->onRemoved();
}

bool CQORViewContainer::hasChild(const CView* child) const
{
    return std::ranges::find(children, child) != children.end();
}

bool CQORViewContainer::covers(const Rect& part) const
{
    if (intersection(part, rect) != part) return false;
    const Rect inside = part.movedBy(-rect.left, -rect.top);
    return hasOpaqueGround() ||
           std::ranges::any_of(children, [&inside](const CView* child) { return child->covers(inside); });
}

bool CQORViewContainer::hasOpaqueGround() const
{
    if (colour.alpha == 255) return true;
    auto* const bitmap = dynamic_cast<CQORBitmap*>(background.get());
    return bitmap != nullptr && rect.width() <= bitmap->getWidth() && rect.height() <= bitmap->getHeight() &&
           bitmap->isOpaque();
}

// What lies behind an opaque ground needn't be drawn.
std::size_t CQORViewContainer::firstVisibleChild(const Rect& damage) const
{
    for (std::size_t i = children.size(); i-- > 0;)
        if (children[i]->covers(damage)) return i;
    return children.size();
}

void CQORViewContainer::drawBackground(CQORDrawContext& context) const
{
    const Rect ground = rectAt(0.0, 0.0, rect.width(), rect.height());
    if (colour.alpha != 0) {
        context.setFillColor(colour);
        context.drawRect(ground, DrawStyle::Filled);
    }
    if (background) context.drawBitmap(background.get(), ground, {0.0, 0.0}, 1.0);
}

void CQORViewContainer::draw(CQORDrawContext& context, const Rect& damage)
{
    const Point origin = containerOrigin();
    const Point inside{origin.x + rect.left, origin.y + rect.top};
    const Rect seen = intersection(damage, rect).movedBy(-rect.left, -rect.top);
    if (seen.empty()) return;

    std::size_t first = firstVisibleChild(seen);
    if (first == children.size()) {
        context.setOrigin(inside);
        drawBackground(context);
        first = 0;
    }
    for (std::size_t i = first; i < children.size(); ++i) {
        if (intersection(seen, children[i]->getPlace()).empty()) continue;
        context.setOrigin(inside);
        context.pushLimit(intersection(children[i]->getPlace(), seen));
        children[i]->draw(context, seen);
        context.popLimit();
    }
    if (continuousRedraw) CView::invalidate();
}

CView* CQORViewContainer::viewAt(Point point)
{
    if (mouseTransparent || !rect.contains(point)) return nullptr;
    const Point inside{point.x - rect.left, point.y - rect.top};
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        if (CView* const hit = (*child)->viewAt(inside)) return hit;
    return this;
}

QORFrame* CQORViewContainer::getFrame() const
{
    return frame != nullptr ? frame : CView::getFrame();
}

} // namespace velmora::Qorvane
