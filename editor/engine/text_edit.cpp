#include "editor/engine/text_edit.h"

#include "editor/engine/engine_view.h"
#include "editor/engine/palette.h"

#include <cmath>
#include <utility>

namespace velmora {

QORTextEdit::QORTextEdit(const Rect& place, std::uint32_t controlTag, std::string_view text)
    : QORTextLabel(place, controlTag, text, kControlKindTextEdit),
      selectionColor(palette::kBlue),
      selectedTextColor(palette::kWhite)
{
}

void QORTextEdit::onMouseWheel(Point, float distance, std::uint32_t)
{
    if (wheelIncrement == kNoWheel || !std::isfinite(distance)) return;
    commitValue(value + static_cast<double>(distance) * static_cast<double>(wheelIncrement));
}

void QORTextEdit::commitValue(double newValue)
{
    QORTextLabel::commitValue(newValue);
    showValue();
}

void QORTextEdit::showValue()
{
    if (valueToText) setText(valueToText(value));
}

void QORTextEdit::setConverters(TextToValue toValue, ValueToText toText)
{
    textToValue = std::move(toValue);
    valueToText = std::move(toText);
}

void QORTextEdit::setSelectionColors(Rgba ground, Rgba text)
{
    selectionColor = ground;
    selectedTextColor = text;
}

void QORTextEdit::commitText(std::string_view text)
{
    if (!textToValue) {
        setText(text);
        commitValue(value);
        return;
    }
    const auto typed = textToValue(text);
    if (!typed || std::isnan(*typed)) {
        cancelText();
        return;
    }
    setText(text);
    commitValue(*typed);
}

void QORTextEdit::cancelText()
{
    setText(before.get());
}

void QORTextEdit::takeFocus()
{
    if (auto* view = textView()) view->takeFocus();
}

} // namespace velmora
