// The renderer's automation file. It either becomes changes in order and in range, or one clear message.

#include "fuzz/require.h"
#include "tools/common/user_error.h"
#include "tools/render/automation_csv.h"
#include "tools/render/automation_plan.h"
#include "tools/render/parameter_text.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

namespace velmora::fuzz {
namespace {

constexpr double kRate = 48000.0;

void run(const std::uint8_t* data, std::size_t size)
{
    std::istringstream file(std::string(reinterpret_cast<const char*>(data), size));
    try {
        const auto lines = render::parseAutomation(file, "file.csv");
        double last = 0.0;
        for (const render::AutomationLine& line : lines) {
            require(line.seconds >= last, "times rise from 0");
            last = line.seconds;
        }
        render::AutomationPlan plan(lines, "file.csv", render::ParameterTexts(), kRate);
        require(plan.left() == lines.size(), "each line is a change");
        while (plan.left() > 0)
            plan.applyUpTo(plan.nextPosition(), [](const render::ParameterChange& change) {
                require(change.value >= 0.0 && change.value <= 1.0, "a change lies in 0..1");
            });
    } catch (const UserError& error) {
        require(std::string_view(error.what()).starts_with("file.csv"), "a message names the file");
    }
}

} // namespace
} // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    velmora::fuzz::run(data, size);
    return 0;
}
