#include "editor/engine/custom_control.h"

namespace velmora {

QORCustomControl::QORCustomControl(const Rect& place, std::uint32_t controlTag, QORBitmap* picture)
    : QORBaseControl(place, controlTag, picture, kControlKindCustom)
{
}

void QORCustomControl::setDefaultValue(double newDefault)
{
    ownDefault = newDefault;
}

double QORCustomControl::getDefaultValue()
{
    return ownDefault;
}

} // namespace velmora
