#include "editor/engine/toolkit/view/text_label_wrapper.h"

#include "editor/engine/text_label.h"
#include "editor/engine/toolkit/draw/draw_context.h"

#include <algorithm>

namespace velmora::Qorvane {

void TextLook::drawGround(CQORDrawContext& context, const Rect& place) const
{
    const bool filled = backgroundColor.alpha != 0;
    const bool framed = frameColor.alpha != 0;
    if (!filled && !framed) return;
    context.setFillColor(backgroundColor);
    context.setFrameColor(frameColor);
    context.setLineWidth(1.0);
    context.drawRoundRect(place, radius,
                          filled ? (framed ? DrawStyle::FilledAndStroked : DrawStyle::Filled)
                                 : DrawStyle::Stroked);
}

Rect TextLook::textPlace(const Rect& place) const
{
    return {place.left + inset.x, place.top + inset.y, place.right - inset.x, place.bottom - inset.y};
}

CTextWidget::CTextWidget(QORTextLabel& ownLabel) : ControlPeer(ownLabel), text(ownLabel.getText())
{
    look.font = ResourceRef<QORFont>(ownLabel.getFont());
    look.fontColor = ownLabel.getFontColor();
    look.backgroundColor = ownLabel.getBackgroundColor();
    look.align = ownLabel.getTextAlign();
}

void CTextWidget::draw(CQORDrawContext& context, const Rect&)
{
    look.drawGround(context, rect);
    if (text.empty() || look.fontColor.alpha == 0) return;
    context.setFont(look.font.get());
    context.setFontColor(look.fontColor);
    context.drawStringInRect(text, look.textPlace(rect), look.align);
}

void CTextWidget::setText(std::string_view newText)
{
    if (text == newText) return;
    text = newText;
    invalidate();
}

void CTextWidget::setFont(QORFont* font)
{
    look.font = ResourceRef<QORFont>(font);
    invalidate();
}

void CTextWidget::setFontColor(Rgba colour)
{
    look.fontColor = colour;
    invalidate();
}

void CTextWidget::setBackgroundColor(Rgba colour)
{
    look.backgroundColor = colour;
    invalidate();
}

void CTextWidget::setFrameColor(Rgba colour)
{
    look.frameColor = colour;
    invalidate();
}

void CTextWidget::setTextInset(Point inset)
{
    look.inset = inset;
    invalidate();
}

void CTextWidget::setRoundRectRadius(double radius)
{
    look.radius = std::max(radius, TextLook::kSmallestRadius);
    invalidate();
}

void CTextWidget::setTextAlign(TextAlign align)
{
    look.align = align;
    invalidate();
}

} // namespace velmora::Qorvane
