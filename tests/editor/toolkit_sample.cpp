#include "editor/engine/bitmaps.h"
#include "editor/engine/fonts.h"
#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/draw/offscreen_context.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"

#include <array>
#include <string>

namespace __gnu_cxx {
void __freeres(); // of the C++ runtime, which declares it nowhere
}

// As the plug-in does: gives back what the runtime inside this object keeps aside for exceptions.
__attribute__((destructor)) static void releaseRuntime()
{
    __gnu_cxx::__freeres();
}

/// Draws some of everything. @return inked pixels, 0 if the toolkit can't be had
extern "C" [[gnu::visibility("default")]] int drawSample()
{
    using namespace velmora;
    using namespace velmora::Qorvane;
    if (!openToolkit()) return 0;

    constexpr int kSide = 200;
    static std::array<std::uint8_t, std::size_t{4} * kSide * kSide> bytes{};
    CQORDrawContext context({bytes.data(), kSide, kSide, kSide * 4}, 1.0);
    double y = 20;
    for (const auto* font : {&fonts::arial12, &fonts::helvetica18, &fonts::comic32}) {
        context.setFont(font->get());
        for (int i = 0; i < 100; ++i)
            context.drawString("Velmora \u0416 \u4E2D " + std::to_string(i), {10, y});
        y += 40;
    }
    for (const std::uint32_t id : {30001u, 31101u, 90001u})
        context.drawBitmap(bitmapOf(id), rectAt(0, 0, 20, 20), {0, 0}, 1.0);
    const auto offscreen = ResourceRef<CQOROffscreenContext>::adopt(new CQOROffscreenContext(50, 50));
    offscreen->drawEllipse(rectAt(5, 5, 40, 40), DrawStyle::FilledAndStroked);
    offscreen->copyTo(&context, rectAt(100, 100, 50, 50));
    context.endDraw();

    int inked = 0;
    for (std::size_t i = 3; i < bytes.size(); i += 4) inked += bytes[i] != 0;
    return inked;
}
