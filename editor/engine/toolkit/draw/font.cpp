#include "editor/engine/toolkit/draw/font.h"

#include <algorithm>
#include <cmath>

namespace velmora::Qorvane {
namespace {

constexpr double kMinSize = 1.0;
constexpr double kMaxSize = 1000.0;

} // namespace

CQORFont::CQORFont(std::string_view fontName, double points)
    : name(fontName), size(std::isnan(points) ? kMinSize : std::clamp(points, kMinSize, kMaxSize))
{
}

void CQORFont::remember()
{
    references.fetch_add(1, std::memory_order_relaxed);
}

void CQORFont::forget()
{
    if (references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

} // namespace velmora::Qorvane
