#pragma once

#include "dsp/section_lanes.h"
#include "modules/filters/strip_filter_section.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// Filter sections side by side, for `runLaneChains`: second-order ones and one-poles in any mixture.
template <typename V, SectionMotion motion>
class FilterLanes {
public:
    using Sections = std::array<StripFilterSection*, kLaneCount<V>>;

    VELMORA_KERNEL void load(const Sections& sections)
    {
        Sections biquads = sections;
        for (std::size_t k = 0; k < sections.size(); ++k) {
            if (sections[k] == nullptr || !sections[k]->isOnePole()) continue;
            biquads[k] = nullptr;
            const StripFilterSection::Parts parts = sections[k]->parts();
            onePole_[k] = -1;
            highPass_[k] = sections[k]->kind() == StripFilterSection::kOnePoleHighPass ? -1 : 0;
            level_[k] = parts.history.y1;
            coefficient_[k] = motion == SectionMotion::Steady ? parts.onePoleTarget : parts.onePole;
            target_[k] = parts.onePoleTarget;
            left_[k] = parts.glide.samplesLeft();
        }
        biquads_.load(biquads);
    }

    VELMORA_KERNEL void store(const Sections& sections) const
    {
        Sections biquads = sections;
        for (std::size_t k = 0; k < sections.size(); ++k) {
            if (sections[k] == nullptr || !sections[k]->isOnePole()) continue;
            biquads[k] = nullptr;
            const StripFilterSection::Parts parts = sections[k]->parts();
            parts.history.y1 = level_[k];
            parts.onePole = coefficient_[k];
            parts.glide.resume(parts.glide.roots(), static_cast<std::uint32_t>(left_[k]));
        }
        biquads_.store(biquads);
    }

    VELMORA_KERNEL bool stuck() const { return biquads_.stuck() || anyNan<V>(level_ + output_); }
    VELMORA_KERNEL const V& y1() const { return output_; }

    /// See `SectionLanes::step`.
    template <typename Mask>
    VELMORA_KERNEL void step(const V& x0, const Mask& begun, const Mask& due)
    {
        biquads_.step(x0, begun, due);
        if constexpr (motion != SectionMotion::Steady) drift(due);
        const V level = flushLanes((entered_ - level_) * coefficient_ + level_, StripBiquad::kFlush);
        level_ = where<V>(due, level, level_);
        output_ = choose<V>(onePole_, choose<V>(highPass_, entered_ - level, level), biquads_.y1());
        entered_ = x0;
    }

private:
    // As the section does while a glide's samples run down, and lands.
    template <typename Mask>
    VELMORA_KERNEL void drift(const Mask& due)
    {
        const MaskOf<V> moves = wordsWhere<V>(due, left_) > 0;
        left_ += moves; // a set lane is -1
        const V drifted =
            flushLanes((target_ - coefficient_) * StripFilterSection::kCoefficientStep + coefficient_,
                       StripFilterSection::kCoefficientFlush);
        coefficient_ = where<V>(due, choose<V>(moves, drifted, target_), coefficient_);
    }

    SectionLanes<V, motion> biquads_;
    V entered_{}; ///< what awaits its output
    V output_{};
    MaskOf<V> onePole_{};
    MaskOf<V> highPass_{};
    V level_{};
    V coefficient_{};
    V target_{};
    MaskOf<V> left_{};
};

} // namespace velmora
