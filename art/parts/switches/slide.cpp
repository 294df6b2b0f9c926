#include "art/parts/switches/slide.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"

#include <cmath>

namespace velmora::art {
namespace {

constexpr double kShadowBlur = 1.5;
constexpr double kEndGap = 2.4; // between the box and the thumb at its end, room for the shadow

struct Box {
    double x;
    double y;
    double width;
    double height;
};

// Puts a centre in the middle of a pixel, where the ridges are sharp.
double sharp(double centre)
{
    return std::floor(centre) + 0.5;
}

void drawThumbBody(cairo_t* cr, const Box& box, Colour colour)
{
    drawSoftRect(cr, box.x + 0.4, box.y + 0.9, box.width, box.height, 2, kShadowBlur, 0.6);
    useLinear(cr, 0, box.y, 0, box.y + box.height,
              {{0, lighter(colour, 0.5)}, {0.35, colour}, {1, darker(colour, 0.45)}});
    fillRoundRect(cr, box.x, box.y, box.width, box.height, 2);
}

void drawThumbEdge(cairo_t* cr, const Box& box)
{
    useColour(cr, kBlack, 0.55);
    strokeRoundRect(cr, 0.7, box.x, box.y, box.width, box.height, 2);
}

void drawSlot(cairo_t* cr, const Box& box, bool down)
{
    const double endX = down ? box.x + box.width : box.x;
    const double endY = down ? box.y : box.y + box.height;
    useLinear(cr, box.x, box.y, endX, endY, {{0, kBlack}, {1, hex(0x2c2e31)}});
    fillRoundRect(cr, box.x, box.y, box.width, box.height, 2.5);
    useLinear(cr, box.x, box.y, endX, box.y + box.height, {{0, kBlack, 0.7}, {1, kWhite, 0.28}});
    strokeRoundRect(cr, 0.8, box.x - 0.4, box.y - 0.4, box.width + 0.8, box.height + 0.8, 2.8);
}

} // namespace

void drawSlideDown(cairo_t* cr, const Slide& slide, int position)
{
    const double centre = slide.x + slide.width / 2;
    drawSlot(cr, {centre - slide.slotWidth / 2, slide.y + 2, slide.slotWidth, slide.height - 4}, true);

    const double travel = slide.height - 2 * kEndGap - slide.thumbLength;
    const double first = slide.y + kEndGap + slide.thumbLength / 2;
    const double middle = sharp(first + travel * position / (slide.positions - 1));
    const Box thumb{centre - slide.thumbWidth / 2, middle - slide.thumbLength / 2, slide.thumbWidth,
                    slide.thumbLength};
    drawThumbBody(cr, thumb, slide.thumb);
    for (const double offset : {-3.0, 0.0, 3.0}) {
        const double y = middle + offset;
        drawLine(cr, thumb.x + 2.5, y, thumb.x + thumb.width - 2.5, y, 1, kBlack, 0.45);
        drawLine(cr, thumb.x + 2.5, y + 0.9, thumb.x + thumb.width - 2.5, y + 0.9, 0.7, kWhite, 0.45);
    }
    drawThumbEdge(cr, thumb);
}

void drawSlideAcross(cairo_t* cr, const Slide& slide, int position)
{
    constexpr double kMargin = 3;
    const double centre = slide.y + slide.height / 2;
    const double left = slide.x + kMargin;
    const double share = (slide.width - 2 * kMargin) / slide.positions;
    drawSlot(cr, {left, centre - slide.slotWidth / 2, slide.width - 2 * kMargin, slide.slotWidth}, false);

    const double middle = sharp(left + share * (position + 0.5));
    const Box thumb{middle - slide.thumbLength / 2, centre - slide.thumbWidth / 2, slide.thumbLength,
                    slide.thumbWidth};
    drawThumbBody(cr, thumb, slide.thumb);
    for (const double offset : {-4.0, 0.0, 4.0}) {
        const double x = middle + offset;
        drawLine(cr, x, thumb.y + 3, x, thumb.y + thumb.height - 3, 1, kBlack, 0.45);
        drawLine(cr, x + 0.9, thumb.y + 3, x + 0.9, thumb.y + thumb.height - 3, 0.7, kWhite, 0.45);
    }
    drawThumbEdge(cr, thumb);
}

} // namespace velmora::art
