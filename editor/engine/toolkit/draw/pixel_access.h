#pragma once

#include "editor/engine/resource.h"
#include "editor/engine/toolkit/draw/bitmap.h"

#include <atomic>

namespace velmora::Qorvane {

class CQORBitmapPixelAcces final : public QORBitmapPixelAcces {
public:
    /// @param bitmap has pixels
    explicit CQORBitmapPixelAcces(CQORBitmap& bitmap);

    void remember() override;
    void forget() override;
    bool setPosition(int newX, int newY) override;
    bool advance() override;
    bool retreat() override;
    int getX() const override { return x; }
    int getY() const override { return y; }
    void getColor(Rgba& colour) const override;
    void setColor(Rgba colour) override;

private:
    ~CQORBitmapPixelAcces() override = default;

    std::atomic<int> references{1};
    ResourceRef<CQORBitmap> bitmap;
    int x = 0;
    int y = 0;
};

} // namespace velmora::Qorvane
