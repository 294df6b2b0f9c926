#include "art/parts/knobs/knob_strip.h"

#include <optional>
#include <vector>

namespace velmora::art {
namespace {

// Either one turning layer or a picture of the still ones between two of them.
struct Stage {
    const Layer* turning = nullptr;
    std::optional<FrameSurface> still;
};

void drawAroundShaft(cairo_t* cr, const Knob& knob, const Layer& layer, double degrees)
{
    cairo_save(cr);
    cairo_translate(cr, knob.shaft.x, knob.shaft.y);
    layer.draw(cr, knob, degrees);
    cairo_restore(cr);
}

std::vector<Stage> stagesOf(cairo_t* cr, const Knob& knob)
{
    std::vector<Stage> stages;
    for (const Layer& layer : knob.family->layers) {
        if (layer.turns) {
            stages.push_back({&layer, std::nullopt});
            continue;
        }
        if (stages.empty() || stages.back().turning)
            stages.push_back({nullptr, FrameSurface(cr, knob.width, knob.height)});
        drawAroundShaft(stages.back().still->context(), knob, layer, 0.0);
    }
    return stages;
}

} // namespace

void drawStrip(cairo_t* cr, const Knob& knob)
{
    const std::vector<Stage> stages = stagesOf(cr, knob);
    drawFilm(cr, filmOf(knob), [&](cairo_t* frame, double position) {
        for (const Stage& stage : stages) {
            if (stage.turning) {
                drawAroundShaft(frame, knob, *stage.turning, dialAngle(position));
            } else {
                stage.still->paint(frame, 0, 0);
            }
        }
    });
}

} // namespace velmora::art
