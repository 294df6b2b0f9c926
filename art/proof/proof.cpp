#include "art/proof/proof.h"

#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/proof/control_drawing.h"
#include "art/proof/panel_proof.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace velmora::art {
namespace {

constexpr int kFootHeight = 68;
constexpr int kPitch = kPanelWidth + 1;
constexpr int kPerRow = 9;

void drawFoot(cairo_t* cr, PictureStore& store, std::uint32_t sideChain, int x, int y)
{
    store.paint(cr, 30120, x, y);
    store.paintFrame(cr, 30124, x + 6, y + 4, 1);
    store.paintFrame(cr, 30124, x + 126, y + 4, 1);
    store.paintFrame(cr, 30122, x + 54, y + 2, 0);
    store.paintFrame(cr, 30123, x + 76, y + 2, 0);
    if (sideChain == 0) return;
    store.paintFrame(cr, sideChain, x + 35, y + 25, 0);
    store.paintFrame(cr, 30126, x + 76, y + 25, 0);
}

void drawPanel(cairo_t* cr, PictureStore& store, const PanelProof& panel, int x, int y)
{
    cairo_save(cr);
    cairo_translate(cr, x, y);
    store.paint(cr, panel.background, 0, 0);
    for (const Control& control : panel.controls) drawControl(cr, store, control);
    drawText(cr, panel.name, 76, 15.3, {.size = 12, .colour = faceOf(panel.unit).tint});
    drawFoot(cr, store, panel.sideChain, 0, kPanelHeight);
    cairo_restore(cr);
}

SurfacePtr drawRow(std::span<const PanelProof> panels, int scale)
{
    const int count = static_cast<int>(panels.size());
    const int rows = (count + kPerRow - 1) / kPerRow;
    SurfacePtr surface = makeSurface((std::min(count, kPerRow) * kPitch + 1) * scale,
                                     rows * (kPanelHeight + kFootHeight + 2) * scale);
    const ContextPtr cr = makeContext(surface.get());
    cairo_scale(cr.get(), scale, scale);
    useColour(cr.get(), hex(0x08090a));
    cairo_paint(cr.get());
    PictureStore store(scale);
    for (int index = 0; index < count; ++index)
        drawPanel(cr.get(), store, panels[static_cast<std::size_t>(index)], 1 + index % kPerRow * kPitch,
                  1 + index / kPerRow * (kPanelHeight + kFootHeight + 2));
    checkContext(cr.get());
    return surface;
}

/// One panel of each role, the way a new rack might look.
SurfacePtr drawRack(int scale)
{
    constexpr std::string_view kRack[] = {"Pre 70s",  "Pro Filters",    "Gate",     "Opto Levelor", "Sorrel",
                                          "Opto Lim", "Master Control", "De-esser", "Marlow"};
    SurfacePtr surface = makeSurface(1515 * scale, 660 * scale);
    const ContextPtr cr = makeContext(surface.get());
    cairo_scale(cr.get(), scale, scale);
    PictureStore store(scale);
    store.paint(cr.get(), 30000, 0, 0);
    int x = 44;
    for (const std::string_view name : kRack) {
        drawPanel(cr.get(), store, *std::ranges::find(panelProofs(), name, &PanelProof::name), x, 10);
        x += kPitch;
    }
    store.paint(cr.get(), 30001, 1420, 10);
    store.paintFrame(cr.get(), 30004, 1422, 42, 0);
    store.paintFrame(cr.get(), 30003, 1423, 95, 0);
    store.paintFrame(cr.get(), 30002, 1427, 558, 1);
    store.paintFrame(cr.get(), 30005, 631, 631, 0);
    checkContext(cr.get());
    return surface;
}

} // namespace

SurfacePtr drawProof(std::string_view name, int scale)
{
    if (name == "rack") return drawRack(scale);
    if (name.empty()) return drawRow(panelProofs(), scale);
    const auto panels = panelProofs();
    const auto panel = std::ranges::find(panels, name, &PanelProof::name);
    if (panel == panels.end()) {
        std::string known;
        for (const PanelProof& each : panels) known += ", \"" + std::string(each.name) + '"';
        throw std::runtime_error("no panel \"" + std::string(name) + "\"; there are \"rack\"" + known);
    }
    return drawRow({panel, 1}, scale);
}

} // namespace velmora::art
