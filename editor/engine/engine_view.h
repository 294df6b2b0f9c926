#pragma once

#include "editor/engine/draw_context.h"
#include "editor/engine/geometry.h"

#include <string>
#include <string_view>

namespace velmora {

/// The toolkit's side of one control.
class QOREngineView {
public:
    virtual ~QOREngineView() = default;
    /// Marks for redraw, nothing is drawn at once.
    virtual void setDirty(bool dirty) = 0;
    /// Takes the control's value over and tells the engine.
    virtual void valueChanged() = 0;
    virtual void setTooltip(std::string_view text) = 0;
    virtual void setBackgroundColor(Rgba colour) = 0;
    /// Marks dirty if the value is another; a control whose look depends on more marks itself.
    /// @range 0..1
    virtual void setValue(double value) = 0;
    virtual void setViewSize(const Rect& rect) = 0;
    virtual bool isVisible() = 0;
    /// @return a context with one reference; it draws nothing if a side is below 1.
    virtual QOROffscreenContext* createOffscreen(double width, double height) = 0;
    /// Tells the engine that a gesture of the user on this control begins or ends.
    virtual void beginEdit() = 0;
    virtual void endEdit() = 0;
};

/// The peer of labels and text edits.
class QORTextView : public QOREngineView {
public:
    virtual void setText(std::string_view text) = 0;
    virtual void setFont(QORFont* font) = 0;
    virtual void setFontColor(Rgba colour) = 0;
    /// Edits only: opens the edit with everything selected.
    virtual void takeFocus() = 0;
    virtual void setFrameColor(Rgba colour) = 0;
    virtual void setTextInset(Point inset) = 0;
    /// At least 2.
    virtual void setRoundRectRadius(double radius) = 0;
    virtual void setTextAlign(TextAlign align) = 0;
};

/// The peer of option menus.
class QORMenuView : public QOREngineView {
public:
    virtual void addEntry(std::string_view text, int index, int flag) = 0;
    virtual void setEntryEnabled(int index, bool enabled) = 0;
    virtual void setCurrent(int index) = 0;
    virtual int getCurrent() = 0;
    /// Opens the list; the choice comes later, as a change of the control's value.
    virtual void popup() = 0;
    virtual bool isPopupOpen() = 0;
};

} // namespace velmora
