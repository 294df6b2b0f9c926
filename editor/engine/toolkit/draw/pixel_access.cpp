#include "editor/engine/toolkit/draw/pixel_access.h"

#include "editor/engine/toolkit/draw/picture.h"

namespace velmora::Qorvane {

CQORBitmapPixelAcces::CQORBitmapPixelAcces(CQORBitmap& shared) : bitmap(&shared) {}

void CQORBitmapPixelAcces::remember()
{
    references.fetch_add(1, std::memory_order_relaxed);
}

void CQORBitmapPixelAcces::forget()
{
    if (references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

bool CQORBitmapPixelAcces::setPosition(int newX, int newY)
{
    const Picture& picture = *bitmap->pixels();
    if (newX < 0 || newY < 0 || newX >= picture.width() || newY >= picture.height()) return false;
    x = newX;
    y = newY;
    return true;
}

bool CQORBitmapPixelAcces::advance()
{
    return setPosition(x + 1, y) || setPosition(0, y + 1);
}

bool CQORBitmapPixelAcces::retreat()
{
    return setPosition(x - 1, y) || setPosition(bitmap->pixels()->width() - 1, y - 1);
}

void CQORBitmapPixelAcces::getColor(Rgba& colour) const
{
    colour = bitmap->pixels()->colorAt(x, y);
}

void CQORBitmapPixelAcces::setColor(Rgba colour)
{
    if (Picture* const own = bitmap->ownPixels()) own->setColorAt(x, y, colour);
}

} // namespace velmora::Qorvane
