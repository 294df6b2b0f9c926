#include "art/parts/knobs/families.h"
#include "art/parts/knobs/juniper_slider.h"
#include "art/parts/knobs/knob_strip.h"
#include "art/resource.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace velmora::art {
namespace {

constexpr Colour kSteelGrey = hex(0x9aa1a8);
constexpr Colour kAnodised = hex(0x5d7890);

// A square frame with the shaft in its middle.
constexpr Knob square(std::uint32_t id, const Family& family, int side, double radius, Colour accent = kWhite)
{
    return {.id = id,
            .family = &family,
            .width = side,
            .height = side,
            .shaft = {side / 2.0, side / 2.0},
            .room = {double(side), double(side)},
            .radius = radius,
            .accent = accent};
}

constexpr Knob trim()
{
    Knob knob = square(36005, kTrim, 25, 8.6);
    knob.frames = 291;
    return knob;
}

// Lies over the left of the control, whose 97 pixels it meets with its shaft at the scale's middle.
constexpr Knob kJuniperGain{.id = 35201,
                            .family = &kJuniper,
                            .width = 118,
                            .height = 113,
                            .shaft = {72, 62},
                            .room = {97, 113},
                            .radius = 19.5};

// Above the value windows, which begin below the skirts.
constexpr Knob kOptoLimiterSmall{.id = 36001,
                                 .family = &kOptoLimiter,
                                 .width = 73,
                                 .height = 76,
                                 .shaft = {36.5, 34},
                                 .room = {73, 70},
                                 .radius = 23.5};
constexpr Knob kOptoLimiterLarge{.id = 36002,
                                 .family = &kOptoLimiter,
                                 .width = 109,
                                 .height = 112,
                                 .shaft = {54.5, 52},
                                 .room = {109, 108},
                                 .radius = 39};

constexpr std::array kKnobs{
    square(31101, kDome, 58, 23.5),
    square(31201, kToothed, 60, 21.5, hex(0xb5452f)),
    square(31304, kFin, 60, 20.5),
    square(32001, kModern, 50, 17),
    square(32002, kModern, 60, 20.5),
    square(33001, kDynamics, 60, 21, hex(0x35a79c)),
    square(33002, kDynamics, 45, 15.8, kSteelGrey),
    square(33003, kDynamics, 47, 16.5, kSteelGrey),
    square(33004, kDynamics, 60, 21, hex(0xd79a35)),
    square(33005, kDynamics, 60, 21, hex(0x8a6fd0)),
    square(33006, kFin, 46, 16),
    square(34001, kOpto, 50, 17.5),
    square(34002, kOpto, 78, 29),
    square(34101, kFet, 50, 17.5),
    square(34102, kFet, 78, 29),
    square(34201, kVca, 50, 17.5, kAnodised),
    square(34202, kVca, 78, 29, kAnodised),
    square(35001, kSorrelRing, 66, 27.5),
    square(35002, kSorrelGrip, 66, 16.5),
    square(35101, kTamarin, 66, 24),
    kJuniperGain,
    kOptoLimiterSmall,
    kOptoLimiterLarge,
    trim(),
};

template <std::size_t index>
void drawKnob(cairo_t* cr)
{
    drawStrip(cr, kKnobs[index]);
}

constexpr Resource resourceOf(std::uint32_t id, const Film& film, void (*draw)(cairo_t*))
{
    return {id, film.totalWidth(), film.totalHeight(), draw};
}

template <std::size_t... index>
constexpr auto listResources(std::index_sequence<index...>)
{
    std::array resources{resourceOf(35203, kJuniperSliderFilm, drawJuniperSlider),
                         resourceOf(kKnobs[index].id, filmOf(kKnobs[index]), drawKnob<index>)...};
    std::ranges::sort(resources, {}, &Resource::id);
    return resources;
}

constexpr auto kResources = listResources(std::make_index_sequence<kKnobs.size()>());

} // namespace

std::span<const Resource> knobStrips()
{
    return kResources;
}

} // namespace velmora::art
