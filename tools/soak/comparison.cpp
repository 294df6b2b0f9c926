#include "tools/soak/comparison.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora::soak {

namespace {

double difference(double a, double b)
{
    if (a == b || (std::isnan(a) && std::isnan(b))) return 0.0;
    const double distance = std::abs(a - b);
    return std::isfinite(distance) ? distance : std::numeric_limits<double>::infinity();
}

/// Rounding to single precision can turn the least difference into one of a whole step.
double singleDifference(double a, double b)
{
    const auto single = static_cast<float>(a);
    return std::nextafter(single, static_cast<float>(b)) == static_cast<float>(b) ? 0.0 : difference(a, b);
}

} // namespace

void Comparison::add(const Player& played, const Player& reference, std::int64_t firstFrame, bool stripOn)
{
    const auto compare = played.single() ? singleDifference : difference;
    const auto addSide = [&](std::span<const double> ours, std::span<const double> theirs) {
        for (std::size_t i = 0; i < theirs.size(); ++i) {
            if (stripOn && std::isfinite(theirs[i])) peak_ = std::max(peak_, std::abs(theirs[i]));
            note(output_, compare(ours[i], theirs[i]) / peak_, firstFrame + static_cast<std::int64_t>(i));
        }
    };
    addSide(played.left(), reference.left());
    addSide(played.right(), reference.right());
}

void Comparison::addMeters(const Player& played, const Player& reference, std::int64_t frame)
{
    for (std::size_t i = 0; i < kMeters; ++i) {
        const auto ours = static_cast<double>(played.meters()[i]);
        const auto theirs = static_cast<double>(reference.meters()[i]);
        if (note(meter_, singleDifference(ours, theirs), frame))
            worstMeter_ = kFirstMeterId + static_cast<ParameterId>(i);
    }
}

/// @return whether this is the worst so far.
bool Comparison::note(WorstDifference& worst, double difference, std::int64_t frame)
{
    if (difference == 0.0) return false;
    if (firstDifference_ < 0) firstDifference_ = frame;
    if (!(difference > worst.difference)) return false;
    worst = {difference, frame};
    return true;
}

} // namespace velmora::soak
