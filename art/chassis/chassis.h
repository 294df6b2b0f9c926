#pragma once

#include <cairo.h>

/// What draws each picture of the chassis; sizes stand in the lists.
namespace velmora::art {

void drawMainBackground(cairo_t* cr);
void drawRightPanel(cairo_t* cr);

void drawPowerButton(cairo_t* cr);
void drawAddButton(cairo_t* cr);
void drawViewButton(cairo_t* cr);
void drawNamePlate(cairo_t* cr);

void drawEmptyModule(cairo_t* cr);
void drawRemoveMark(cairo_t* cr);
void drawDragShadow(cairo_t* cr);

void drawPreampStrip(cairo_t* cr);
void drawFilterStrip(cairo_t* cr);
void drawExpanderStrip(cairo_t* cr);
void drawCompressorStrip(cairo_t* cr);
void drawEqStrip(cairo_t* cr);
void drawLimiterStrip(cairo_t* cr);
void drawOutputStrip(cairo_t* cr);
void drawInsertStrip(cairo_t* cr);
void drawSpareStrip(cairo_t* cr);
void drawMiniArrow(cairo_t* cr);

void drawFoot(cairo_t* cr);
void drawMuteButton(cairo_t* cr);
void drawSoloButton(cairo_t* cr);
void drawLevelLamp(cairo_t* cr);
void drawSideChainButton(cairo_t* cr);
void drawMonitorButton(cairo_t* cr);

void drawFootWarning(cairo_t* cr);
void drawMiniWarning(cairo_t* cr);

} // namespace velmora::art
