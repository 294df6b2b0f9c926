#pragma once

#include "dsp/run_diagonally.h"
#include "modules/eq/eq_lanes.h"
#include "modules/eq/eq_piece.h"

#include <algorithm>

/// Sections in series with a crossfade behind each, as the serial flavours have them.
namespace velmora {

/// Order in which the serial flavours run their bands.
inline constexpr PerBand<EqBand> kEqSeries{EqBand::LowMid, EqBand::HighMid, EqBand::High, EqBand::Low};
/// Place of each band in that order.
inline constexpr PerBand<std::size_t> kEqPlace{2, 1, 0, 3};

/// Band of a section in a series that has the same number of sections for each band.
template <std::size_t count>
constexpr EqBand bandInSeries(std::size_t section)
{
    return kEqSeries[section * kEqBands / count];
}

/// The chain section by section. The sections may be in any state.
/// @param run gives the wet sample of a section: run(section, x).
template <typename Section, std::size_t count, typename Run>
void runSeriesApart(EqPiece& piece, std::array<Section, count>& chain, Run run)
{
    EqPiece::Row audio;
    std::copy_n(piece.input, piece.frames, audio.begin());
    runDiagonally<count>(piece.frames, [&](std::size_t k, std::int32_t n) {
        double& x = audio[static_cast<std::size_t>(n)];
        x = x + (run(chain[k], x) - x) * piece.mixAt(n, bandInSeries<count>(k));
    });
    EqPieceWriter writer(piece);
    for (std::int32_t n = 0; n < piece.frames; ++n) writer.write(n, audio[static_cast<std::size_t>(n)]);
    writer.finish();
}

/// The chain in lanes, section k two steps behind the one before it. All sections must be enabled.
/// @return false if a NaN has come up: nothing that lasts has changed, and the sections have to run apart,
/// where they heal.
template <typename V, SectionMotion motion, bool softens, typename Section, std::size_t count>
VELMORA_KERNEL bool runSeriesInLanes(EqPiece& piece, std::array<Section, count>& chain)
{
    constexpr std::size_t kWidth = kLaneCount<V>;
    constexpr std::size_t kGroups = count / kWidth;
    constexpr std::int32_t kDelay = 2; // steps from taking a sample in to handing it on
    constexpr std::int32_t kLastDelay = kDelay * (static_cast<std::int32_t>(count) - 1);

    const std::int32_t lastFrame = piece.frames - 1;
    std::array<V, kGroups> mix, out{};
    std::array<MaskOf<V>, kGroups> delays;
    // Of the samples whose outputs come with step n.
    const auto takeMix = [&](std::int32_t n) VELMORA_KERNEL_LAMBDA {
        for (std::size_t k = 0; k < count; ++k) {
            const std::int32_t sample = n - 1 - kDelay * static_cast<std::int32_t>(k);
            mix[k / kWidth][k % kWidth] =
                piece.mixAt(std::clamp(sample, 0, lastFrame), bandInSeries<count>(k));
        }
    };
    for (std::size_t k = 0; k < count; ++k)
        delays[k / kWidth][k % kWidth] = kDelay * static_cast<std::int64_t>(k);
    takeMix(0);

    EqLanes<V, kGroups, motion, softens> lanes;
    lanes.load(chain);
    EqPieceWriter writer(piece);
    const auto write = [&](std::int32_t n)
                           VELMORA_KERNEL_LAMBDA { writer.write(n, out[kGroups - 1][kWidth - 1]); };
    const auto step = [&](std::int32_t n, const auto& begun, const auto& due) VELMORA_KERNEL_LAMBDA {
        if (n > kLastDelay + 1) write(n - 2 - kLastDelay); // a step late, so that nothing waits for it
        std::array<V, kGroups> in;
        V before = allLanes<V>(piece.input[std::min(n, lastFrame)]);
        for (std::size_t g = 0; g < kGroups; ++g) {
            in[g] = shiftIn<V>(before, out[g]);
            before = out[g];
        }
        lanes.step(in, begun, due);
        if (piece.fading) takeMix(n);
        for (std::size_t g = 0; g < kGroups; ++g)
            out[g] = lanes.dry(g) + (lanes.wet(g) - lanes.dry(g)) * mix[g];
    };
    runLate<kGroups>(piece.frames, delays, kLastDelay, step);
    write(lastFrame);
    if (!lanes.store(chain)) return false;
    writer.finish();
    return true;
}

} // namespace velmora
