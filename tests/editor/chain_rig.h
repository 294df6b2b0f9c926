#pragma once

#include "editor/engine/master_graphical_engine.h"
#include "editor/engine/option_menu.h"
#include "editor/engine/text_edit.h"
#include "editor/engine/toolkit/wrapper/view_wrapper.h"
#include "editor/engine/view_container.h"
#include "host/master/master_controller.h"
#include "presets/preset_store.h"
#include "tests/editor/frame_rig.h"

namespace velmora::test {

/// Notes what goes to the host, and does what a host might do just then.
class RecordingMaster : public QORMasterController {
public:
    void setParameter(std::int32_t id, double) override { note("set", id); }
    void editParameter(std::int32_t id, double) override { note("edit", id); }
    void beginGesture(std::int32_t id) override { note("begin", id); }
    void endGesture(std::int32_t id) override { note("end", id); }
    void writeStoredSetting(std::int32_t, double) override {}
    void readStoredSetting(std::int32_t, double*) override {}
    QORBasePresetStore* getPresetStore() override { return nullptr; }
    QORBaseParametersController* getController() override { return nullptr; }

    void note(const char* what, std::int32_t id)
    {
        heard.push_back(std::string(what) + ' ' + std::to_string(id));
        if (onHeard) onHeard(heard.back());
    }
    Heard heard;
    std::function<void(const std::string&)> onHeard;
};

/// One knob, one edit, one menu; sends what the user does on to the engine. Its views' pointers are good only
/// between `open` and `close`, as any editor's.
class SmallEditor : public QORBaseEditor {
public:
    static constexpr double kWidth = 200.0;
    static constexpr double kHeight = 100.0;

    explicit SmallEditor(QORMasterGraphicalEngine& graphicalEngine) : engine(graphicalEngine) {}

    void open() override
    {
        calls += 'o';
        root = engine.createViewContainer(rectAt(0.0, 0.0, kWidth, kHeight));
        if (root == nullptr) return;
        root->setBackgroundColor({40, 40, 44, 255});
        knob = new DragControl(rectAt(0.0, 0.0, 40.0, 20.0));
        knob->setHint("turns");
        edit = new QORTextEdit(rectAt(50.0, 0.0, 60.0, 20.0), 903, "text");
        menu = new QOROptionMenu(rectAt(120.0, 0.0, 60.0, 20.0), 901);
        for (QORBaseControl* control :
             {static_cast<QORBaseControl*>(knob), static_cast<QORBaseControl*>(edit),
              static_cast<QORBaseControl*>(menu)})
            root->addControl(control);
        menu->addEntry("one", QOROptionMenu::kAppend, QOROptionMenu::kPlain);
        menu->addEntry("two", QOROptionMenu::kAppend, QOROptionMenu::kPlain);
        engine.addView(root);
        if (onOpen) onOpen();
    }
    void close() override
    {
        calls += 'c';
        root = nullptr;
        knob = nullptr;
        edit = nullptr;
        menu = nullptr;
    }
    void setParameter(std::int32_t id, double value) override
    {
        told.emplace_back(id, value);
        if (onTold) onTold(id);
    }
    void controlChanged(std::int32_t tag, double value) override
    {
        changed.push_back(tag);
        EXPECT_NE(root, nullptr) << "no change comes behind the close";
        engine.editParameter(tag, value);
        knobAlive = knob != nullptr && knob->getValue() >= 0.0; // whatever the host did meanwhile
    }
    void idle() override
    {
        ++ticks;
        if (onIdle) onIdle();
    }

    QORMasterGraphicalEngine& engine;
    QORViewContainer* root = nullptr;
    DragControl* knob = nullptr; // at 0, 52 to 40, 72 of the window
    QORTextEdit* edit = nullptr;
    QOROptionMenu* menu = nullptr;
    std::string calls; ///< opened, closed
    std::vector<std::pair<std::int32_t, double>> told;
    std::vector<std::int32_t> changed;
    bool knobAlive = true;
    int ticks = 0;
    std::function<void()> onOpen;
    std::function<void()> onIdle;
    std::function<void(std::int32_t)> onTold;
};

/// The whole engine with a window in memory and a clock in hand.
class ChainRig : public ::testing::Test, private Qorvane::WindowHost {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Qorvane::openToolkit()) << "the toolkit's libraries are missing";
        view = std::make_unique<Qorvane::QORViewWrapper>(
            master, Qorvane::EditorFactory{&makeEditor, SmallEditor::kWidth, SmallEditor::kHeight});
        view->setTickSource([] { return now(); });
        view->setWindowHost(this);
        editor = made();
    }
    void TearDown() override { PresetStore::setHintsShown(true); }

    bool open()
    {
        screen = std::make_shared<FakeScreen>();
        int width = 0;
        int height = 0;
        view->getWindowSize(width, height);
        return view->openIn(std::make_unique<FakeWindow>(screen, width, height));
    }
    /// One idle call of the host, some milliseconds after the last.
    void idle(std::uint32_t milliseconds = 17)
    {
        now() += milliseconds;
        view->poll();
    }

    static std::uint32_t& now()
    {
        static std::uint32_t time = 0xFFFFFF00; // wraps soon
        return time;
    }
    static SmallEditor*& made()
    {
        static SmallEditor* latest = nullptr;
        return latest;
    }
    static std::unique_ptr<QORBaseEditor> makeEditor(QORMasterGraphicalEngine& engine)
    {
        auto editor = std::make_unique<SmallEditor>(engine);
        made() = editor.get();
        return editor;
    }
    void windowResized(int width, int height) override
    {
        sizes.emplace_back(width, height);
        if (onResized) onResized();
    }

    RecordingMaster master;
    std::unique_ptr<Qorvane::QORViewWrapper> view;
    std::shared_ptr<FakeScreen> screen;
    SmallEditor* editor = nullptr;
    std::vector<std::pair<int, int>> sizes;
    std::function<void()> onResized;
};

} // namespace velmora::test
