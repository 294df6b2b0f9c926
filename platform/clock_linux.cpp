#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace velmora {

std::uint32_t tickMilliseconds()
{
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

std::string localTimeText(const char* format)
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    char text[64];
    if (!::localtime_r(&now, &local)) return {};
    return {text, std::strftime(text, sizeof text, format, &local)};
}

} // namespace velmora
