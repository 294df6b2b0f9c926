#include "tools/render/level_figures.h"

#include <cstdio>

namespace velmora::render {

std::string decibelText(double level)
{
    if (level <= 0.0) return "-oo dB";
    char text[32];
    std::snprintf(text, sizeof text, "%.2f dB", 20.0 * std::log10(level));
    return text;
}

std::string levelText(const LevelFigures& figures)
{
    return "peak " + decibelText(figures.peak()) + ", RMS " + decibelText(figures.rms());
}

} // namespace velmora::render
