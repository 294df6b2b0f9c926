#pragma once

#include "art/parts/knobs/film.h"

#include <cairo.h>

namespace velmora::art {

inline constexpr Film kJuniperSliderFilm{49, 122, 117, 11};

/// The cap of Juniper's frequency slider in its travel; the slot is the panel's.
void drawJuniperSlider(cairo_t* cr);

} // namespace velmora::art
