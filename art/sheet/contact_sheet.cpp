#include "art/sheet/contact_sheet.h"

#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/proof/picture_store.h"

#include <algorithm>
#include <string>
#include <vector>

namespace velmora::art {
namespace {

// All in pixels of a picture.
constexpr int kSheetWidth = 1600;
constexpr int kGap = 10;
constexpr int kCaption = 14;
constexpr int kStripFrames = 7; // shown of a strip with more frames than kWholeStrip
constexpr int kWholeStrip = 14;

/// What is shown of a picture, and where on the sheet.
struct Cell {
    const Resource* resource;
    PictureUse use;
    std::vector<int> frames; ///< empty: the whole picture
    int x = 0, y = 0, width = 0, height = 0;

    int frameWidth() const { return resource->width / use.columns; }
    int frameHeight() const { return resource->height / use.rows(); }
};

Cell cellOf(const Resource& resource)
{
    Cell cell{&resource, useOf(resource.id), {}};
    cell.width = resource.width;
    cell.height = resource.height;
    if (cell.use.frames > kWholeStrip) {
        for (int shown = 0; shown < kStripFrames; ++shown)
            cell.frames.push_back(shown * (cell.use.frames - 1) / (kStripFrames - 1));
        cell.width = cell.frameWidth() * kStripFrames;
        cell.height = cell.frameHeight();
    }
    return cell;
}

/// Places cells in lines. @return height of the sheet
int placeCells(std::vector<Cell>& cells)
{
    int x = kGap;
    int y = kGap;
    int lineHeight = 0;
    for (Cell& cell : cells) {
        const int width = std::max(cell.width, 34);
        if (x > kGap && x + width + kGap > kSheetWidth) {
            x = kGap;
            y += lineHeight + kCaption + kGap;
            lineHeight = 0;
        }
        cell.x = x;
        cell.y = y + kCaption;
        x += width + kGap;
        lineHeight = std::max(lineHeight, cell.height);
    }
    return y + lineHeight + kCaption + kGap;
}

void drawCell(cairo_t* cr, PictureStore& store, const Cell& cell)
{
    const std::uint32_t id = cell.resource->id;
    useColour(cr, faceOf(cell.use.ground).base);
    fillRect(cr, cell.x, cell.y, cell.width, cell.height);
    if (cell.frames.empty()) store.paint(cr, id, cell.x, cell.y);
    int x = cell.x;
    for (const int frame : cell.frames) {
        store.paintFrame(cr, id, x, cell.y, frame);
        x += cell.frameWidth();
    }
    drawText(cr, std::to_string(id), cell.x, cell.y - 6,
             {.size = 9, .colour = hex(0x606468), .align = Align::Left});
}

} // namespace

SurfacePtr drawContactSheet(std::span<const Resource> resources, int scale)
{
    std::vector<Cell> cells;
    for (const Resource& resource : resources) cells.push_back(cellOf(resource));
    const int height = placeCells(cells);

    SurfacePtr sheet = makeSurface(kSheetWidth * scale, height * scale);
    const ContextPtr cr = makeContext(sheet.get());
    cairo_scale(cr.get(), scale, scale);
    useColour(cr.get(), hex(0xc8cbce));
    cairo_paint(cr.get());
    PictureStore store(scale);
    for (const Cell& cell : cells) drawCell(cr.get(), store, cell);
    checkContext(cr.get());
    return sheet;
}

} // namespace velmora::art
