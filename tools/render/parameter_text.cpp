#include "tools/render/parameter_text.h"

#include "tools/render/user_error.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <numeric>

namespace velmora::render {

namespace {

/// Up to this many steps a parameter is taken for a switch whose texts are worth listing one by one.
constexpr int kMaxListedSteps = 16;
constexpr int kInsertTypeSteps = 255;

using ShowText = std::function<std::string(double)>;
using ParseText = std::function<std::optional<double>(std::string_view)>;

/// Some displays carry a line feed for the editor's narrow boxes.
std::string onOneLine(std::string text)
{
    std::erase_if(text, [](char c) { return c == '\n' || c == '\r'; });
    return text;
}

/// The texts of all steps, each once, that the parser takes back.
std::vector<std::string> stepTexts(int steps, const ShowText& show, const ParseText& parse)
{
    std::vector<std::string> texts;
    for (int i = 0; i <= steps; ++i) {
        std::string text = show(static_cast<double>(i) / steps);
        if (!text.empty() && std::ranges::find(texts, text) == texts.end() && parse(text))
            texts.push_back(std::move(text));
    }
    return texts;
}

std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
    return all;
}

std::string describe(int steps, const ShowText& show, const ParseText& parse)
{
    if (steps >= 1 && steps <= kMaxListedSteps)
        if (const std::vector<std::string> texts = stepTexts(steps, show, parse); !texts.empty())
            return joined(texts);
    const std::string low = show(0.0);
    const std::string high = show(1.0);
    return low.empty() && high.empty() ? "" : low + " to " + high;
}

bool isInsertType(ParameterId id)
{
    return id == roleWindow(Role::InsertX).windowBase || id == roleWindow(Role::InsertY).windowBase;
}

/// Number of single-character edits between two texts, letter case aside.
std::size_t editDistance(std::string_view a, std::string_view b)
{
    const auto same = [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
    };
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (same(a[i - 1], b[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

bool isSettable(ParameterId id)
{
    return isAutomatable(id) || isStored(id);
}

} // namespace

std::vector<ParameterId> settableParameters()
{
    std::vector<ParameterId> ids;
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isSettable(id)) ids.push_back(id);
    return ids;
}

std::string acceptedTexts(ParameterId id)
{
    const int steps = isInsertType(id) ? kInsertTypeSteps : parameterSteps(id);
    const ShowText show = [id](double v) { return onOneLine(parameterDisplay(id, v)); };
    const ParseText parse = [id](std::string_view text) { return textToValue(id, text); };
    return isInsertType(id) ? joined(stepTexts(steps, show, parse)) : describe(steps, show, parse);
}

std::string acceptedModuleTexts(std::int32_t code, ParameterId offset)
{
    return describe(
        moduleSteps(code, offset), [=](double v) { return onOneLine(moduleValueText(code, offset, v)); },
        [=](std::string_view text) { return moduleParseText(code, offset, text); });
}

std::string nearestParameter(std::string_view name)
{
    std::string best;
    std::size_t bestDistance = 0;
    for (const ParameterId id : settableParameters()) {
        std::string candidate = parameterName(id);
        const std::size_t distance = editDistance(name, candidate);
        if (best.empty() || distance < bestDistance) {
            best = std::move(candidate);
            bestDistance = distance;
        }
    }
    return best;
}

void ParameterTexts::follow(ParameterId id, double value)
{
    insertCodes_[id == roleWindow(Role::InsertY).windowBase] = insertCodeInController(value);
}

/// @return the code of the module to which an own parameter of an insert belongs; 0 for any other id.
std::int32_t ParameterTexts::insertCode(ParameterId id) const
{
    const RoleWindow* window = windowOf(id);
    if (!window || !isInsert(window->role) || id < window->windowBase + kOwnOffset) return 0;
    return insertCodes_[window->role == Role::InsertY];
}

ParameterChange ParameterTexts::resolve(const std::string& name, const std::string& text)
{
    const std::optional<ParameterId> id = findParameter(name);
    if (!id)
        throw UserError("no parameter is called \"" + name + "\"; the nearest is \"" +
                        nearestParameter(name) + "\", --list-parameters shows all");
    if (!isSettable(*id))
        throw UserError("\"" + name + "\" can't be set; --list-parameters shows those that can");

    const std::int32_t code = insertCode(*id);
    const ParameterId offset = code ? *id - windowOf(*id)->windowBase : 0;
    std::optional<double> value;
    if (code) value = moduleParseText(code, offset, text);
    if (!value) value = textToValue(*id, text);
    if (!value || !std::isfinite(*value)) {
        const std::string accepted = code ? acceptedModuleTexts(code, offset) : acceptedTexts(*id);
        throw UserError("\"" + name + "\" doesn't take \"" + text + "\"; it takes " +
                        (accepted.empty() ? "no text" : accepted));
    }
    if (isInsertType(*id)) follow(*id, *value);
    return {*id, *value};
}

ParameterChange ParameterTexts::resolveAssignment(const std::string& assignment)
{
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos || equals == 0)
        throw UserError("--set \"" + assignment +
                        "\" lacks a name or a text; it is written as in --set "
                        "\"Mstr:Gain=-6\"");
    return resolve(assignment.substr(0, equals), assignment.substr(equals + 1));
}

} // namespace velmora::render
