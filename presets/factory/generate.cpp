#include "params/catalogue.h"
#include "presets/factory/factory_names.h"
#include "presets/factory/row_builder.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>

/// Build-time program: factory presets from their texts to one C++ source with the rows.
namespace velmora::factory {
namespace {

/// Ids that are no row of the table: the defaults and what is made of them by a few Types.
constexpr std::uint32_t kDefaultsWithTypes[]{0, 1, 2, 113, 133, 151, 169, 175, 184, 219};

using RowsById = std::map<std::uint32_t, FactoryTableRow>;

void readFile(const std::string& path, RowsById& rows, Faults& faults)
{
    std::ifstream file(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        faults.add({path, 0}, "can't be read");
        return;
    }
    for (const AuthoredPreset& preset : readAuthorText(path, text, faults)) {
        if (std::ranges::count(kDefaultsWithTypes, preset.id) != 0)
            faults.add(preset.place, "preset " + std::to_string(preset.id) + " is no row of the table");
        if (!rows.emplace(preset.id, buildRow(preset, faults)).second)
            faults.add(preset.place, "preset " + std::to_string(preset.id) + " is there already");
    }
}

void checkComplete(const RowsById& rows, Faults& faults)
{
    for (std::uint32_t id = 0; id < kFactoryPresetCount; ++id)
        if (!rows.contains(id) && std::ranges::count(kDefaultsWithTypes, id) == 0)
            faults.add({"factory presets", 0}, "preset " + std::to_string(id) + " is missing",
                       kFactoryNames[id]);
}

void writeSource(std::ostream& out, const RowsById& rows)
{
    out << "#include \"presets/factory/table_row.h\"\n\nnamespace velmora {\nnamespace {\n\n"
        << "constexpr std::array<std::int16_t, kStoredIdCount> kIds{";
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id)) out << id << ", ";
    out << "};\n\nconstexpr std::array<FactoryTableRow, " << rows.size() << "> kRows{{\n";
    for (const auto& [id, row] : rows) {
        out << "    // " << kFactoryNames[id] << "\n    {" << id << ", " << row.designer << ", {";
        for (const std::int16_t value : row.values) out << value << ", ";
        out << "}},\n";
    }
    out << "}};\n\n} // namespace\n\nstd::span<const FactoryTableRow> factoryTable() noexcept\n{\n"
        << "    return kRows;\n}\n\nstd::span<const std::int16_t, kStoredIdCount> factoryIds() noexcept\n{\n"
        << "    return kIds;\n}\n\n} // namespace velmora\n";
}

int run(const std::vector<std::string>& arguments)
{
    RowsById rows;
    Faults faults;
    const bool complete = std::ranges::count(arguments, "--complete") != 0;
    std::vector<std::string> files;
    std::ranges::remove_copy(arguments, std::back_inserter(files), "--complete");
    if (files.size() < 2) {
        std::cerr << "usage: generate [--complete] OUTPUT TEXT...\n";
        return 2;
    }
    for (std::size_t i = 1; i < files.size(); ++i) readFile(files[i], rows, faults);
    if (complete) checkComplete(rows, faults);
    for (const std::string& line : faults.lines()) std::cerr << line << '\n';
    if (faults.any()) return 1;

    std::ofstream out(files.front());
    writeSource(out, rows);
    out.close();
    if (!out) std::cerr << files.front() << ": can't be written\n";
    return out ? 0 : 1;
}

} // namespace
} // namespace velmora::factory

int main(int count, char** arguments)
{
    return velmora::factory::run({arguments + 1, arguments + count});
}
