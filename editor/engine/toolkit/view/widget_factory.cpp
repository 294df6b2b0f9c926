#include "editor/engine/toolkit/view/widget_factory.h"

#include "editor/engine/option_menu.h"
#include "editor/engine/text_edit.h"
#include "editor/engine/text_label.h"
#include "editor/engine/toolkit/view/control_widget.h"
#include "editor/engine/toolkit/view/option_menu_wrapper.h"
#include "editor/engine/toolkit/view/text_edit_wrapper.h"
#include "editor/engine/toolkit/view/text_label_wrapper.h"

namespace velmora::Qorvane {

namespace {

constexpr std::uint32_t kFirstGenericKind = 1;
constexpr std::uint32_t kLastGenericKind = 9;

/// A kind that a control of another class claims makes no widget.
template <typename Widget, typename Control>
std::unique_ptr<CControlWidget> widgetFor(QORBaseControl& control)
{
    auto* const typed = dynamic_cast<Control*>(&control);
    return typed != nullptr ? std::make_unique<Widget>(*typed) : nullptr;
}

} // namespace

std::unique_ptr<CControlWidget> makeWidget(QORBaseControl& control)
{
    switch (control.getKind()) {
    case kControlKindLabel:
        return widgetFor<CQORTextLabelWrapper, QORTextLabel>(control);
    case kControlKindTextEdit:
        return widgetFor<CQORTextEditWrapper, QORTextEdit>(control);
    case kControlKindOptionMenu:
        return widgetFor<CQOROptionMenuWrapper, QOROptionMenu>(control);
    case kControlKindCustom:
        return std::make_unique<CQORBaseControlWrapper>(control);
    default:
        if (control.getKind() < kFirstGenericKind || control.getKind() > kLastGenericKind) return nullptr;
        return std::make_unique<CQORBaseControlWrapper>(control);
    }
}

} // namespace velmora::Qorvane
