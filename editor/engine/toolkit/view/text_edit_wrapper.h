#pragma once

#include "editor/engine/text_edit.h"
#include "editor/engine/toolkit/view/edited_text.h"
#include "editor/engine/toolkit/view/key_target.h"
#include "editor/engine/toolkit/view/text_label_wrapper.h"

namespace velmora::Qorvane {

/// A value box or a name that can be typed into. A click opens the edit with everything selected; Return, Tab
/// or a press elsewhere takes the text, Escape leaves what was there.
class CQORTextEditWrapper : public CTextWidget, private KeyTarget {
public:
    explicit CQORTextEditWrapper(QORTextEdit& ownEdit);
    ~CQORTextEditWrapper() override;

    void draw(CQORDrawContext& context, const Rect& damage) override;
    int onMouseDown(Point point, std::uint32_t buttons) override;
    int onMouseMoved(Point point, std::uint32_t buttons) override;
    int onMouseUp(Point point, std::uint32_t buttons) override;
    void onMouseCancelled() override { selecting = Selecting::No; } // the edit stays
    void onMouseWheel(Point point, float distance, std::uint32_t buttons) override;
    void setText(std::string_view newText) override;
    void takeFocus() override;

private:
    bool onKeyPress(const KeyPress& press) override;
    bool onShortcut(char32_t letter);
    void onPasted(const std::string& pasted) override;
    void onKeysLost() override;
    bool holdsPoint(Point framePoint) const override;
    const CView* keyView() const override { return this; }

    void leaveEdit(bool accept);
    void edited();
    void copySelection() const;
    /// Where the text begins: as aligned, or scrolled so that the caret shows.
    double textLeft() const;
    std::size_t byteAtPoint(Point point) const;
    /// Empty if nothing is selected.
    Rect selectionPlace(double left) const;

    QORTextEdit& edit;
    EditedText typed;
    std::string opened; // the text at the start
    double scroll = 0.0;
    Point pressPoint;
    /// By mouse: a press that opened the edit or stands for a word selects only once it has moved.
    enum class Selecting { No, Waits, Extends } selecting = Selecting::No;
    bool editing = false;
    bool accepting = false;
    bool pasteAsked = false;
};

} // namespace velmora::Qorvane
