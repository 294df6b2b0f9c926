#include "art/proof/picture_store.h"

#include "art/resource_list.h"

#include <algorithm>

namespace velmora::art {

cairo_surface_t* PictureStore::find(std::uint32_t id)
{
    SurfacePtr& surface = surfaces_[id];
    if (!surface) {
        static const std::vector<Resource> resources = allResources();
        const auto resource = std::ranges::find(resources, id, &Resource::id);
        if (resource != resources.end()) surface = drawResource(*resource, scale_);
    }
    return surface.get();
}

int PictureStore::frameWidth(std::uint32_t id)
{
    return cairo_image_surface_get_width(find(id)) / scale_ / useOf(id).columns;
}

int PictureStore::frameHeight(std::uint32_t id)
{
    return cairo_image_surface_get_height(find(id)) / scale_ / useOf(id).rows();
}

void PictureStore::paintFrame(cairo_t* cr, std::uint32_t id, int x, int y, int frame)
{
    cairo_surface_t* const surface = find(id);
    if (!surface) return;
    const int rows = useOf(id).rows();
    const int left = frame / rows * frameWidth(id);
    const int top = frame % rows * frameHeight(id);
    cairo_save(cr);
    cairo_rectangle(cr, x, y, frameWidth(id), frameHeight(id));
    cairo_clip(cr);
    cairo_translate(cr, x - left, y - top);
    cairo_scale(cr, 1.0 / scale_, 1.0 / scale_);
    cairo_set_source_surface(cr, surface, 0, 0);
    cairo_paint(cr);
    cairo_restore(cr);
}

void PictureStore::paint(cairo_t* cr, std::uint32_t id, int x, int y)
{
    cairo_surface_t* const surface = find(id);
    if (!surface) return;
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, 1.0 / scale_, 1.0 / scale_);
    cairo_set_source_surface(cr, surface, 0, 0);
    cairo_paint(cr);
    cairo_restore(cr);
}

} // namespace velmora::art
