#include "art/proof/control_drawing.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"

#include <cmath>
#include <numbers>

namespace velmora::art {
namespace {

/// The needle of each dial: degrees at rest and of its travel, pivot below the middle, length, start, width.
struct Needle {
    std::uint32_t picture;
    double rest, travel;
    double pivot;
    double length, start;
    double width;
};
constexpr Needle kNeedles[] = {
    {34004, 45, 90, 34, 59, 0, 1.4},
    {34103, 45, 90, 29, 61, 0, 1.4},
    {34203, 57, 66, 41, 80, 10, 1.8},
};

void drawFilm(cairo_t* cr, PictureStore& store, const Control& control)
{
    const int frame = static_cast<int>((useOf(control.picture).frames - 1) * control.value + 0.5);
    store.paintFrame(cr, control.picture, control.x, control.y, frame);
}

void drawLamps(cairo_t* cr, PictureStore& store, const Control& control)
{
    const int count = control.low + control.mid + control.high;
    const int pitch = control.height / count;
    for (int lamp = 0; lamp < count; ++lamp) {
        const bool fromTop = control.kind == Control::Kind::Reduction;
        const int y = control.y + (fromTop ? lamp * pitch : control.height - (lamp + 1) * pitch);
        const int colour = lamp < control.low ? 1 : lamp < control.low + control.mid ? 2 : 3;
        store.paintFrame(cr, control.picture, control.x, y, 0);
        if (lamp < control.value) store.paintFrame(cr, control.picture, control.x, y, colour);
    }
}

void drawNeedle(cairo_t* cr, PictureStore& store, const Control& control)
{
    store.paintFrame(cr, control.picture, control.x, control.y, 0);
    for (const Needle& needle : kNeedles) {
        if (needle.picture != control.picture) continue;
        const double angle = (needle.rest + needle.travel * control.value) * std::numbers::pi / 180.0;
        const double x = control.x + store.frameWidth(control.picture) / 2.0 - 0.5;
        const double y = control.y + store.frameHeight(control.picture) / 2.0 + needle.pivot + 0.5;
        drawLine(cr, x - needle.start * std::cos(angle), y - needle.start * std::sin(angle),
                 x - needle.length * std::cos(angle), y - needle.length * std::sin(angle), needle.width,
                 hex(0x322d1e));
    }
    store.paintFrame(cr, control.picture, control.x, control.y, 1);
}

void drawMark(cairo_t* cr, PictureStore& store, const Control& control)
{
    store.paintFrame(cr, control.picture, control.x, control.y, 0);
    const double x = control.x + 120 - control.value * 102;
    drawLine(cr, x, control.y + 8, x, control.y + 25, 3, hex(0x0a0000), 210 / 255.0);
    drawLine(cr, x, control.y + 8, x, control.y + 16, 1, hex(0xfff4f4), 220 / 255.0);
}

/// Shows of a picture only what lies between two of its edges.
void drawRevealed(cairo_t* cr, PictureStore& store, const Control& control)
{
    const int width = store.frameWidth(control.picture);
    const int height = store.frameHeight(control.picture);
    cairo_save(cr);
    if (control.kind == Control::Kind::FromRight)
        cairo_rectangle(cr, control.x + std::floor(width * (1 - control.value)), control.y, width, height);
    else
        cairo_rectangle(cr, control.x, control.y + 3 * std::floor(height * (1 - control.value) / 3), width,
                        height);
    cairo_clip(cr);
    store.paint(cr, control.picture, control.x, control.y);
    cairo_restore(cr);
}

} // namespace

void drawControl(cairo_t* cr, PictureStore& store, const Control& control)
{
    if (!store.find(control.picture)) return;
    switch (control.kind) {
    case Control::Kind::Film:
        drawFilm(cr, store, control);
        break;
    case Control::Kind::Lamps:
    case Control::Kind::Reduction:
        drawLamps(cr, store, control);
        break;
    case Control::Kind::Needle:
        drawNeedle(cr, store, control);
        break;
    case Control::Kind::Mark:
        drawMark(cr, store, control);
        break;
    case Control::Kind::FromRight:
    case Control::Kind::FromBottom:
        drawRevealed(cr, store, control);
        break;
    }
}

} // namespace velmora::art
