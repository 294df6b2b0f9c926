#include "modules/eq/juniper_filter.h"

#include "modules/eq/juniper_design.h"

namespace velmora {

template <typename Action>
void JuniperFilter::forBand(EqBand band, Action action)
{
    switch (band) {
    case EqBand::High:
        action(splits_[High]);
        break;
    case EqBand::Low:
        action(splits_[Low]);
        break;
    case EqBand::HighMid:
        action(splits_[HighMidLow]);
        action(splits_[HighMidHigh]);
        break;
    case EqBand::LowMid:
        action(splits_[LowMidLow]);
        action(splits_[LowMidHigh]);
        break;
    }
}

void JuniperFilter::setBand(EqBand band, const EqBandSettings& settings)
{
    if (isMidBand(band)) {
        const JuniperBellSplit split = juniperBellSplit(settings);
        splits_[band == EqBand::HighMid ? HighMidLow : LowMidLow].setDesign(split.low);
        splits_[band == EqBand::HighMid ? HighMidHigh : LowMidHigh].setDesign(split.high);
    } else {
        splits_[band == EqBand::High ? High : Low].setDesign(juniperShelfSplit(band, settings));
    }
    gainTarget_[index(band)] = juniperBandGain(band, settings);
    restGain_[index(band)] = juniperRestGain(settings);
}

void JuniperFilter::enableBand(EqBand band)
{
    forBand(band, [](EqSection& section) { section.setEnabled(true); });
}

void JuniperFilter::setSampleRate(double hz)
{
    for (EqSection& section : splits_) section.setSampleRate(hz);
}

void JuniperFilter::setAnalog(bool on)
{
    softens_ = on;
    for (EqSection& section : splits_) section.setAnalog(on);
}

void JuniperFilter::reset()
{
    for (EqSection& section : splits_) section.reset();
    gain_.reset(restGain_);
}

void JuniperFilter::process(EqPiece& piece, double step)
{
    Weights weights;
    weigh(piece, step, weights);
    if (!allRun(splits_) || !runInLanes(piece, weights)) runApart(piece, weights);
}

void JuniperFilter::weigh(const EqPiece& piece, double step, Weights& weights)
{
    const auto put = [&](std::size_t n, const PerBand<double>& gain) {
        const PerBand<double>& mix = piece.mix[piece.fading ? n : 0];
        for (std::size_t b = 0; b < kEqBands; ++b) weights.rows[n][b] = mix[b] * (gain[b] - 1.0);
    };
    weights.moving = piece.fading || !gain_.resting(gainTarget_, step);
    if (weights.moving)
        gain_.advance(gainTarget_, step, piece.frames, put);
    else
        put(0, gain_.values());
}

VELMORA_KERNEL double JuniperFilter::addBack(double x, const Parts& parts, const Weights& weights,
                                             std::size_t n)
{
    const PerBand<double>& weight = weights.rows[weights.moving ? n : 0];
    return x + weight[index(EqBand::High)] * parts.high + weight[index(EqBand::HighMid)] * parts.highMid +
           weight[index(EqBand::LowMid)] * parts.lowMid + weight[index(EqBand::Low)] * parts.low;
}

bool JuniperFilter::runInLanes(EqPiece& piece, const Weights& weights)
{
    return runSofteningLanes(anyGlides(splits_), softens_,
                             [&]<typename V, SectionMotion motion, bool softens>() VELMORA_KERNEL_LAMBDA {
                                 return runLanes<V, motion, softens>(piece, weights);
                             });
}

// The second sections of the bells take in what the first ones left two steps before.
template <typename V, SectionMotion motion, bool softens>
VELMORA_KERNEL bool JuniperFilter::runLanes(EqPiece& piece, const Weights& weights)
{
    constexpr std::size_t kWidth = kLaneCount<V>;
    constexpr std::size_t kGroups = (kSplits + kWidth - 1) / kWidth;
    constexpr std::int32_t kDelay = 2;
    constexpr std::size_t kFirstLate = HighMidHigh / kWidth; // group

    std::array<MaskOf<V>, kGroups> delays{};
    for (std::size_t g = kFirstLate; g < kGroups; ++g) delays[g] += kDelay;

    const std::int32_t lastFrame = piece.frames - 1;
    EqLanes<V, kGroups, motion, softens> lanes;
    lanes.load(splits_);
    EqPieceWriter writer(piece);
    std::array<V, kGroups> in, left{};
    V earlier{}, earliest{}; // what the outer bands left one and two steps before
    const auto write = [&](std::int32_t n) VELMORA_KERNEL_LAMBDA {
        const Parts parts{earliest[0], earliest[1], left[kFirstLate][0], left[kFirstLate][1]};
        const auto at = static_cast<std::size_t>(n);
        writer.write(n, addBack(piece.input[at], parts, weights, at));
    };
    const auto step = [&](std::int32_t n, const auto& begun, const auto& due) VELMORA_KERNEL_LAMBDA {
        if (n > kDelay + 1) write(n - 2 - kDelay); // a step late, so that nothing waits for it
        for (V& lane : in) lane = allLanes<V>(piece.input[std::min(n, lastFrame)]);
        if constexpr (kWidth == 2)
            in[kFirstLate] = left[1];
        else
            in[kFirstLate] = __builtin_shufflevector(left[0], left[0], 2, 3, 2, 3);
        lanes.step(in, begun, due);
        earliest = earlier;
        earlier = left[0];
        for (std::size_t g = 0; g < kGroups; ++g) left[g] = lanes.dry(g) - lanes.wet(g);
    };
    runLate<kGroups>(piece.frames, delays, kDelay, step);
    write(lastFrame);
    if (!lanes.store(splits_)) return false;
    writer.finish();
    return true;
}

void JuniperFilter::runApart(EqPiece& piece, const Weights& weights)
{
    const auto rest = [this](Split split, double x) { return x - splits_[split].process(x); };
    EqPieceWriter writer(piece);
    for (std::int32_t n = 0; n < piece.frames; ++n) {
        const auto at = static_cast<std::size_t>(n);
        const double x = piece.input[at];
        const Parts parts{rest(Low, x), rest(High, x), rest(HighMidHigh, rest(HighMidLow, x)),
                          rest(LowMidHigh, rest(LowMidLow, x))};
        writer.write(n, addBack(x, parts, weights, at));
    }
    writer.finish();
}

} // namespace velmora
