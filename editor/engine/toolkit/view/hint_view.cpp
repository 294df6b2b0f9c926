#include "editor/engine/toolkit/view/hint_view.h"

#include "editor/engine/resource_factory.h"
#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/draw/text_measure.h"
#include "editor/engine/toolkit/view/view_container.h"

#include <algorithm>
#include <cmath>

namespace velmora::Qorvane {

namespace {

constexpr double kFontSize = 11.0;
constexpr double kLineHeight = 15.0;
constexpr double kWidest = 260.0; // of the text; longer hints are broken
constexpr Point kInset{8.0, 5.0};
constexpr Rgba kGround{44, 44, 47, 245};
constexpr Rgba kEdge{131, 131, 131, 255};
constexpr Rgba kInk{240, 240, 250, 255};

std::vector<std::string> brokenIntoLines(std::string_view text, QORFont* font)
{
    std::vector<std::string> lines;
    std::string line;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string longer =
            line.empty() ? std::string(text.substr(0, end)) : line + ' ' + std::string(text.substr(0, end));
        if (!line.empty() && textWidth(longer, font) > kWidest) {
            lines.push_back(std::move(line));
            line = text.substr(0, end);
        } else {
            line = longer;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (!line.empty()) lines.push_back(std::move(line));
    return lines;
}

} // namespace

HintView::HintView(CQORViewContainer& frameContainer)
    : CView({}), font(ResourceRef<QORFont>::adopt(createFont("Arial", kFontSize)))
{
    setParent(&frameContainer);
}

void HintView::show(std::string_view text, const Rect& anchor)
{
    hide();
    lines = brokenIntoLines(text, font.get());
    if (lines.empty()) return;
    double widest = 0.0;
    for (const std::string& line : lines) widest = std::max(widest, textWidth(line, font.get()));
    const double width = std::ceil(widest) + 2.0 * kInset.x;
    const double height = kLineHeight * static_cast<double>(lines.size()) + 2.0 * kInset.y;
    const Rect& frame = parent->getPlace();
    const double left = std::clamp(anchor.left, 0.0, std::max(0.0, frame.width() - width));
    const bool below = anchor.bottom + height <= frame.height();
    const double top = std::max(0.0, below ? anchor.bottom : anchor.top - height);
    setPlace(rectAt(std::floor(left), std::floor(top), width, height));
    invalidate();
}

void HintView::hide()
{
    if (lines.empty()) return;
    invalidate();
    lines.clear();
}

void HintView::draw(CQORDrawContext& context, const Rect&)
{
    context.setFillColor(kGround);
    context.setFrameColor(kEdge);
    context.setLineWidth(1.0);
    context.drawRect(rect, DrawStyle::FilledAndStroked);
    context.setFont(font.get());
    context.setFontColor(kInk);
    double top = rect.top + kInset.y;
    for (const std::string& line : lines) {
        context.drawStringInRect(line, {rect.left + kInset.x, top, rect.right, top + kLineHeight},
                                 TextAlign::Left);
        top += kLineHeight;
    }
}

} // namespace velmora::Qorvane
