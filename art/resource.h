#pragma once

#include <cairo.h>

#include <cstdint>
#include <span>

namespace velmora::art {

/// One picture of the plug-in: what draws it into a transparent surface of its size, origin at the top left.
struct Resource {
    std::uint32_t id;
    int width;
    int height;
    void (*draw)(cairo_t*);
};

/// One list for each family, in ascending ids.
std::span<const Resource> chassisResources(); // 30000..30070
std::span<const Resource> footResources();    // 30120..30201
std::span<const Resource> preampPanels();     // backgrounds 31000..31401
std::span<const Resource> filterPanels();     // backgrounds 32000..32200
std::span<const Resource> dynamicsPanels();   // backgrounds 33000..33200
std::span<const Resource> compressorPanels(); // backgrounds 34000..34205
std::span<const Resource> eqPanels();         // backgrounds 35000..35200
std::span<const Resource> limiterPanels();    // backgrounds 36000..36301
std::span<const Resource> masterPanels();     // backgrounds 37000, 37001
std::span<const Resource> specialPanels();    // backgrounds 38000..38200
std::span<const Resource> knobStrips();       // every filmstrip of a knob
std::span<const Resource> switches();         // every switch, button and handle of the panels
std::span<const Resource> meters();           // every lamp and meter of the panels
std::span<const Resource> portraits();        // 90000..90023

} // namespace velmora::art
