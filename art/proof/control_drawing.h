#pragma once

#include "art/proof/panel_proof.h"
#include "art/proof/picture_store.h"

namespace velmora::art {

/// Draws a control onto its panel; nothing while its picture isn't there.
void drawControl(cairo_t* cr, PictureStore& store, const Control& control);

} // namespace velmora::art
