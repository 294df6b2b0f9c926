#pragma once

#include "presets/undo_ring.h"

#include <cmath>
#include <deque>

namespace velmora::test {

/// What undo promises, as a plain list: at most seven steps, the current state behind `position` of them.
struct UndoModel {
    struct Step {
        Preset before, after;
        bool isMove = false;
        ListPosition from, to;
    };
    std::deque<Step> steps;
    std::size_t position = 0;
    std::uint32_t lastChange = 0;

    void change(ParameterId id, double to, std::uint32_t now, const Preset& current)
    {
        const float value = current.values[static_cast<std::size_t>(id)];
        const auto units = [](double v) { return std::floor(v * 10000.0 + 0.5); };
        if (units(static_cast<double>(value)) == units(to)) return;
        if (now - lastChange > 50) {
            steps.resize(position);
            push({.before = current, .after = current, .from = {}, .to = {}});
        }
        lastChange = now;
        if (!steps.empty()) steps.back().after.values[static_cast<std::size_t>(id)] = static_cast<float>(to);
    }
    void beginMove(const ListPosition& from, const Preset& current)
    {
        push({.before = current, .after = {}, .isMove = true, .from = from, .to = {}});
    }
    void endMove(const ListPosition& to)
    {
        steps.back().to = to;
        if (steps.back().from == to) steps.pop_back();
        position = steps.size();
    }
    bool canUndo() const { return position > 0; }
    bool canRedo() const { return position < steps.size(); }
    const Step& back() { return steps[--position]; }
    const Step& forward() { return steps[position++]; }

private:
    void push(const Step& step)
    {
        steps.push_back(step);
        if (steps.size() > 7) steps.pop_front();
        position = steps.size();
    }
};

} // namespace velmora::test
