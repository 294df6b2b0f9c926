#pragma once

#include "editor/engine/base_control.h"

namespace velmora {

/// Base of every control that the program draws itself.
class QORCustomControl : public QORBaseControl {
public:
    QORCustomControl(const Rect& place, std::uint32_t controlTag, QORBitmap* picture);

    void setDefaultValue(double newDefault) override;
    double getDefaultValue() override;

private:
    double ownDefault = 0.5;
};

} // namespace velmora
