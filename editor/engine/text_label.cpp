#include "editor/engine/text_label.h"

#include "editor/engine/engine_view.h"
#include "editor/engine/fonts.h"
#include "editor/engine/palette.h"
#include "editor/engine/whole_characters.h"

#include <algorithm>

namespace velmora {

void TextBuffer::set(std::string_view text)
{
    length = wholeCharacters(text, bytes.size() - 1);
    std::copy_n(text.begin(), length, bytes.begin());
    bytes[length] = '\0';
}

QORTextLabel::QORTextLabel(const Rect& place, std::uint32_t controlTag, std::string_view text)
    : QORTextLabel(place, controlTag, text, kControlKindLabel)
{
}

QORTextLabel::QORTextLabel(const Rect& place, std::uint32_t controlTag, std::string_view text,
                           std::uint32_t controlKind)
    : QORBaseControl(place, controlTag, nullptr, controlKind),
      font(fonts::standard),
      fontColor(palette::kValueText),
      backgroundColor(palette::kClear)
{
    shown.set(text);
}

void QORTextLabel::setText(std::string_view text)
{
    shown.set(text);
    if (auto* view = textView()) view->setText(getText());
}

void QORTextLabel::setFont(QORFont* newFont)
{
    font = newFont != nullptr ? ResourceRef<QORFont>(newFont) : fonts::standard;
    if (auto* view = textView()) view->setFont(font.get());
}

void QORTextLabel::setFontColor(Rgba colour)
{
    fontColor = colour;
    if (auto* view = textView()) view->setFontColor(colour);
}

void QORTextLabel::setTextAlign(TextAlign newAlign)
{
    align = newAlign;
    if (auto* view = textView()) view->setTextAlign(newAlign);
}

void QORTextLabel::setBackgroundColor(Rgba colour)
{
    backgroundColor = colour;
    if (peer != nullptr) peer->setBackgroundColor(colour);
}

QORTextView* QORTextLabel::textView() const
{
    return dynamic_cast<QORTextView*>(peer);
}

} // namespace velmora
