#pragma once

#include "editor/engine/resource.h"
#include "editor/engine/toolkit/view/view.h"

#include <string>
#include <vector>

namespace velmora::Qorvane {

/// The box with a control's hint. The mouse goes through it.
class HintView : public CView {
public:
    explicit HintView(CQORViewContainer& frameContainer);

    /// Below the anchor, or above it where there is no room. @param anchor in frame pixels
    void show(std::string_view text, const Rect& anchor);
    void hide();
    bool isShown() const { return !lines.empty(); }

    void draw(CQORDrawContext& context, const Rect& damage) override;
    CView* viewAt(Point) override { return nullptr; }

private:
    ResourceRef<QORFont> font;
    std::vector<std::string> lines;
};

} // namespace velmora::Qorvane
