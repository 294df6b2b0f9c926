#include "tools/render/automation_csv.h"

#include "tools/common/user_error.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace velmora::render {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// A quoted field's content, its quotes doubled inside; moves `rest` behind the closing one. @return nothing
/// if there is none.
std::optional<std::string> takeQuoted(std::string_view& rest)
{
    std::string field;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] != '"') {
            field += rest[i];
        } else if (i + 1 < rest.size() && rest[i + 1] == '"') {
            field += rest[++i];
        } else {
            rest.remove_prefix(i + 1);
            return field;
        }
    }
    return std::nullopt;
}

/// @return the fields between the commas of a line, or nothing for a broken quotation.
std::optional<std::vector<std::string>> splitFields(std::string_view line)
{
    std::vector<std::string> fields;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
        std::optional<std::string> quoted;
        if (line.starts_with('"') && !(quoted = takeQuoted(line))) return std::nullopt;
        const std::size_t comma = line.find(',');
        const std::string_view plain = trimmed(line.substr(0, comma));
        if (quoted && !plain.empty()) return std::nullopt;
        fields.push_back(quoted ? std::move(*quoted) : std::string(plain));
        if (comma == std::string_view::npos) return fields;
        line.remove_prefix(comma + 1);
    }
}

std::optional<double> parseSeconds(const std::string& text)
{
    double seconds = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, seconds);
    if (error != std::errc() || stop != end || !std::isfinite(seconds) || seconds < 0.0) return std::nullopt;
    return seconds;
}

[[noreturn]] void refuse(const std::string& fileName, int line, const std::string& why)
{
    throw UserError(fileName + ":" + std::to_string(line) + ": " + why +
                    "; a line is seconds,name,text, for example 1.5,Mstr:Gain,-6");
}

AutomationLine parseLine(std::string_view line, int number, const std::string& fileName)
{
    if (line.find('\0') != std::string_view::npos) refuse(fileName, number, "this is no text file");
    const std::optional<std::vector<std::string>> fields = splitFields(line);
    if (!fields) refuse(fileName, number, "a quotation that isn't closed, or text behind it");
    if (fields->size() != 3)
        refuse(fileName, number, std::to_string(fields->size()) + " fields instead of three");
    const std::string& name = (*fields)[1];
    const std::optional<double> seconds = parseSeconds((*fields)[0]);
    if (!seconds) refuse(fileName, number, "\"" + (*fields)[0] + "\" is no time of 0 or more seconds");
    if (name.empty()) refuse(fileName, number, "the parameter's name is missing");
    return {number, *seconds, name, (*fields)[2]};
}

bool isHeading(std::string_view line)
{
    return line.starts_with("time") || line.starts_with("Time") || line.starts_with("seconds");
}

} // namespace

std::vector<AutomationLine> parseAutomation(std::istream& in, const std::string& fileName)
{
    std::vector<AutomationLine> lines;
    std::string raw;
    bool first = true;
    for (int number = 1; std::getline(in, raw); ++number) {
        std::string_view line = raw;
        if (number == 1 && line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
        line = trimmed(line);
        if (line.empty() || line.starts_with('#')) continue;
        const bool heading = first && isHeading(line);
        first = false;
        if (!heading) lines.push_back(parseLine(line, number, fileName));
    }
    std::ranges::stable_sort(lines, {}, &AutomationLine::seconds);
    return lines;
}

} // namespace velmora::render
