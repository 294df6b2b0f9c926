#include "art/panels/reduction_bar.h"

#include "art/parts/plate.h"
#include "art/parts/switches/lamp.h"

#include <array>

namespace velmora::art {
namespace {

constexpr double kWidth = 12;
constexpr double kPitch = 15;
/// Reduction at which each lamp is lit, from the top.
constexpr std::array kLampsDb{".5", "1", "2", "3", "4", "5", "7", "9", "11", "14", "18", "28"};

} // namespace

void drawReductionBar(cairo_t* cr, const UnitFace& face, double x, double y, double headingY)
{
    constexpr double height = kPitch * kLampsDb.size();
    const double middle = x + kWidth / 2;
    drawLampBarWell(cr, x, y, kWidth, height);
    drawLabel(cr, face, "GR", middle, headingY, {});
    drawLabel(cr, face, "dB", middle, y + height + 9.5, {.size = 7});
    for (std::size_t lamp = 0; lamp < kLampsDb.size(); ++lamp)
        drawLabel(cr, face, kLampsDb[lamp], x + kWidth + 4, y + 7 + kPitch * static_cast<double>(lamp),
                  {.size = 7, .align = Align::Left, .spacing = 0, .font = Face::Narrow});
}

} // namespace velmora::art
