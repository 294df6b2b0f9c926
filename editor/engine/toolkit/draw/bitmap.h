#pragma once

#include "editor/engine/resource.h"
#include "editor/engine/resource_table.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace velmora::Qorvane {

class Picture;

/// The bitmap of a picture of the program, which is decoded at its first use and once per process; or one
/// with pixels of its own. Decoding may happen on any thread.
class CQORBitmap final : public QORBitmap {
public:
    /// Of a picture in the table.
    explicit CQORBitmap(std::uint32_t pictureId, const ResourceTable& pictures = resourceTable());
    explicit CQORBitmap(std::unique_ptr<Picture> picture);

    void remember() override;
    void forget() override;
    /// Known without decoding; 0 once the file has turned out to be broken.
    int getWidth() override;
    int getHeight() override;
    /// Writing makes the pixels this bitmap's own; other bitmaps of the id keep theirs.
    QORBitmapPixelAcces* getPixelAccess() override;

    /// Decodes. @return null without an image; else it lives as long as the bitmap, unless it is written to
    Picture* pixels();
    /// To write to.
    Picture* ownPixels();
    /// Decodes. False without an image.
    bool isOpaque();

private:
    ~CQORBitmap() override;

    std::atomic<int> references{1};
    std::uint32_t id = 0;
    const ResourceTable* table = nullptr;
    std::unique_ptr<Picture> own;
    std::atomic<Picture*> current = nullptr;
    std::atomic<bool> broken = false;
};

} // namespace velmora::Qorvane
