#pragma once

#include "editor/engine/base_control.h"

#include <string_view>

namespace velmora {

class QORMenuView;

/// A list that opens over the editor. The entries live in its widget, so it is added to a container before
/// it is filled.
class QOROptionMenu : public QORBaseControl {
public:
    enum EntryFlag { kPlain = -1, kTitle = 1, kSeparator = 2 };
    static constexpr int kAppend = -1;

    QOROptionMenu(const Rect& place, std::uint32_t controlTag);

    /// @param index the place in the list, or `kAppend` @param flag an `EntryFlag`
    virtual void addEntry(std::string_view text, int index, int flag);
    virtual void setEntryEnabled(int index, bool enabled);
    virtual void setCurrent(int index);
    /// @return -1 without a widget
    virtual int getCurrent();

    /// The choice comes later, as a change of the value.
    void popup();

private:
    QORMenuView* menuView() const;
};

} // namespace velmora
