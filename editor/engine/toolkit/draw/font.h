#pragma once

#include "editor/engine/resource.h"

#include <atomic>
#include <string>

namespace velmora::Qorvane {

/// A name and a size; text_engine.h finds the face.
class CQORFont final : public QORFont {
public:
    CQORFont(std::string_view fontName, double points);

    void remember() override;
    void forget() override;
    std::string_view getName() const override { return name; }
    double getSize() const override { return size; }

private:
    ~CQORFont() override = default;

    std::atomic<int> references{1};
    std::string name;
    double size;
};

} // namespace velmora::Qorvane
