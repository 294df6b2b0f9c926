#pragma once

#include "modules/input/component_spread.h"
#include "modules/input/noise_generator.h"
#include "modules/input/rail_section.h"
#include "modules/input/rails.h"

#include <array>

namespace velmora::preamp {

/// Shaping of the white noise of both rails into hiss and hum: a one-pole low-pass, then a tilt and three hum
/// bells.
class NoiseShaper {
public:
    /// Designs of the sections, with the tolerances of a unit.
    struct Designs {
        RailDesigns tilt, hum1, hum2, hum3;
    };
    /// What sets the noise of one piece.
    struct Setting {
        double level;             ///< linear, before the rails' trims, as two factors in the order of
        double scale;             ///< multiplication
        double filterCoefficient; ///< of the one-pole low-pass, per sample
    };

    explicit NoiseShaper(const std::array<double, kRails>& trim) : trim_{trim[0], trim[1]} {}

    /// The rails fall silent.
    void reset()
    {
        filterState_ = Rails{};
        resetSections();
    }
    /// Starts the sections anew with other designs.
    void land(const Designs& designs)
    {
        tilt_.tune(designs.tilt);
        hum1_.tune(designs.hum1);
        hum2_.tune(designs.hum2);
        hum3_.tune(designs.hum3);
        resetSections();
    }

    /// The low-pass, for one sample: white noise to noise of the level set.
    VELMORA_KERNEL Rails filter(const Rails& white, const Setting& s)
    {
        filterState_ = flushLanes((white - filterState_) * s.filterCoefficient + filterState_, kFlush);
        return filterState_ * s.level * s.scale * trim_;
    }
    VELMORA_KERNEL Rails tilt(const Rails& x) { return tilt_.process(x); }
    VELMORA_KERNEL Rails hum1(const Rails& x) { return hum1_.process(x); }
    VELMORA_KERNEL Rails hum2(const Rails& x) { return hum2_.process(x); }
    VELMORA_KERNEL Rails hum3(const Rails& x) { return hum3_.process(x); }

private:
    static constexpr double kFlush = 1e-16;

    void resetSections()
    {
        for (RailSection<>* section : {&tilt_, &hum1_, &hum2_, &hum3_}) section->reset();
    }

    Rails trim_;
    Rails filterState_{};
    RailSection<> tilt_, hum1_, hum2_, hum3_;
};

} // namespace velmora::preamp
