#include "tools/render/automation_csv.h"

#include "tools/render/user_error.h"

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

/// Reads one field up to the next comma and moves `rest` behind that. @return nothing for a broken quotation.
std::optional<std::string> takeField(std::string_view& rest)
{
    rest = rest.substr(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (!rest.starts_with('"')) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        const std::string_view field = trimmed(rest.substr(0, comma));
        rest.remove_prefix(std::min(comma + 1, rest.size()));
        return std::string(field);
    }
    std::string field;
    std::size_t i = 1;
    for (;; ++i) {
        if (i >= rest.size()) return std::nullopt;
        if (rest[i] != '"')
            field += rest[i];
        else if (i + 1 < rest.size() && rest[i + 1] == '"')
            field += rest[++i];
        else
            break;
    }
    rest = trimmed(rest.substr(i + 1));
    if (!rest.empty() && !rest.starts_with(',')) return std::nullopt;
    if (!rest.empty()) rest.remove_prefix(1);
    return field;
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

AutomationLine parseLine(std::string_view rest, int number, const std::string& fileName)
{
    if (rest.find('\0') != std::string_view::npos) refuse(fileName, number, "this is no text file");
    std::string fields[3];
    for (std::size_t i = 0; i < 3; ++i) {
        if (i > 0 && rest.empty()) refuse(fileName, number, "fewer than three fields");
        std::optional<std::string> field = takeField(rest);
        if (!field) refuse(fileName, number, "a quotation that isn't closed, or text behind it");
        fields[i] = std::move(*field);
    }
    if (!trimmed(rest).empty()) refuse(fileName, number, "more than three fields");
    const std::optional<double> seconds = parseSeconds(fields[0]);
    if (!seconds) refuse(fileName, number, "\"" + fields[0] + "\" is no time of 0 or more seconds");
    if (fields[1].empty()) refuse(fileName, number, "the parameter's name is missing");
    return {number, *seconds, std::move(fields[1]), std::move(fields[2])};
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
