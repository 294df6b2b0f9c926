// What painting costs: moving meters, the whole window again and again, every bitmap decoded.

#include "bench/editor/figures.h"
#include "editor/engine/bitmaps.h"
#include "editor/engine/custom_control.h"
#include "editor/engine/draw_context.h"
#include "editor/engine/master_graphical_engine.h"
#include "editor/engine/toolkit/draw/bitmap.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "editor/engine/toolkit/window/native_window.h"
#include "editor/engine/toolkit/wrapper/view_wrapper.h"
#include "editor/engine/view_container.h"
#include "tests/editor/host/recording_master.h"
#include "tests/editor/x_client.h"
#include "tests/editor/x_server.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>

namespace velmora::bench {
namespace {

constexpr double kSeconds = 10.0;
constexpr double kIdlesPerSecond = 30.0;
constexpr int kMeters = 40;
constexpr double kWidth = 1515.0, kHeight = 660.0;

/// A meter whose pictures lie below one another.
struct MeterLook {
    std::uint32_t picture;
    int width, height; ///< of each
    int pictures;
};
constexpr MeterLook kLamp{30124, 20, 20, 4};
constexpr MeterLook kDial{34004, 138, 76, 3};
constexpr MeterLook kColumn{37003, 8, 316, 1};

/// The picture for a value; a column has its lit lamps over the dark ones.
class Meter : public QORCustomControl {
public:
    Meter(const MeterLook& ownLook, double left, double top, std::uint32_t id)
        : QORCustomControl(rectAt(left, top, ownLook.width, ownLook.height), id, bitmapOf(ownLook.picture)),
          look(ownLook)
    {
    }
    void draw(QORDrawContext* context) override
    {
        const int shown = std::min(static_cast<int>(value * look.pictures), look.pictures - 1);
        context->drawBitmap(bitmap.get(), rect, {0.0, static_cast<double>(shown * look.height)}, 1.0);
        if (look.pictures > 1) return;
        constexpr double kLitWidth = 6.0, kLitHeight = 315.0;
        const double dark = std::floor(kLitHeight * (1.0 - value));
        context->drawBitmap(
            bitmapOf(kLit),
            {rect.left + 1, rect.top + dark, rect.left + 1 + kLitWidth, rect.top + kLitHeight}, {0.0, dark},
            1.0);
    }

private:
    static constexpr std::uint32_t kLit = 37004;
    MeterLook look;
};

/// The chassis with the meters of a full rack, all of which move at every tick.
class MeterEditor : public QORBaseEditor {
public:
    explicit MeterEditor(QORMasterGraphicalEngine& graphicalEngine) : engine(graphicalEngine) {}

    void open() override
    {
        root = engine.createViewContainer(rectAt(0, 0, kWidth, kHeight));
        root->setBackground(bitmapOf(30000));
        engine.addView(root);
    }
    void close() override { meters.clear(); }
    void setParameter(std::int32_t, double) override {}
    void controlChanged(std::int32_t, double) override {}
    void idle() override
    {
        ++tick;
        for (std::size_t i = 0; i < meters.size(); ++i) {
            meters[i]->setValue(0.5 + 0.5 * std::sin(0.07 * tick + static_cast<double>(i)));
            meters[i]->setDirty(true);
        }
    }

    /// Two columns, nine dials, lamps for the rest.
    void addRack()
    {
        for (int i = 0; i < kDials; ++i) add(kDial, 10.0 + 156.0 * i, 300.0);
        for (int i = 0; i < kColumns; ++i) add(kColumn, 1430.0 + 20.0 * i, 100.0);
        for (int i = 0; std::ssize(meters) < kMeters; ++i) add(kLamp, 20.0 + 49.0 * i, 40.0 + 30.0 * (i % 3));
    }
    void addColumns()
    {
        for (int i = 0; i < kMeters; ++i) add(kColumn, 20.0 + 36.0 * i, 100.0 + 7.0 * (i % 5));
    }
    void clear()
    {
        for (Meter* meter : meters) root->removeControl(meter);
        meters.clear();
    }

    static inline MeterEditor* latest = nullptr;

private:
    static constexpr int kDials = 9, kColumns = 2;

    void add(const MeterLook& look, double left, double top)
    {
        meters.push_back(new Meter(look, left, top, 1000U + static_cast<std::uint32_t>(meters.size())));
        root->addControl(meters.back());
    }

    QORMasterGraphicalEngine& engine;
    QORViewContainer* root = nullptr;
    std::vector<Meter*> meters;
    int tick = 0;
};

std::unique_ptr<QORBaseEditor> makeMeters(QORMasterGraphicalEngine& engine)
{
    auto editor = std::make_unique<MeterEditor>(engine);
    MeterEditor::latest = editor.get();
    return editor;
}

void measurePainting(Qorvane::QORViewWrapper& view)
{
    MeterEditor& editor = *MeterEditor::latest;
    const auto idle = [&] { view.poll(); };
    const auto measure = [&](const char* what, const auto& call) {
        shareOfCore(kIdlesPerSecond, 1.0, call);
        row(what, "%.2f", shareOfCore(kIdlesPerSecond, kSeconds, call));
    };
    measure("a loop that does nothing, % of a core", [] {});
    measure("a quiet window, % of a core", idle);
    measure("everything again at 30 Hz, % of a core", [&] {
        view.poll();
        view.redraw();
    });
    editor.addRack();
    measure("40 meters of a full rack moving, % of a core", idle);
    editor.clear();
    editor.addColumns();
    measure("40 tall meters moving, % of a core", idle);
}

void measureBitmaps()
{
    const double before = privateMegabytes();
    const auto start = Clock::now();
    for (const std::uint32_t id : kPictureIds)
        if (auto* const bitmap = dynamic_cast<Qorvane::CQORBitmap*>(bitmapOf(id))) bitmap->pixels();
    row("every bitmap decoded, ms", "%.0f", millisecondsSince(start));
    row("every bitmap decoded, MB of memory", "%.0f", privateMegabytes() - before);
}

int measure()
{
    const test::XServer server;
    if (!server.isRunning() || !Qorvane::openToolkit()) {
        std::fputs("bench_editor_paint: there is no Xvfb, or no toolkit\n", stderr);
        return 1;
    }
    test::XClient screen;
    const xcb_window_t window = screen.openWindow(0, 0, 1515, 712);
    test::RecordingMaster master;
    Qorvane::QORViewWrapper view(master, {makeMeters, kWidth, kHeight});
    if (!view.openIn(Qorvane::openX11Window(window, 1515, 712))) return 1;
    std::puts("| painting | |\n|---|--:|");
    measurePainting(view);
    measureBitmaps();
    return 0;
}

} // namespace
} // namespace velmora::bench

int main()
{
    return velmora::bench::measure();
}
