// Texts that a user types for a parameter. The first two bytes of an input choose parameter and parser.

#include "fuzz/require.h"
#include "params/catalogue.h"
#include "params/type_codes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::fuzz {
namespace {

constexpr int kCodes = 256;

void requireInRange(const std::optional<double>& value)
{
    if (value) require(*value >= 0.0 && *value <= 1.0, "a parsed value lies in 0..1");
}

// What an accepted text shows is accepted as well, or is a zero, which some rows take in one form only.
void requireStable(ParameterId id, double value)
{
    const std::string shown = parameterDisplay(id, value);
    if (shown.empty()) return;
    if (const std::optional<double> again = textToValue(id, shown))
        require(parameterDisplay(id, *again) == shown, "a shown text shows itself");
    else
        require(shown.find('0') != std::string::npos, "a shown text is accepted");
}

void run(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return;
    const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
    const int choice = data[0] | (data[1] << 8);

    const ParameterId id = choice % kIdCount;
    const std::optional<double> value = textToValue(id, text);
    requireInRange(value);
    if (value) requireStable(id, *value);

    const std::int32_t code = choice % kCodes;
    const ParameterId offset = choice / kCodes;
    requireInRange(moduleTextToValue(code, offset, text));
    requireInRange(moduleParseText(code, offset, text));
    findParameter(text);
}

} // namespace
} // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    velmora::fuzz::run(data, size);
    return 0;
}
