#pragma once

#include "dsp/run_diagonally.h"
#include "modules/limiter/glided_section.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora::limiter {

/// Low shelves around the saturator: the low end reaches the curve 20 dB down and comes back behind it, so
/// bass saturates less. The key has a pre-emphasis of its own.
class Emphasis {
public:
    void init();
    void setSampleRate(double hz);
    /// @param highPassHz the HPF control, 10..1000; the shelves sit well below it
    void glideTo(double highPassHz);
    /// The same while no audio comes by: clears the sections.
    void placeAt(double highPassHz);
    void reset();
    /// Designs what has been set. Outside of kernels.
    void refresh()
    {
        pre.refresh();
        post.refresh();
    }

    /// Both pre-emphases, in place, and `stages` more behind them: `follow(k, index)` is called for each
    /// sample with k from 0 up, beside the sections that are already samples ahead.
    template <typename V, std::size_t stages, typename Follow>
    VELMORA_KERNEL void runPre(double* detect, double* audio, std::size_t count, Follow follow);

    /// Applies the gains and takes the pre-emphasis back, in place.
    template <typename V>
    VELMORA_KERNEL void runPost(const double* gains, double* audio, std::size_t count);

private:
    static constexpr double kShelfDb = 20.0;
    static constexpr double kQ = 0.5;
    static constexpr double kStartHz = 10.0;
    static constexpr double kHighPassToShelf = 2.6;
    static constexpr auto kHealing = GlidedSection::Healing::ClearsBoth;

    void clear() { sideHistory = audioHistory = postHistory = {}; }

    GlidedSection pre;
    GlidedSection post;
    SectionHistory sideHistory;
    SectionHistory audioHistory;
    SectionHistory postHistory;
};

inline void Emphasis::init()
{
    pre.init(StripBiquadKind::LowShelf, kStartHz, kQ, -kShelfDb);
    post.init(StripBiquadKind::LowShelf, kStartHz, kQ, kShelfDb);
    clear();
}

inline void Emphasis::setSampleRate(double hz)
{
    pre.setSampleRate(hz);
    post.setSampleRate(hz);
}

inline void Emphasis::glideTo(double highPassHz)
{
    pre.glideTo(highPassHz / kHighPassToShelf);
    post.glideTo(highPassHz / kHighPassToShelf);
}

inline void Emphasis::placeAt(double highPassHz)
{
    pre.placeAt(highPassHz / kHighPassToShelf);
    post.placeAt(highPassHz / kHighPassToShelf);
    clear();
}

inline void Emphasis::reset()
{
    pre.land();
    post.land();
    clear();
}

// Along diagonals, as the machine can't look far enough ahead to overlap the stages of several samples
// itself.
template <typename V, std::size_t stages, typename Follow>
inline void Emphasis::runPre(double* detect, double* audio, std::size_t count, Follow follow)
{
    std::array<double, kChunk> sideForward;
    std::array<double, kChunk> audioForward;
    pre.advance(count);
    pre.feedForward<V>(detect, sideHistory, sideForward.data(), count);
    pre.feedForward<V>(audio, audioHistory, audioForward.data(), count);
    SectionHistory side = sideHistory; // locals stay in registers
    SectionHistory main = audioHistory;
    runDiagonally<stages + 1>(static_cast<std::int32_t>(count),
                              [&](std::size_t stage, std::int32_t index) VELMORA_KERNEL_LAMBDA {
                                  const auto i = static_cast<std::size_t>(index);
                                  if (stage > 0) {
                                      follow(stage - 1, i);
                                  } else {
                                      detect[i] = pre.feedBack<kHealing>(sideForward[i], i, side);
                                      audio[i] = pre.feedBack<kHealing>(audioForward[i], i, main);
                                  }
                              });
    sideHistory = side;
    audioHistory = main;
}

template <typename V>
inline void Emphasis::runPost(const double* gains, double* audio, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) audio[i] = gains[i] * audio[i];
    post.run<kHealing, V>(audio, count, postHistory);
}

} // namespace velmora::limiter
