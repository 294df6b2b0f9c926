#pragma once

#include "editor/engine/resource.h"

#include <array>
#include <cstdint>

namespace velmora {

/// Makes the bitmap of an id and holds it as long as it lives itself.
class QORBitmapAutoReleaseHandler {
public:
    explicit QORBitmapAutoReleaseHandler(std::uint32_t id);
    ~QORBitmapAutoReleaseHandler();
    QORBitmapAutoReleaseHandler(const QORBitmapAutoReleaseHandler&) = delete;
    QORBitmapAutoReleaseHandler& operator=(const QORBitmapAutoReleaseHandler&) = delete;

    QORBitmap* get() const { return bitmap; }

private:
    QORBitmap* bitmap;
};

inline constexpr std::size_t kPictureCount = 157;

/// Ascending ids of all pictures.
extern const std::array<std::uint32_t, kPictureCount> kPictureIds;

/// The program's bitmap of an id: made at library load, decoded at its first use. The caller takes a
/// reference of his own if he keeps it. @return null for an id that isn't a picture's
QORBitmap* bitmapOf(std::uint32_t id);

} // namespace velmora
