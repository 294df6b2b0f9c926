#include "editor/engine/toolkit/draw/bitmap.h"

#include "editor/engine/toolkit/draw/picture.h"
#include "editor/engine/toolkit/draw/pixel_access.h"

namespace velmora::Qorvane {
namespace {

std::span<const std::uint8_t> fileOf(std::uint32_t id, const ResourceTable& table)
{
    std::uint32_t length = 0;
    const std::uint8_t* const bytes = table.find(id, length);
    return {bytes, length};
}

} // namespace

CQORBitmap::CQORBitmap(std::uint32_t pictureId, const ResourceTable& pictures)
    : id(pictureId), table(&pictures)
{
}

CQORBitmap::CQORBitmap(std::unique_ptr<Picture> picture) : own(std::move(picture)), current(own.get()) {}

CQORBitmap::~CQORBitmap() = default;

void CQORBitmap::remember()
{
    references.fetch_add(1, std::memory_order_relaxed);
}

void CQORBitmap::forget()
{
    if (references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

int CQORBitmap::getWidth()
{
    if (const Picture* const decoded = current.load(std::memory_order_acquire)) return decoded->width();
    if (table == nullptr || broken) return 0;
    const auto size = Picture::sizeOf(fileOf(id, *table));
    return size ? size->width : 0;
}

int CQORBitmap::getHeight()
{
    if (const Picture* const decoded = current.load(std::memory_order_acquire)) return decoded->height();
    if (table == nullptr || broken) return 0;
    const auto size = Picture::sizeOf(fileOf(id, *table));
    return size ? size->height : 0;
}

QORBitmapPixelAcces* CQORBitmap::getPixelAccess()
{
    return pixels() != nullptr ? new CQORBitmapPixelAcces(*this) : nullptr;
}

Picture* CQORBitmap::pixels()
{
    if (Picture* const decoded = current.load(std::memory_order_acquire)) return decoded;
    if (table == nullptr || broken) return nullptr;
    Picture* const decoded = sharedPicture(fileOf(id, *table));
    broken = decoded == nullptr;
    current.store(decoded, std::memory_order_release);
    return decoded;
}

Picture* CQORBitmap::ownPixels()
{
    if (own) return own.get();
    if (const Picture* const shared = pixels()) own = shared->copy();
    if (own) current.store(own.get(), std::memory_order_release);
    return own.get();
}

bool CQORBitmap::isOpaque()
{
    const Picture* const decoded = pixels();
    return decoded != nullptr && decoded->isOpaque();
}

} // namespace velmora::Qorvane
