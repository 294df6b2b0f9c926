#pragma once

#include "editor/engine/draw_context.h"
#include "editor/engine/geometry.h"
#include "editor/engine/resource.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace velmora {

class QOREngineView;
class QORViewContainer;

/// What widget the toolkit builds for a control. Kinds 1 to 9 and 13 are drawn by the control itself.
enum ControlKind : std::uint32_t {
    kControlKindOnOff = 2,
    kControlKindHorizontalSwitch = 4,
    kControlKindKick = 8,
    kControlKindLabel = 10,
    kControlKindTextEdit = 11,
    kControlKindOptionMenu = 12,
    kControlKindCustom = 13,
};

/// A control as the editor knows it: a value, a place, a tag. The toolkit's side hangs on it as its peer once
/// it is in a container; without one every forward does nothing.
class QORBaseControl {
public:
    static constexpr std::size_t kMaxHintBytes = 511;

    /// @param tag a parameter id, or an editor-local id from 438 on that never reaches the host
    QORBaseControl(const Rect& place, std::uint32_t controlTag, QORBitmap* picture,
                   std::uint32_t controlKind);
    virtual ~QORBaseControl();
    QORBaseControl(const QORBaseControl&) = delete;
    QORBaseControl& operator=(const QORBaseControl&) = delete;

    virtual void setDefaultValue(double value);
    virtual double getDefaultValue();
    /// The size at 100 % times `factor`, the top left corner stays.
    virtual void rescale(double factor);
    virtual void draw(QORDrawContext* context);
    virtual int onMouseDown(Point point, std::uint32_t buttons);
    /// Without any button in `buttons` the press was taken away, as when the control goes out of the window.
    virtual int onMouseUp(Point point, std::uint32_t buttons);
    virtual int onMouseMoved(Point point, std::uint32_t buttons);
    virtual int onMouseEntered(Point point, std::uint32_t buttons);
    virtual int onMouseExited(Point point, std::uint32_t buttons);
    /// @param distance notches, up is positive
    virtual void onMouseWheel(Point point, float distance, std::uint32_t buttons);
    /// Sets the value and tells the engine; what is no number is ignored.
    virtual void commitValue(double newValue);

    /// Clamps to 0..1; what is no number is ignored.
    void setValue(double newValue);
    double getValue() const { return value; }
    void setDirty(bool dirty);
    /// At most 511 bytes, cut between characters.
    void setHint(std::string_view text);
    std::string_view getHint() const;

    std::uint32_t getKind() const { return kind; }
    std::uint32_t getTag() const { return tag; }
    const Rect& getRect() const { return rect; }
    /// Moves and resizes control and widget; the size at 100 % stays.
    void setRect(const Rect& place);
    QORBitmap* getBitmap() const { return bitmap.get(); }
    void setMouseEnabled(bool enabled) { mouseEnabled = enabled; }
    bool isMouseEnabled() const { return mouseEnabled; }
    void setHintTracking(bool tracking) { hintTracking = tracking; }

    /// The container that owns it, or null before it was added to one.
    void setContainer(QORViewContainer* owner) { container = owner; }
    QORViewContainer* getContainer() const { return container; }
    void setPeer(QOREngineView* view) { peer = view; }
    QOREngineView* getPeer() const { return peer; }

    /// The hint-tracking control under the mouse, or null. To compare with only: it may be in another
    /// instance's window, on another thread.
    static QORBaseControl* hovered();

protected:
    std::uint32_t state = 0;
    ResourceRef<QORBitmap> bitmap;
    Rect rect;
    double value = 0.0;
    std::uint32_t tag = 0;
    std::uint32_t kind = 0;
    double defaultValue = 0.0;
    bool mouseEnabled = true;
    bool hintTracking = false;
    QOREngineView* peer = nullptr;
    QORViewContainer* container = nullptr;
    std::unique_ptr<char[]> hint;
    Rect designRect;
};

} // namespace velmora
