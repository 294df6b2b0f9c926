#include "editor/engine/toolkit/window/native_window.h"

#include <algorithm>
#include <vector>

namespace velmora::Qorvane {
namespace {

constexpr int kPixelBytes = 4;

class ImageWindow final : public NativeWindow {
public:
    ImageWindow(int width, int height) { resize(width, height); }

    bool isAlive() const override { return true; }
    void resize(int width, int height) override
    {
        width_ = std::clamp(width, 1, kMostWindowSide);
        height_ = std::clamp(height, 1, kMostWindowSide);
        bytes_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * kPixelBytes, 0);
    }
    PixelBuffer pixels() override { return {bytes_.data(), width_, height_, width_ * kPixelBytes}; }
    void present(std::span<const Rect>) override {}
    void pollEvents(WindowListener&) override {}
    void takeKeyboard() override {}
    void returnKeyboard() override {}
    void offerText(const std::string&) override {}
    void requestText() override {}
    void offerSelection(const std::string&) override {}
    void requestSelection() override {}
    bool queryPointer(Point&, std::uint32_t&) override { return false; }
    std::uint32_t id() const override { return 0; }

private:
    std::vector<std::uint8_t> bytes_;
    int width_ = 0, height_ = 0;
};

} // namespace

std::unique_ptr<NativeWindow> openImageWindow(int width, int height)
{
    return std::make_unique<ImageWindow>(width, height);
}

} // namespace velmora::Qorvane
