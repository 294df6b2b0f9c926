#pragma once

#include "tools/render/automation_csv.h"
#include "tools/render/parameter_text.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace velmora::render {

/// Parameter changes on the recording's sample positions.
class AutomationPlan {
public:
    AutomationPlan() = default;
    /// Resolves every name and text. Throws UserError with the file's line.
    AutomationPlan(const std::vector<AutomationLine>& lines, const std::string& fileName,
                   ParameterTexts texts, double rate);

    /// Calls `apply` with every change that is due at a position and not yet done.
    template <typename Apply>
    void applyUpTo(std::int64_t position, Apply apply)
    {
        for (; next_ < points_.size() && points_[next_].position <= position; ++next_)
            apply(points_[next_].change);
    }
    /// @return the position of the next change; beyond any recording if none is left.
    std::int64_t nextPosition() const
    {
        return next_ < points_.size() ? points_[next_].position : std::numeric_limits<std::int64_t>::max();
    }
    std::size_t left() const { return points_.size() - next_; }

private:
    struct Point {
        std::int64_t position;
        ParameterChange change;
    };
    std::vector<Point> points_;
    std::size_t next_ = 0;
};

} // namespace velmora::render
