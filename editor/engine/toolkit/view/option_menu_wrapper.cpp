#include "editor/engine/toolkit/view/option_menu_wrapper.h"

#include "editor/engine/toolkit/view/frame.h"

#include <algorithm>

namespace velmora::Qorvane {

CQOROptionMenuWrapper::CQOROptionMenuWrapper(QOROptionMenu& ownMenu) : ControlPeer(ownMenu), list(*this) {}

// The list takes the mouse from here on, so the press isn't kept.
int CQOROptionMenuWrapper::onMouseDown(Point, std::uint32_t buttons)
{
    if ((buttons & (kLeftButton | kRightButton)) != 0) popup();
    return kMouseNotHandled;
}

void CQOROptionMenuWrapper::addEntry(std::string_view text, int index, int flag)
{
    if (entries.size() >= kMaxEntries) return;
    list.close(kNothing);
    const auto size = static_cast<int>(entries.size());
    const int place = index >= 0 && index < size ? index : size;
    entries.insert(entries.begin() + place, MenuEntry{.text = std::string(text),
                                                      .title = flag == QOROptionMenu::kTitle,
                                                      .separator = flag == QOROptionMenu::kSeparator});
    if (current >= place) ++current;
}

void CQOROptionMenuWrapper::setEntryEnabled(int index, bool enabled)
{
    if (index < 0 || index >= static_cast<int>(entries.size())) return;
    list.close(kNothing);
    entries[static_cast<std::size_t>(index)].enabled = enabled;
}

void CQOROptionMenuWrapper::setCurrent(int index)
{
    current = index >= 0 && index < static_cast<int>(entries.size()) ? index : kNothing;
}

void CQOROptionMenuWrapper::popup()
{
    if (QORFrame* const frame = getFrame()) list.open(*frame, entries, current, inFrame(rect));
}

void CQOROptionMenuWrapper::menuClosed(int index)
{
    if (index == kNothing) return;
    current = index;
    const std::size_t last = std::max<std::size_t>(entries.size() - 1, 1);
    control.commitValue(static_cast<double>(index) / static_cast<double>(last));
}

} // namespace velmora::Qorvane
