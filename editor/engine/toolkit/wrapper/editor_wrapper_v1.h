#pragma once

#include "editor/engine/master_graphical_engine.h"
#include "editor/engine/toolkit/view/frame.h"
#include "editor/engine/toolkit/view/widget_listener.h"
#include "editor/engine/toolkit/wrapper/editor_factory.h"
#include "editor/engine/toolkit/wrapper/hover_hint.h"

#include <atomic>
#include <memory>
#include <vector>

namespace velmora::Qorvane {

/// The engine on the toolkit: owns the editor for its life and the frame while a window is open.
///
/// The host may close the window from inside any call that reaches it. The frame then falls silent at once;
/// the editor hears of it, and the views go, when the outermost call returns. Opened again from inside, the
/// editor closes and opens there and then.
///
/// Whoever can be instantiated closes the window in his destructor: here it would be too late for the layers
/// above.
class QOREditorWrapperV1 : public QORMasterGraphicalEngine, protected WidgetListener {
public:
    explicit QOREditorWrapperV1(const EditorFactory& factory);
    QOREditorWrapperV1(const QOREditorWrapperV1&) = delete;
    QOREditorWrapperV1& operator=(const QOREditorWrapperV1&) = delete;

    /// Shows the editor in a window; the caller then passes it all values. @return false if a window is open
    /// already.
    bool openIn(std::unique_ptr<NativeWindow> window);
    void closeWindow();
    bool isOpen() const { return frame != nullptr; }
    /// Whether a call of ours is on the stack.
    bool isBusy() const { return depth > 0; }
    /// What a host's idle call allows. From inside another call of ours it does nothing: what is on the stack
    /// goes first.
    virtual void poll() = 0;
    /// @return whether an open edit or menu used the key.
    bool onHostKey(const KeyPress& press);
    /// Whether an edit or menu is open.
    bool takesKeys() const { return frame != nullptr && frame->getKeyTarget() != nullptr; }
    /// Of the whole window on the screen, in pixels.
    virtual void getWindowSize(int& width, int& height) const;
    void setWindowHost(WindowHost* newHost) { host = newHost; }
    /// Screen pixels for each pixel of the design. Counts from the next opening on. @range 0.25..8
    void setScreenScale(double scale) { screenScale = scale; }
    /// What the window shows; nothing while none is open. Valid until the next call.
    PixelBuffer pixels();

    void setBackground(QORBitmap* bitmap) override;
    void setBackgroundResource(std::uint32_t id) override;
    void addView(QORViewContainer* container) override;
    void removeView(QORViewContainer* container) override;
    QORViewContainer* createViewContainer(const Rect& rect) override;
    QORBitmap* createBitmap(std::uint32_t id, std::uint32_t reserved) override;
    void getMousePosition(Point& point) override;
    void getMouseButtons(std::uint32_t& buttons) override;
    void setOption(std::uint32_t newOption) override { option = newOption; }
    void editParameter(std::int32_t id, double value) override;
    void resizeEditor(double newWidth, double newHeight) override;
    void setResizeBatch(bool on) override;
    void redraw() override;
    QORBaseParametersController* getStateBlock() override { return stateBlock; }
    void idle() override;
    void setParameter(std::int32_t id, double value) override;
    void setPresetHandler(QORBasePresetStore* store) override { presetHandler = store; }
    void setStateBlock(QORBaseParametersController* state) override { stateBlock = state; }
    double getZoomFactor() override { return 1.0; }

protected:
    /// Where the plug-in area lies in the frame.
    virtual double areaTop() const { return 0.0; }
    double zoom() const { return screenScale; }
    /// A change by the user, to whoever speaks to the host.
    virtual void sendEdit(std::int32_t id, double value) = 0;
    virtual void viewOpened() {}
    virtual void viewResized() {}
    virtual void viewClosing() {}

    void valueChanged(std::uint32_t tag, double value) override;
    void controlBeginEdit(std::uint32_t) override {}
    void controlEndEdit(std::uint32_t) override {}

    /// Takes in what happened in the window.
    void takeEvents();

    double areaWidth() const { return width; }
    QORFrame* openFrame() const { return frame.get(); }
    QORBasePresetStore* presets() const { return presetHandler; }

    /// Held while the toolkit or the host may be on the stack: what is closed meanwhile goes behind it.
    class CallScope {
    public:
        explicit CallScope(QOREditorWrapperV1& wrapper) : owner(wrapper) { ++owner.depth; }
        ~CallScope() { owner.leaveCall(); }
        CallScope(const CallScope&) = delete;
        CallScope& operator=(const CallScope&) = delete;

    private:
        QOREditorWrapperV1& owner;
    };

private:
    /// A frame and what was made for it.
    struct Views {
        std::unique_ptr<QORFrame> frame;
        std::vector<std::unique_ptr<CQORViewContainer>> containers;
    };

    void leaveCall();
    void closeEditor() noexcept;
    void releaseViews();
    void applySize();

    std::unique_ptr<QORBaseEditor> editor;
    std::unique_ptr<QORFrame> frame;
    std::vector<std::unique_ptr<CQORViewContainer>> containers;
    std::vector<Views> closedViews; // wait for the calls that are still in them
    WindowHost* host = nullptr;
    QORBaseParametersController* stateBlock = nullptr;
    QORBasePresetStore* presetHandler = nullptr;
    HoverHint hover;
    std::atomic<double> width; // a host may ask for the size from any thread
    std::atomic<double> height;
    double screenScale = 1.0;
    double batchWidth = 0.0; // the last size asked for
    double batchHeight = 0.0;
    double hintsSwitch = 1.0;
    std::uint32_t option = 0;
    int depth = 0;
    bool editorOpen = false;
    bool editing = false;
    bool resizeBatch = false;
};

} // namespace velmora::Qorvane
