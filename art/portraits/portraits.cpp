#include "art/chassis/chassis.h"
#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/texture.h"
#include "art/portraits/emblems.h"
#include "art/resource.h"
#include "presets/factory_bank.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora::art {
namespace {

constexpr std::uint32_t kFirst = 90001;
constexpr double kSize = 120;
constexpr double kRadius = 4;

using Emblem = void (*)(Sketch&);

// In the order of the designers.
constexpr std::array<Emblem, kDesignerCount> kEmblems{
    emblem::harbourLoft,     emblem::studioVierzehn,  emblem::coalCellar,      emblem::birchRoom,
    emblem::levelBench,      emblem::ninthFloorBeats, emblem::keyholeAudio,    emblem::barnDoorSound,
    emblem::cornerFlat,      emblem::oldPostOffice,   emblem::saltmarshStudio, emblem::tinRoofRecording,
    emblem::velvetStairwell, emblem::longHall,        emblem::cassetteKitchen, emblem::dubBasement,
    emblem::grindstone,      emblem::stageSix,        emblem::plainPlaster,    emblem::courtyardTakes,
    emblem::valveCupboard,   emblem::fieldKit,        emblem::makersRack,
};

void drawGround(cairo_t* cr, Colour ground)
{
    useRadial(cr, 30, 22, 5, 60, 60, 100, {{0, lighter(ground, 0.22)}, {1, darker(ground, 0.5)}});
    fillRect(cr, 0, 0, kSize, kSize);
    paintGrain(cr, Grain::Fine, 0, 0, kSize, kSize, 0.03, 23);
}

/// In one line; long names in smaller letters.
void drawName(cairo_t* cr, std::string_view name, Colour ink)
{
    constexpr double kRoom = 108;
    Lettering lettering{.size = 10.5, .colour = ink, .face = Face::Gothic, .relief = Relief::LightInk};
    while (textWidth(cr, name, lettering) > kRoom) lettering.size -= 0.25;
    drawText(cr, name, kSize / 2, 105, lettering);
}

void drawPortrait(cairo_t* cr, std::uint32_t designer)
{
    FactoryDesigner studio;
    factoryDesigner(designer, &studio);
    const std::string_view name = studio.name.data();
    const Colour ink = hex(studio.portrait->mark);

    cairo_save(cr);
    addRoundRect(cr, 0, 0, kSize, kSize, kRadius);
    cairo_clip(cr);
    drawGround(cr, hex(studio.portrait->ground));
    Sketch sketch(cr, ink);
    kEmblems[designer](sketch);
    drawLine(cr, 8, 94.5, 112, 94.5, 1, ink, 0.35);
    drawName(cr, name.empty() ? "QOR Velmora" : name, lighter(ink, 0.3));
    useLinear(cr, 0, 0, 0, 60, {{0, kWhite, 0.10}, {1, kWhite, 0}});
    fillRect(cr, 0, 0, kSize, 60);
    cairo_restore(cr);
    useLinear(cr, 0, 0, 0, kSize, {{0, kBlack, 0.6}, {1, kWhite, 0.35}});
    strokeRoundRect(cr, 1, 0.5, 0.5, kSize - 1, kSize - 1, kRadius);
}

template <std::uint32_t designer>
void drawPortraitOf(cairo_t* cr)
{
    drawPortrait(cr, designer);
}

template <std::uint32_t... designers>
constexpr auto makeList(std::integer_sequence<std::uint32_t, designers...>)
{
    return std::array{Resource{90000, 152, 66, drawSpareStrip},
                      Resource{kFirst + designers, 120, 120, drawPortraitOf<designers>}...};
}

constexpr auto kPortraits = makeList(std::make_integer_sequence<std::uint32_t, kDesignerCount>{});

} // namespace

std::span<const Resource> portraits()
{
    return kPortraits;
}

} // namespace velmora::art
