#include "art/panels/trim_dial.h"

#include "art/parts/plate.h"

namespace velmora::art {

void printTrim(cairo_t* cr, const UnitFace& face, const TrimDial& dial)
{
    constexpr double kAside = 11.5;
    constexpr double kBelow = 8;
    Label label{.size = 6.8, .align = Align::Right, .spacing = 0, .font = Face::Narrow};
    drawDialScale(cr, face, dial.x, dial.y, dial.scale, {.radius = 10.8, .tick = 2.4});
    drawLabel(cr, face, dial.low, dial.x - kAside, dial.y + kBelow, label);
    label.align = Align::Left;
    drawLabel(cr, face, dial.high, dial.x + kAside, dial.y + kBelow, label);
}

} // namespace velmora::art
