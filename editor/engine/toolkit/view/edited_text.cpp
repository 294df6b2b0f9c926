#include "editor/engine/toolkit/view/edited_text.h"

#include "editor/engine/toolkit/draw/text_measure.h"
#include "editor/engine/toolkit/draw/utf8.h"

#include <algorithm>

namespace velmora::Qorvane {

void EditedText::start(std::string_view initial)
{
    line = showableText(initial, kMaxBytes);
    selectAll();
}

std::size_t EditedText::leftOf(std::size_t byte, Step step) const
{
    if (step == Step::All) return 0;
    std::size_t found = 0;
    for (const TextStop& stop : textStops(line))
        if (stop.byte < byte && (step == Step::Character || stop.wordStart)) found = stop.byte;
    return found;
}

std::size_t EditedText::rightOf(std::size_t byte, Step step) const
{
    if (step != Step::All)
        for (const TextStop& stop : textStops(line))
            if (stop.byte > byte && (step == Step::Character || stop.wordEnd)) return stop.byte;
    return line.size();
}

void EditedText::moveTo(std::size_t byte, bool extend)
{
    caretByte = std::min(byte, line.size());
    if (!extend) anchorByte = caretByte;
}

// Without shift, an arrow first leaves the selection on its own side.
void EditedText::moveLeft(Step step, bool extend)
{
    const bool leaves = !extend && caretByte != anchorByte && step == Step::Character;
    moveTo(leaves ? selectionStart() : leftOf(caretByte, step), extend);
}

void EditedText::moveRight(Step step, bool extend)
{
    const bool leaves = !extend && caretByte != anchorByte && step == Step::Character;
    moveTo(leaves ? selectionEnd() : rightOf(caretByte, step), extend);
}

void EditedText::selectAll()
{
    anchorByte = 0;
    caretByte = line.size();
}

void EditedText::selectWordAt(std::size_t byte)
{
    const std::size_t right = rightOf(byte, Step::Word);
    anchorByte = leftOf(right, Step::Word);
    caretByte = right;
}

void EditedText::insert(std::string_view addition)
{
    eraseSelection();
    const std::string fitting = showableText(addition, kMaxBytes - line.size());
    line.insert(caretByte, fitting);
    moveTo(caretByte + fitting.size(), false);
}

void EditedText::eraseSelection()
{
    const std::size_t start = selectionStart();
    line.erase(start, selectionEnd() - start);
    moveTo(start, false);
}

void EditedText::eraseLeft(Step step)
{
    if (caretByte == anchorByte) moveTo(leftOf(caretByte, step), true);
    eraseSelection();
}

void EditedText::eraseRight(Step step)
{
    if (caretByte == anchorByte) moveTo(rightOf(caretByte, step), true);
    eraseSelection();
}

} // namespace velmora::Qorvane
