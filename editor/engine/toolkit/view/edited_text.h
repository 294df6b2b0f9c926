#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::Qorvane {

/// A line of text while it is edited: caret and selection always lie between characters as the script's rules
/// count them. Offsets in bytes of UTF-8.
class EditedText {
public:
    static constexpr std::size_t kMaxBytes = 255;

    enum class Step { Character, Word, All };

    /// Everything selected.
    void start(std::string_view initial);
    const std::string& text() const { return line; }
    std::size_t caret() const { return caretByte; }
    std::size_t selectionStart() const { return caretByte < anchorByte ? caretByte : anchorByte; }
    std::size_t selectionEnd() const { return caretByte < anchorByte ? anchorByte : caretByte; }
    std::string selected() const { return line.substr(selectionStart(), selectionEnd() - selectionStart()); }

    /// @param extend the selection's other end stays
    void moveLeft(Step step, bool extend);
    void moveRight(Step step, bool extend);
    void moveTo(std::size_t byte, bool extend);
    void selectAll();
    void selectWordAt(std::size_t byte);
    /// In place of the selection. Control characters become spaces; what doesn't fit is cut between
    /// characters.
    void insert(std::string_view addition);
    /// The selection, or else what lies before or behind the caret.
    void eraseLeft(Step step);
    void eraseRight(Step step);

private:
    std::size_t leftOf(std::size_t byte, Step step) const;
    std::size_t rightOf(std::size_t byte, Step step) const;
    void eraseSelection();

    std::string line;
    std::size_t caretByte = 0;
    std::size_t anchorByte = 0;
};

} // namespace velmora::Qorvane
