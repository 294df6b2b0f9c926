#pragma once

#include "editor/engine/resource.h"
#include "editor/engine/toolkit/view/key_target.h"
#include "editor/engine/toolkit/view/view.h"

#include <span>
#include <string>
#include <vector>

namespace velmora::Qorvane {

struct MenuEntry {
    std::string text;
    bool enabled = true;
    bool title = false; ///< can't be chosen
    bool separator = false;

    bool canBeChosen() const { return enabled && !title && !separator; }
};

/// Who opened a menu and hears of its end.
class MenuOwner {
public:
    virtual ~MenuOwner() = default;
    /// @param index the entry chosen, or -1
    virtual void menuClosed(int index) = 0;
    virtual const CView* menuAnchor() const = 0;
};

/// The open list of an option menu, above everything in the frame. Grows down from its anchor, upwards where
/// there is no room below, and scrolls when it is longer than the frame: by wheel and keys, and by itself
/// while the mouse rests on the strip at an end behind which there is more.
class MenuView : public CView, private KeyTarget {
public:
    explicit MenuView(MenuOwner& menuOwner);
    ~MenuView() override;

    /// Whatever else had the keyboard gives it up first. @param openAnchor in frame pixels
    void open(QORFrame& frame, const std::vector<MenuEntry>& menuEntries, int current,
              const Rect& openAnchor);
    void close(int index);
    bool isOpen() const { return owningFrame != nullptr; }

    void draw(CQORDrawContext& context, const Rect& damage) override;
    CView* viewAt(Point) override { return this; }
    int onMouseDown(Point point, std::uint32_t buttons) override;
    int onMouseUp(Point point, std::uint32_t buttons) override;
    int onMouseMoved(Point point, std::uint32_t buttons) override;
    void onMouseExited(Point point, std::uint32_t buttons) override;
    void onMouseWheel(Point point, float distance, std::uint32_t buttons) override;
    void onTick() override;

private:
    bool onKeyPress(const KeyPress& press) override;
    void onKeysLost() override { close(kNothing); }
    bool holdsPoint(Point) const override { return true; }
    const CView* keyView() const override { return owner.menuAnchor(); }

    static constexpr int kNothing = -1;

    Rect placeFor(const Rect& room) const;
    bool canChoose(int index) const;
    int entryAt(Point point) const;
    double heightOf(int index) const;
    double topOf(int index) const;
    double contentHeight() const;
    double furthestScroll() const;
    void scrollBy(double pixels);
    /// -1 or 1 on the strip that scrolls up or down, else 0.
    int scrollDirectionAt(Point point) const;
    void highlight(int index);
    /// To the first entry behind `from` that can be chosen and is `distance` pixels away, or else the
    /// furthest.
    void step(int from, int direction, double distance = 0.0);
    void seek(const std::string& typed);
    void showHighlighted();
    void drawStrip(CQORDrawContext& context, int direction) const;
    void drawEntry(CQORDrawContext& context, int index, const Rect& line) const;

    MenuOwner& owner;
    QORFrame* owningFrame = nullptr;
    std::span<const MenuEntry> entries; // the owner's, which closes the list before it changes them
    ResourceRef<QORFont> font;
    int checked = kNothing;
    int highlighted = kNothing;
    double scroll = 0.0;
    Rect anchor;
    Point pressPoint;          // where the pointer was when it opened
    bool openingPress = false; // the press that opened it is still down
    bool movedSinceOpen = false;
};

} // namespace velmora::Qorvane
