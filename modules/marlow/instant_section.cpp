#include "modules/marlow/instant_section.h"

#include "dsp/biquad_formulae.h"
#include "dsp/run_widest.h"
#include "dsp/vector_math.h"

#include <cmath>

namespace velmora {

namespace {

template <typename V>
VELMORA_KERNEL formulae::BiquadTerms<V> termsOf(StripBiquadKind kind, const formulae::PrewarpLanes<V>& to,
                                                const V& a)
{
    const V alpha = to.s / (2.0 * to.q);
    switch (kind) {
    case StripBiquadKind::HighPass:
        return formulae::highPass<V>(to.c, alpha);
    case StripBiquadKind::LowPass:
        return formulae::lowPass<V>(to.c, alpha);
    case StripBiquadKind::BandPass:
        return formulae::bandPass<V>(to.c, alpha);
    case StripBiquadKind::Notch:
        return formulae::notch<V>(to.c, alpha);
    case StripBiquadKind::LowShelf:
        return formulae::lowShelf<V>(to.c, a, sqrtLanes<V>(a) * to.s / to.q);
    case StripBiquadKind::HighShelf:
        return formulae::highShelf<V>(to.c, a, sqrtLanes<V>(a) * to.s / to.q);
    default:
        return formulae::peaking<V>(to.c, alpha, a);
    }
}

} // namespace

void InstantSection::setSampleRate(double hz)
{
    settings_ = {.sampleRate = hz};
    prewarpIsLibrary_ = prewarpStands_ = amplitudeIsLibrary_ = stands_ = false;
}

void InstantSection::design(StripBiquadKind kind, const SectionTracks& tracks, std::size_t frames)
{
    const bool kindMoves = kind != settings_.kind;
    const bool bandStands =
        tracks.bandStands && !kindMoves && tracks.hz[0] == settings_.frequency && tracks.q[0] == settings_.q;
    const bool gainStands =
        tracks.gainDb == nullptr || (tracks.gainStands && (*tracks.gainDb)[0] == settings_.gainDb);
    if (bandStands && gainStands && stands_) return;

    settings_.kind = kind;
    if (bandStands)
        holdPrewarp();
    else
        prewarp(tracks, kindMoves, frames);
    if (tracks.gainDb != nullptr) amplify(*tracks.gainDb, gainStands ? 0 : frames);
    stands_ = bandStands && gainStands;
    shape(stands_ ? kMarlowBlock : frames);
}

void InstantSection::holdPrewarp()
{
    if (prewarpStands_) return;
    if (!prewarpIsLibrary_) libraryPrewarp_ = prewarpBiquad(settings_);
    prewarpIsLibrary_ = prewarpStands_ = true;
    cosine_.fill(libraryPrewarp_.c);
    sine_.fill(libraryPrewarp_.s);
    warpedQ_.fill(libraryPrewarp_.q);
}

void InstantSection::prewarp(const SectionTracks& tracks, bool kindMoves, std::size_t frames)
{
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<width>;
        for (std::size_t i = 0; i < frames; i += width) {
            const auto [c, s, q] = formulae::prewarp<V>(settings_.kind, loadLanes<V>(&tracks.hz[i]),
                                                        loadLanes<V>(&tracks.q[i]), settings_.sampleRate);
            storeLanes<V>(&cosine_[i], c);
            storeLanes<V>(&sine_[i], s);
            storeLanes<V>(&warpedQ_[i], q);
        }
    });
    prewarpStands_ = false;
    for (std::size_t i = 0; i < frames; ++i) {
        if (kindMoves || tracks.hz[i] != settings_.frequency || tracks.q[i] != settings_.q) {
            settings_.frequency = tracks.hz[i];
            settings_.q = tracks.q[i];
            prewarpIsLibrary_ = kindMoves = false;
            continue;
        }
        if (!prewarpIsLibrary_) libraryPrewarp_ = prewarpBiquad(settings_);
        prewarpIsLibrary_ = true;
        cosine_[i] = libraryPrewarp_.c;
        sine_[i] = libraryPrewarp_.s;
        warpedQ_[i] = libraryPrewarp_.q;
    }
}

// For 0 frames the gain stands where it is.
void InstantSection::amplify(const MarlowTrack& gainDb, std::size_t frames)
{
    const auto still = [&] {
        if (!amplitudeIsLibrary_) libraryAmplitude_ = std::pow(10.0, settings_.gainDb / 40.0);
        amplitudeIsLibrary_ = true;
        return libraryAmplitude_;
    };
    if (frames == 0) {
        amplitude_.fill(still());
        return;
    }
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<width>;
        for (std::size_t i = 0; i < frames; i += width)
            storeLanes<V>(&amplitude_[i], exp10Lanes<V>(loadLanes<V>(&gainDb[i]) / 40.0));
    });
    for (std::size_t i = 0; i < frames; ++i) {
        if (gainDb[i] != settings_.gainDb) {
            settings_.gainDb = gainDb[i];
            amplitudeIsLibrary_ = false;
        } else {
            amplitude_[i] = still();
        }
    }
}

void InstantSection::shape(std::size_t length)
{
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<width>;
        for (std::size_t i = 0; i < length; i += width) {
            const formulae::PrewarpLanes<V> to{loadLanes<V>(&cosine_[i]), loadLanes<V>(&sine_[i]),
                                               loadLanes<V>(&warpedQ_[i])};
            const auto terms = termsOf<V>(settings_.kind, to, loadLanes<V>(&amplitude_[i]));
            storeLanes<V>(&b0_[i], terms.b0);
            storeLanes<V>(&b1_[i], terms.b1);
            storeLanes<V>(&b2_[i], terms.b2);
            storeLanes<V>(&a1_[i], terms.a1);
            storeLanes<V>(&a2_[i], terms.a2);
        }
    });
}

} // namespace velmora
