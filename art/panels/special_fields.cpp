#include "art/panels/special_fields.h"

#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/parts/plate.h"
#include "art/parts/relief.h"

#include <numbers>

namespace velmora::art {
namespace {

void printSign(cairo_t* cr, const UnitFace& face, const Sign& sign, double x, double y)
{
    if (const auto* icon = std::get_if<Icon>(&sign))
        drawIcon(cr, *icon, x, y - 1, 14, 7, face.ink, {.alpha = 0.95, .lineWidth = 1.4});
    else
        drawLabel(cr, face, std::get<std::string_view>(sign), x, y, {.spacing = 0.1});
}

} // namespace

void drawField(cairo_t* cr, double y, double height)
{
    constexpr double x = 3;
    constexpr double width = kPanelWidth - 2 * x;
    useColour(cr, kWhite, 0.16);
    fillRoundRect(cr, x, y, width, height, 5);
    drawLip(cr, x + 0.5, y + 0.5, width - 1, height - 1, 5, 0.35, 0.65);
}

void printRocker(cairo_t* cr, const UnitFace& face, std::string_view name, double y,
                 const std::array<Sign, 2>& signs)
{
    constexpr double kMiddle = 54.5;
    constexpr double kKeyWidth = 24.5;
    drawLabel(cr, face, name, kMiddle, y - 22, {.size = 7.5});
    printSign(cr, face, signs[0], kMiddle - kKeyWidth / 2, y - 5);
    printSign(cr, face, signs[1], kMiddle + kKeyWidth / 2, y - 5);
}

void drawWordmark(cairo_t* cr, const UnitFace& face, std::string_view name, double y)
{
    constexpr double kX = 121;
    Lettering lettering{
        .size = 21, .colour = kWhite, .alpha = 0.45, .face = Face::Gothic, .spacing = 1.5, .snap = false};
    cairo_save(cr);
    cairo_translate(cr, kX, y);
    cairo_rotate(cr, -std::numbers::pi / 2);
    drawText(cr, name, 0.7, 0.8, lettering);
    lettering.colour = face.accent;
    lettering.alpha = 0.42;
    drawText(cr, name, 0, 0, lettering);
    cairo_restore(cr);
}

} // namespace velmora::art
