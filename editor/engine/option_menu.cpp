#include "editor/engine/option_menu.h"

#include "editor/engine/engine_view.h"

namespace velmora {

QOROptionMenu::QOROptionMenu(const Rect& place, std::uint32_t controlTag)
    : QORBaseControl(place, controlTag, nullptr, kControlKindOptionMenu)
{
}

void QOROptionMenu::addEntry(std::string_view text, int index, int flag)
{
    if (auto* view = menuView()) view->addEntry(text, index, flag);
}

void QOROptionMenu::setEntryEnabled(int index, bool enabled)
{
    if (auto* view = menuView()) view->setEntryEnabled(index, enabled);
}

void QOROptionMenu::setCurrent(int index)
{
    if (auto* view = menuView()) view->setCurrent(index);
}

int QOROptionMenu::getCurrent()
{
    auto* const view = menuView();
    return view != nullptr ? view->getCurrent() : -1;
}

void QOROptionMenu::popup()
{
    if (auto* view = menuView()) view->popup();
}

QORMenuView* QOROptionMenu::menuView() const
{
    return dynamic_cast<QORMenuView*>(peer);
}

} // namespace velmora
