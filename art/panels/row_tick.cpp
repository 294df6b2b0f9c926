#include "art/panels/row_tick.h"

#include "art/paint/shape.h"

#include <cmath>

namespace velmora::art {

void drawRowTick(cairo_t* cr, double x0, double x1, double y, const RowTick& tick)
{
    const double row = std::floor(y) + 0.5;
    drawLine(cr, x0, row, x1, row, 1, tick.ink, tick.alpha);
}

} // namespace velmora::art
