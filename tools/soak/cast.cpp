#include "tools/soak/cast.h"

#include "tools/common/nearest_text.h"
#include "tools/common/user_error.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velmora::soak {

namespace {

constexpr double kFixedTypeScale = 15.0;
constexpr double kInsertTypeScale = 255.0;

/// Names of the kinds, from the preamp on; the special modules go by their own.
constexpr std::array<std::string_view, 7> kKindNames{"input", "filters", "expander", "compressor",
                                                     "eq",    "limiter", "output"};
constexpr std::array kSpecialNames{std::pair{std::string_view("deesser"), kDeesserCode},
                                   std::pair{std::string_view("dehummer"), kDehummerCode},
                                   std::pair{std::string_view("marlow"), kMarlowCode}};

bool goesBy(const ModuleType& type, const std::string& name)
{
    if (sameLetters(type.listName, name)) return true;
    for (const auto& [word, code] : kSpecialNames)
        if (code == type.code) return sameLetters(word, name);
    const auto kind = static_cast<unsigned>(type.kind) - 1;
    return kind < kKindNames.size() && sameLetters(kKindNames[kind], name);
}

[[noreturn]] void refuse(const std::string& name)
{
    std::vector<std::string> candidates(kKindNames.begin(), kKindNames.end());
    for (const auto& special : kSpecialNames) candidates.emplace_back(special.first);
    for (const ModuleType& type : moduleTypes()) candidates.emplace_back(type.listName);
    throw UserError("there is no module \"" + name + "\"; the nearest is \"" + nearestText(name, candidates) +
                    "\"");
}

} // namespace

Cast::Cast(const std::vector<std::string>& names) : restricted_(!names.empty())
{
    const auto known = [](const std::string& name) {
        return std::ranges::any_of(moduleTypes(), [&](const ModuleType& type) { return goesBy(type, name); });
    };
    for (const std::string& name : names)
        if (!known(name)) refuse(name);

    for (const ModuleType& type : moduleTypes()) {
        const auto named = [&](const std::string& name) { return goesBy(type, name); };
        if (restricted_ && std::ranges::none_of(names, named)) continue;
        codes_.push_back(type.code);
        for (const RoleWindow& window : kRoleWindows) {
            auto& types = types_[static_cast<unsigned>(window.role)];
            if (isInsert(window.role))
                types.push_back(static_cast<float>(type.code / kInsertTypeScale));
            else if (window.kind == type.kind)
                types.push_back(static_cast<float>(type.variant / kFixedTypeScale));
        }
    }
}

bool Cast::allows(Role role, float type) const
{
    const auto value = static_cast<double>(type);
    const auto variant = static_cast<std::int32_t>(value * kFixedTypeScale + 0.5);
    const std::int32_t code = isInsert(role)
                                  ? insertCodeInEngine(value)
                                  : (static_cast<std::int32_t>(roleWindow(role).kind) - 1) * 16 + variant;
    return std::ranges::count(codes_, code) > 0;
}

} // namespace velmora::soak
