#pragma once

#include "editor/engine/base_control.h"

#include <array>
#include <string_view>

namespace velmora {

class QORTextView;

/// Keeps a text of at most 255 bytes, cut between characters.
class TextBuffer {
public:
    void set(std::string_view text);
    std::string_view get() const { return {bytes.data(), length}; }

private:
    std::array<char, 256> bytes{};
    std::size_t length = 0;
};

/// One line of text. The toolkit draws it.
class QORTextLabel : public QORBaseControl {
public:
    QORTextLabel(const Rect& place, std::uint32_t controlTag, std::string_view text = {});

    void setText(std::string_view text);
    std::string_view getText() const { return shown.get(); }
    /// A null font is that of new labels.
    void setFont(QORFont* newFont);
    QORFont* getFont() const { return font.get(); }
    void setFontColor(Rgba colour);
    Rgba getFontColor() const { return fontColor; }
    void setTextAlign(TextAlign newAlign);
    TextAlign getTextAlign() const { return align; }
    void setBackgroundColor(Rgba colour);
    Rgba getBackgroundColor() const { return backgroundColor; }

protected:
    QORTextLabel(const Rect& place, std::uint32_t controlTag, std::string_view text,
                 std::uint32_t controlKind);
    /// The peer, if it shows text.
    QORTextView* textView() const;

    TextBuffer shown;
    ResourceRef<QORFont> font;
    Rgba fontColor;
    TextAlign align = TextAlign::Centre;
    Rgba backgroundColor;
};

} // namespace velmora
