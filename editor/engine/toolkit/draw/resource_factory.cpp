#include "editor/engine/resource_factory.h"

#include "editor/engine/toolkit/draw/bitmap.h"
#include "editor/engine/toolkit/draw/font.h"

namespace velmora {

QORBitmap* createBitmap(std::uint32_t id)
{
    return new Qorvane::CQORBitmap(id);
}

QORFont* createFont(std::string_view name, double size)
{
    return new Qorvane::CQORFont(name, size);
}

} // namespace velmora
