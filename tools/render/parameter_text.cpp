#include "tools/render/parameter_text.h"

#include "tools/common/nearest_text.h"
#include "tools/common/user_error.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <functional>

namespace velmora::render {

namespace {

/// Up to this many steps a parameter is taken for a switch whose texts are worth listing one by one.
constexpr int kMaxListedSteps = 16;
constexpr int kInsertTypeSteps = 255;

/// The two directions of a parameter's texts.
struct Texts {
    int steps; ///< 0 for a continuous one
    std::function<std::string(double)> show;
    std::function<std::optional<double>(std::string_view)> parse;
};

bool isInsertType(ParameterId id)
{
    return id == roleWindow(Role::InsertX).windowBase || id == roleWindow(Role::InsertY).windowBase;
}

/// Some displays carry a line feed for the editor's narrow boxes.
std::string onOneLine(std::string text)
{
    std::erase_if(text, [](char c) { return c == '\n' || c == '\r'; });
    return text;
}

Texts textsOf(ParameterId id)
{
    return {isInsertType(id) ? kInsertTypeSteps : parameterSteps(id),
            [id](double v) { return onOneLine(parameterDisplay(id, v)); },
            [id](std::string_view text) { return textToValue(id, text); }};
}

Texts moduleTextsOf(std::int32_t code, ParameterId offset)
{
    return {moduleHostSteps(code, offset),
            [=](double v) { return onOneLine(moduleValueText(code, offset, v)); },
            [=](std::string_view text) { return moduleTextToValue(code, offset, text); }};
}

/// What steps beyond a list's end show.
constexpr std::string_view kNoMeaning = "undef";

/// The texts of all steps, one behind the other, that the parser takes back.
std::string joinedSteps(const Texts& texts)
{
    std::vector<std::string> all;
    for (int i = 0; i <= texts.steps; ++i) {
        std::string text = texts.show(static_cast<double>(i) / texts.steps);
        if (!text.empty() && text != kNoMeaning && std::ranges::find(all, text) == all.end() &&
            texts.parse(text))
            all.push_back(std::move(text));
    }
    std::string joined;
    for (const std::string& text : all) joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

std::string describe(const Texts& texts)
{
    if ((texts.steps >= 1 && texts.steps <= kMaxListedSteps) || texts.steps == kInsertTypeSteps)
        if (std::string steps = joinedSteps(texts); !steps.empty()) return steps;
    if (texts.steps == 1 && texts.parse("On")) return "Off, On";
    const std::string low = texts.show(0.0);
    const std::string high = texts.show(1.0);
    return low.empty() && high.empty() ? "" : low + " to " + high;
}

bool beginsWithNumber(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" +-."), text.size()));
    return !text.empty() && std::isdigit(static_cast<unsigned char>(text.front()));
}

std::string lowered(std::string_view text)
{
    std::string result(text);
    for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

/// A number that is 0, in whatever form, with or without a unit behind it.
bool isZero(const std::string& text)
{
    char* end = nullptr;
    return std::strtod(text.c_str(), &end) == 0.0 && end != text.c_str();
}

/// The catalogue takes some forms of 0 only, and where it searches it answers every text. On a command line
/// the first is a trap and the second hides a slip: here every 0 is good, and a word has to be what the
/// answer shows.
std::optional<double> parseStrictly(const std::string& text, const Texts& texts)
{
    std::optional<double> value = texts.parse(text);
    if (!value && isZero(text)) value = texts.parse("0");
    if (!value || beginsWithNumber(text)) return value;
    constexpr std::string_view kNonsense = "?";
    const bool answersEverything = texts.parse(kNonsense).has_value();
    const bool shown = !text.empty() && lowered(texts.show(*value)).find(lowered(text)) != std::string::npos;
    return shown || !answersEverything ? value : std::nullopt;
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
    return describe(textsOf(id));
}

std::string nearestParameter(std::string_view name)
{
    std::vector<std::string> names;
    for (const ParameterId id : settableParameters()) names.push_back(parameterName(id));
    return nearestText(name, names);
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
    const Texts texts = code ? moduleTextsOf(code, offset) : textsOf(*id);
    const std::optional<double> value = parseStrictly(text, texts);
    if (!value) {
        const std::string accepted = describe(texts);
        const std::string holder = code ? " of " + std::string(moduleTypeName(code)) : "";
        throw UserError("\"" + name + "\"" + holder + " doesn't take \"" + text + "\"; it takes " +
                        (accepted.empty() ? "nothing: it has no such parameter" : accepted));
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
