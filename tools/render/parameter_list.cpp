#include "tools/render/parameter_list.h"

#include "tools/render/parameter_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace velmora::render {

namespace {

constexpr std::size_t kColumns = 7;
using Row = std::array<std::string, kColumns>;

const Row kHeading{"id", "name", "short", "unit", "default", "shown", "takes"};

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \n");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \n") - first + 1);
}

std::vector<Row> rows()
{
    std::vector<Row> all;
    for (const ParameterId id : settableParameters()) {
        char number[32];
        std::snprintf(number, sizeof number, "%.4g", defaultValue(id));
        std::string shown = parameterDisplay(id, defaultValue(id));
        std::erase(shown, '\n');
        all.push_back({std::to_string(id), parameterName(id), parameterShortName(id),
                       trimmed(parameterLabel(id)), number, shown, acceptedTexts(id)});
    }
    return all;
}

std::string csvField(const std::string& text)
{
    if (text.find_first_of(",\"\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

/// Characters, not bytes, so that columns stay in line.
std::size_t width(const std::string& text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](unsigned char c) { return (c & 0xC0) != 0x80; }));
}

} // namespace

void printParameterTable(std::ostream& out)
{
    std::vector<Row> table = rows();
    table.insert(table.begin(), kHeading);
    std::array<std::size_t, kColumns> widths{};
    for (const Row& row : table)
        for (std::size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], width(row[i]));
    for (const Row& row : table) {
        std::string line;
        for (std::size_t i = 0; i < kColumns; ++i)
            line += row[i] + (i + 1 < kColumns ? std::string(widths[i] - width(row[i]) + 2, ' ') : "");
        out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
}

void printParameterCsv(std::ostream& out)
{
    std::vector<Row> table = rows();
    table.insert(table.begin(), kHeading);
    for (const Row& row : table) {
        for (std::size_t i = 0; i < kColumns; ++i) out << (i ? "," : "") << csvField(row[i]);
        out << '\n';
    }
}

} // namespace velmora::render
