#include "art/panels/limiter_dials.h"

#include "art/panels/trim_dial.h"
#include "art/parts/plate.h"
#include "params/laws/limiter_laws.h"

namespace velmora::art {
namespace {

constexpr double kFilterX = 35.5;
constexpr double kFilterY = 507.5;

} // namespace

const DialScale& limiterAttack()
{
    static const DialScale scale{.law = limiter::attackMs,
                                 .numbers = {0.1, 1, 10, 100},
                                 .fine = {0.2, 0.3, 0.5, 0.7, 2, 3, 5, 7, 20, 30, 50, 70}};
    return scale;
}

const DialScale& limiterRelease()
{
    static const DialScale scale{.law = limiter::releaseMs,
                                 .numbers = {10, 30, 100, 300, 1000},
                                 .fine = {20, 50, 70, 200, 500, 700},
                                 .text = thousands};
    return scale;
}

const DialScale& limiterReleaseNarrow()
{
    static const DialScale scale{.law = limiter::releaseMs,
                                 .numbers = {10, 100, 1000},
                                 .ticks = {30, 300},
                                 .fine = {20, 50, 70, 200, 500, 700},
                                 .text = thousands};
    return scale;
}

const DialScale& limiterCeiling()
{
    static const DialScale scale{.law = limiter::ceilingDb,
                                 .numbers = steps(-40, 10, 10),
                                 .fine = steps(-35, 5, 10),
                                 .text = signedNumber};
    return scale;
}

const DialScale& limiterCeilingLarge()
{
    static const DialScale scale{.law = limiter::ceilingDb,
                                 .numbers = steps(-40, 10, 10),
                                 .fine = steps(-38, 8, 2),
                                 .text = signedNumber};
    return scale;
}

const DialScale& limiterOutput()
{
    static const DialScale scale{.law = limiter::outputDb,
                                 .numbers = steps(-20, 20, 10),
                                 .fine = steps(-15, 15, 10),
                                 .text = signedNumber};
    return scale;
}

const DialScale& limiterOutputLarge()
{
    static const DialScale scale{.law = limiter::outputDb,
                                 .numbers = steps(-20, 20, 10),
                                 .fine = steps(-18, 18, 2),
                                 .text = signedNumber};
    return scale;
}

void drawKeyFilterWindow(cairo_t* cr, const UnitFace& face)
{
    drawWindow(cr, face, 23, 521, 25, 12);
}

void printKeyFilter(cairo_t* cr, const UnitFace& face)
{
    static const DialScale scale{.law = limiter::highPassHz, .ticks = {10, 20, 50, 100, 200, 500, 1000}};
    printTrim(cr, face, {kFilterX, kFilterY, scale, "OFF", "1k"});
    drawLabel(cr, face, "HPF", 13.5, 502, {.size = 7.3, .spacing = 0.1});
}

} // namespace velmora::art
