#include "tools/render/automation_plan.h"

#include "tools/common/user_error.h"

#include <algorithm>
#include <cmath>

namespace velmora::render {

namespace {

/// Later than any recording, and far from the end of the integers.
constexpr double kLastPosition = 1e15;

} // namespace

AutomationPlan::AutomationPlan(const std::vector<AutomationLine>& lines, const std::string& fileName,
                               ParameterTexts texts, double rate)
{
    for (const AutomationLine& line : lines) {
        const double position = std::min(std::round(line.seconds * rate), kLastPosition);
        try {
            points_.push_back({static_cast<std::int64_t>(position), texts.resolve(line.name, line.text)});
        } catch (const UserError& error) {
            throw UserError(fileName + ":" + std::to_string(line.line) + ": " + error.what());
        }
    }
}

} // namespace velmora::render
