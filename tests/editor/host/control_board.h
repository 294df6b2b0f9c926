#pragma once

#include "editor/engine/custom_control.h"
#include "editor/engine/kick_button.h"
#include "editor/engine/master_graphical_engine.h"
#include "editor/engine/on_off_button.h"
#include "editor/engine/option_menu.h"
#include "editor/engine/text_edit.h"
#include "editor/engine/toolkit/wrapper/editor_factory.h"
#include "host/master/base_editor.h"

#include <optional>

namespace velmora::test {

/// A bar that is dragged up and down, a hundredth a pixel. The wheel moves it by a tenth; a double click puts
/// it at its default.
class DragBar : public QORCustomControl {
public:
    DragBar(const Rect& place, std::uint32_t controlTag) : QORCustomControl(place, controlTag, nullptr) {}

    void draw(QORDrawContext* context) override;
    int onMouseDown(Point point, std::uint32_t buttons) override;
    int onMouseMoved(Point point, std::uint32_t buttons) override;
    int onMouseUp(Point point, std::uint32_t buttons) override;
    void onMouseWheel(Point point, float distance, std::uint32_t buttons) override;

private:
    std::optional<double> grabbedAt; ///< value plus height of the pointer
};

/// An editor with one control of each kind, which passes every change on.
class ControlBoard : public QORBaseEditor {
public:
    static constexpr double kWidth = 400.0, kHeight = 300.0;
    /// Parameters, so that they reach the host.
    enum Tag : std::uint32_t {
        kBar = 5,
        kSwitch = 6,
        kKick = 7,
        kLabel = 8,
        kText = 9,
        kMenu = 10,
        kPlain = 11
    };
    static constexpr Rect kBarPlace = rectAt(10, 10, 20, 100), kSwitchPlace = rectAt(40, 10, 30, 30),
                          kKickPlace = rectAt(80, 10, 30, 30), kLabelPlace = rectAt(120, 10, 100, 20),
                          kTextPlace = rectAt(120, 40, 200, 20), kMenuPlace = rectAt(120, 70, 100, 20),
                          kPlainPlace = rectAt(10, 250, 30, 30);
    static constexpr int kMenuEntries = 5;

    explicit ControlBoard(QORMasterGraphicalEngine& graphicalEngine) : engine(graphicalEngine) {}

    static Qorvane::EditorFactory factory();
    /// The one made last.
    static ControlBoard* latest() { return last; }

    void open() override;
    void close() override { bar = nullptr; }
    void setParameter(std::int32_t, double) override {}
    void controlChanged(std::int32_t tag, double value) override { engine.editParameter(tag, value); }
    void idle() override;

    QORMasterGraphicalEngine& engine;
    DragBar* bar = nullptr; ///< as the others null or gone while no window is open
    QOROnOffButton* onOff = nullptr;
    QORKickButton* kick = nullptr;
    QORTextEdit* text = nullptr;
    QOROptionMenu* menu = nullptr;
    int stillTicks = 0; ///< since the pointer was elsewhere

private:
    static inline ControlBoard* last = nullptr;
    Point lastPointer;
};

} // namespace velmora::test
