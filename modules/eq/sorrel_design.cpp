#include "modules/eq/sorrel_design.h"

#include <cmath>

namespace velmora {

namespace {

// Q = base ^ (|gain x qGainScale| / 15) x factors, multiplied from left to right.
struct Shape {
    StripBiquadKind kind;
    double frequencyScale;
    double qBase;
    double qGainScale;
    std::array<double, 4> qFactors;
    double gainScale;
};

constexpr auto kHighShelf = StripBiquadKind::HighShelf;
constexpr auto kLowShelf = StripBiquadKind::LowShelf;
constexpr auto kBell = StripBiquadKind::Peaking;
constexpr double kQGainDb = 15.0; // gain at which Q has grown by its base

constexpr PerWidth<Shape> kHigh{{
    {kHighShelf, 0.33, 1.28, 1.0, {0.3485, 1.0, 1.0, 1.0}, 1.0},
    {kHighShelf, 0.33, 1.28, 1.0, {0.47, 1.0, 1.0, 1.0}, 1.0},
    {kBell, 1.0, 1.23, 1.12, {0.45, 0.7071, 1.0, 1.0}, 1.12},
}};
constexpr PerWidth<Shape> kMid{{
    {kBell, 1.0, 1.23, 1.0, {0.45, 1.4142, 0.7071, 0.5}, 1.0},
    {kBell, 1.0, 1.23, 1.0, {0.45, 0.7071, 1.0, 1.0}, 1.125},
    {kBell, 1.0, 1.23, 1.0, {0.45, 0.7071, 1.4142, 1.0}, 1.25},
}};
constexpr PerWidth<Shape> kLow{{
    {kLowShelf, 3.0, 1.28, 1.0, {0.3485, 1.0, 1.0, 1.0}, 1.0},
    {kLowShelf, 3.0, 1.28, 1.0, {0.47, 1.0, 1.0, 1.0}, 1.0},
    {kBell, 1.0, 1.23, 1.12, {0.45, 0.7071, 1.0, 1.0}, 1.12},
}};

constexpr PerBand<const PerWidth<Shape>*> kShapes{&kHigh, &kMid, &kMid, &kLow};

} // namespace

EqSectionSettings sorrelSection(EqBand band, const EqBandSettings& s)
{
    const Shape& shape = (*kShapes[index(band)])[index(s.width)];
    double q = std::pow(shape.qBase, std::fabs(shape.qGainScale * s.gainDb) / kQGainDb);
    for (double factor : shape.qFactors) q *= factor;
    return {shape.kind, shape.frequencyScale * s.frequency, q, shape.gainScale * s.gainDb};
}

} // namespace velmora
