#include "art/parts/knobs/ribs.h"

#include "art/parts/knobs/knob.h"
#include "art/parts/knobs/pixels.h"

#include <numbers>

namespace velmora::art {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr Sampling kSoft{4, 1.35};

double square(double value)
{
    return value * value;
}

} // namespace

void drawRibs(cairo_t* cr, const Ribs& ribs, double degrees)
{
    const double start = degrees / 360.0 * kTurn;
    paintPixels(cr, ribs.inner, ribs.outer, kSoft, [&](double x, double y) {
        const double radius = std::sqrt(x * x + y * y);
        if (radius < ribs.inner || radius > ribs.outer) return Tint{kBlack, 0.0};
        const double angle = std::atan2(x, -y);
        const double phase = ribs.count * (angle - start);
        const double height = -std::cos(phase); // 1 on a crest
        const double crest = square(0.5 + 0.5 * height);
        const double groove = square(0.5 - 0.5 * height);
        // Crests catch the lamp by where they look, flanks by which of its sides they are on.
        const double facing = -(x + y) / radius * std::numbers::sqrt2 / 2.0;
        const double aside = (x - y) / radius * std::numbers::sqrt2 / 2.0;
        const double shine = ribs.light * (0.35 + 0.65 * std::max(0.0, facing));
        const double flank = 0.18 * std::sin(phase) * aside;
        const double tone = shine * 1.5 * crest - ribs.dark * 1.2 * groove + flank;
        return tone > 0.0 ? Tint{ribs.glint, std::min(tone, 1.0)} : Tint{kBlack, std::min(-tone, 1.0)};
    });
}

} // namespace velmora::art
