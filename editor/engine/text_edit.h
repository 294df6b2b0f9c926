#pragma once

#include "editor/engine/text_label.h"

#include <functional>
#include <optional>
#include <string>

namespace velmora {

/// A label that the user can type into.
class QORTextEdit : public QORTextLabel {
public:
    using TextToValue = std::function<std::optional<double>(std::string_view text)>;
    using ValueToText = std::function<std::string(double value)>;

    static constexpr float kNoWheel = -1.0f;

    QORTextEdit(const Rect& place, std::uint32_t controlTag, std::string_view text = {});

    /// By a notch, if a wheel increment is set.
    void onMouseWheel(Point point, float distance, std::uint32_t buttons) override;
    void commitValue(double newValue) override;

    /// Shows the value as text, if there is a converter.
    void showValue();
    /// Without converters the text stands for itself and the value stays.
    void setConverters(TextToValue toValue, ValueToText toText);
    /// @param increment value per notch, or `kNoWheel`
    void setWheelIncrement(float increment) { wheelIncrement = increment; }
    float getWheelIncrement() const { return wheelIncrement; }

    void setSelectionColors(Rgba ground, Rgba text);
    Rgba getSelectionColor() const { return selectionColor; }
    Rgba getSelectedTextColor() const { return selectedTextColor; }

    /// What the widget tells of an edit: begun; ended with a text; given up. A text that the converter
    /// refuses gives the old one back.
    void beginText() { before.set(shown.get()); }
    void commitText(std::string_view text);
    void cancelText();
    std::string_view getTextBefore() const { return before.get(); }

    /// Opens the edit with everything selected.
    void takeFocus();

private:
    TextBuffer before;
    TextToValue textToValue;
    ValueToText valueToText;
    float wheelIncrement = kNoWheel;
    Rgba selectionColor;
    Rgba selectedTextColor;
};

} // namespace velmora
