#include "art/parts/knobs/film.h"

#include <algorithm>
#include <cmath>

namespace velmora::art {
namespace {

int zoomOf(cairo_t* target)
{
    double across = 1.0;
    double down = 0.0;
    cairo_user_to_device_distance(target, &across, &down);
    return std::max(1, static_cast<int>(std::lround(across)));
}

} // namespace

FrameSurface::FrameSurface(cairo_t* target, int width, int height)
    : width_(width),
      height_(height),
      zoom_(zoomOf(target)),
      surface_(makeSurface(width * zoom_, height * zoom_)),
      context_(makeContext(surface_.get()))
{
    cairo_scale(context_.get(), zoom_, zoom_);
}

void FrameSurface::clear()
{
    cairo_set_operator(context_.get(), CAIRO_OPERATOR_CLEAR);
    cairo_paint(context_.get());
    cairo_set_operator(context_.get(), CAIRO_OPERATOR_OVER);
}

void FrameSurface::paint(cairo_t* cr, int x, int y) const
{
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_rectangle(cr, 0, 0, width_, height_);
    cairo_scale(cr, 1.0 / zoom_, 1.0 / zoom_);
    cairo_set_source_surface(cr, surface_.get(), 0, 0);
    cairo_fill(cr);
    cairo_restore(cr);
}

void drawFilm(cairo_t* cr, const Film& film, const std::function<void(cairo_t*, double position)>& drawFrame)
{
    FrameSurface frame(cr, film.width, film.height);
    const double last = film.frames > 1 ? film.frames - 1 : 1;
    for (int index = 0; index < film.frames; ++index) {
        frame.clear();
        drawFrame(frame.context(), index / last);
        frame.paint(cr, index / film.rows() * film.width, index % film.rows() * film.height);
    }
}

} // namespace velmora::art
