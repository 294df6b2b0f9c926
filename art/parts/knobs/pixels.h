#pragma once

#include "art/pack/surface.h"
#include "art/paint/colour.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora::art {

/// A colour with its cover. @range alpha 0..1
struct Tint {
    Colour colour;
    double alpha;
};

/// The target's own pixels around the origin of a context that is translated and magnified, not turned. They
/// are laid over the target by `paint`.
class PixelSheet {
public:
    PixelSheet(cairo_t* cr, double reach);

    int size() const { return size_; }
    /// Side of a pixel in the context's units.
    double side() const { return side_; }
    /// Centre of a column or row, from the origin in the context's units.
    double across(int column) const { return (left_ + column + 0.5 - originX_) * side_; }
    double down(int row) const { return (top_ + row + 0.5 - originY_) * side_; }
    /// The channels are multiplied with alpha already.
    void put(int column, int row, Colour scaled, double alpha);
    void paint();

private:
    cairo_t* cr_;
    double side_;
    double originX_ = 0.0; // the rest in pixels of the target
    double originY_ = 0.0;
    double left_;
    double top_;
    int size_;
    SurfacePtr surface_;
    std::uint8_t* bytes_;
    int stride_;
};

/// How the places of a pixel are sampled.
struct Sampling {
    int grid = 4;        ///< samples a side
    double spread = 1.0; ///< side of the sampled square in the target's pixels; above 1 softens
};

/// Paints `tintAt(x, y)` on every pixel between two circles around the origin.
template <typename TintAt>
void paintPixels(cairo_t* cr, double inner, double outer, Sampling sampling, TintAt tintAt)
{
    constexpr double kHalfDiagonal = 0.75; // of a pixel, rounded up
    PixelSheet sheet(cr, outer);
    const double spread = sampling.spread * sheet.side();
    const double margin = kHalfDiagonal * std::max(sheet.side(), spread);
    const double share = 1.0 / (sampling.grid * sampling.grid);
    const double step = spread / sampling.grid;
    const double first = -0.5 * spread + 0.5 * step;

    for (int row = 0; row < sheet.size(); ++row) {
        for (int column = 0; column < sheet.size(); ++column) {
            const double x = sheet.across(column);
            const double y = sheet.down(row);
            const double radius = std::sqrt(x * x + y * y);
            if (radius < inner - margin || radius > outer + margin) continue;
            Colour sum;
            double alpha = 0.0;
            for (int j = 0; j < sampling.grid; ++j) {
                for (int i = 0; i < sampling.grid; ++i) {
                    const Tint tint = tintAt(x + first + i * step, y + first + j * step);
                    const double weight = tint.alpha * share;
                    sum.red += tint.colour.red * weight;
                    sum.green += tint.colour.green * weight;
                    sum.blue += tint.colour.blue * weight;
                    alpha += weight;
                }
            }
            if (alpha > 0.0) sheet.put(column, row, sum, alpha);
        }
    }
    sheet.paint();
}

} // namespace velmora::art
