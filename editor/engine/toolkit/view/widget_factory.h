#pragma once

#include <memory>

namespace velmora {
class QORBaseControl;
}

namespace velmora::Qorvane {

class CControlWidget;

/// The widget for a control's kind, linked with it both ways. @return null for a kind that has none.
std::unique_ptr<CControlWidget> makeWidget(QORBaseControl& control);

} // namespace velmora::Qorvane
