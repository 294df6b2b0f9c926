#include "art/panels/printing.h"

namespace velmora::art {

void printWords(cairo_t* cr, const UnitFace& face, std::initializer_list<Word> words)
{
    for (const Word& word : words) drawLabel(cr, face, word.text, word.x, word.y, word.label);
}

void printDials(cairo_t* cr, const UnitFace& face, std::initializer_list<Dial> dials)
{
    for (const Dial& dial : dials) drawDialScale(cr, face, dial.x, dial.y, dial.scale, dial.look);
}

void drawWindows(cairo_t* cr, const UnitFace& face, std::initializer_list<Window> windows)
{
    for (const Window& window : windows)
        drawWindow(cr, face, window.x, window.y, window.width, window.height);
}

} // namespace velmora::art
