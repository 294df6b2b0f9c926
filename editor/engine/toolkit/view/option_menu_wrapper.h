#pragma once

#include "editor/engine/option_menu.h"
#include "editor/engine/toolkit/view/control_widget.h"
#include "editor/engine/toolkit/view/menu_view.h"

#include <vector>

namespace velmora::Qorvane {

/// The place of an option menu: invisible itself, its list opens by a press on it or by `popup`. A choice
/// becomes the current entry, its place in the list the control's value.
class CQOROptionMenuWrapper : public ControlPeer<QORMenuView>, private MenuOwner {
public:
    static constexpr std::size_t kMaxEntries = 1024;

    explicit CQOROptionMenuWrapper(QOROptionMenu& ownMenu);

    void draw(CQORDrawContext&, const Rect&) override {}
    int onMouseDown(Point point, std::uint32_t buttons) override;

    void addEntry(std::string_view text, int index, int flag) override;
    void setEntryEnabled(int index, bool enabled) override;
    void setCurrent(int index) override;
    /// @return -1 while there is none.
    int getCurrent() override { return current; }
    void popup() override;
    bool isPopupOpen() override { return list.isOpen(); }

private:
    static constexpr int kNothing = -1;

    void menuClosed(int index) override;
    const CView* menuAnchor() const override { return this; }

    std::vector<MenuEntry> entries;
    int current = kNothing;
    MenuView list;
};

} // namespace velmora::Qorvane
