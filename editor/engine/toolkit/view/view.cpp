#include "editor/engine/toolkit/view/view.h"

#include "editor/engine/toolkit/view/frame.h"
#include "editor/engine/toolkit/view/view_container.h"

namespace velmora::Qorvane {

CView::~CView()
{
    if (QORFrame* const frame = getFrame()) frame->forgetView(this);
}

void CView::setPlace(const Rect& place)
{
    if (place == rect) return;
    invalidate();
    rect = place;
    invalidate();
}

CView* CView::viewAt(Point point)
{
    return rect.contains(point) ? this : nullptr;
}

void CView::invalidateRect(const Rect& part)
{
    if (QORFrame* const frame = getFrame()) frame->addDamage(inFrame(part));
}

QORFrame* CView::getFrame() const
{
    return parent != nullptr ? parent->getFrame() : nullptr;
}

bool CView::holds(const CView* view) const
{
    while (view != nullptr && view != this) view = view->parent;
    return view == this;
}

Point CView::containerOrigin() const
{
    Point origin;
    for (const CQORViewContainer* container = parent; container != nullptr;
         container = container->getParent()) {
        origin.x += container->getPlace().left;
        origin.y += container->getPlace().top;
    }
    return origin;
}

Rect CView::inFrame(const Rect& part) const
{
    const Point origin = containerOrigin();
    return part.movedBy(origin.x, origin.y);
}

Point CView::fromFrame(Point point) const
{
    const Point origin = containerOrigin();
    return {point.x - origin.x, point.y - origin.y};
}

} // namespace velmora::Qorvane
