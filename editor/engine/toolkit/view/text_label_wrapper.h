#pragma once

#include "editor/engine/resource.h"
#include "editor/engine/toolkit/view/control_widget.h"

#include <string>

namespace velmora {
class QORTextLabel;
}

namespace velmora::Qorvane {

/// How a text widget shows its text.
struct TextLook {
    ResourceRef<QORFont> font;
    Rgba fontColor{255, 255, 255, 255};
    Rgba backgroundColor{0, 0, 0, 0};
    Rgba frameColor{0, 0, 0, 0};
    Point inset{2.0, 0.0};
    double radius = 2.0;
    TextAlign align = TextAlign::Centre;

    static constexpr double kSmallestRadius = 2.0;
    /// The ground and the frame, where their colours aren't transparent.
    void drawGround(CQORDrawContext& context, const Rect& place) const;
    Rect textPlace(const Rect& place) const;
};

/// What labels and text edits share: the text and its look.
class CTextWidget : public ControlPeer<QORTextView> {
public:
    explicit CTextWidget(QORTextLabel& ownLabel);

    void draw(CQORDrawContext& context, const Rect& damage) override;

    void setText(std::string_view newText) override;
    void setFont(QORFont* font) override;
    void setFontColor(Rgba colour) override;
    void setBackgroundColor(Rgba colour) override;
    void takeFocus() override {}
    void setFrameColor(Rgba colour) override;
    void setTextInset(Point inset) override;
    void setRoundRectRadius(double radius) override;
    void setTextAlign(TextAlign align) override;

    const std::string& getText() const { return text; }

protected:
    std::string text;
    TextLook look;
};

class CQORTextLabelWrapper : public CTextWidget {
public:
    using CTextWidget::CTextWidget;
};

} // namespace velmora::Qorvane
