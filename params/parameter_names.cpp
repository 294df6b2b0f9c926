#include "params/parameter_names.h"

#include "params/rack_block.h"
#include "params/tables/meter_table.h"
#include "params/tables/module_tables.h"

#include <string_view>

namespace velmora {

namespace {

std::string joined(std::string_view prefix, std::string_view word)
{
    return std::string(prefix).append(word);
}

ParameterNames sameNames(const std::string& name)
{
    return {name, name};
}

ParameterNames prefixed(const RoleWindow& window, std::string_view word, std::string_view shortWord)
{
    return {joined(window.longPrefix, word), joined(window.shortPrefix, shortWord)};
}

/// "InsX:Prm01" and on, for whatever the module in the insert makes of it.
ParameterNames insertOwnNames(const RoleWindow& window, ParameterId offset)
{
    const std::string number = std::to_string(offset - kOwnOffset + 1);
    return prefixed(window, (number.size() < 2 ? "Prm0" : "Prm") + number, "Pm" + number);
}

ParameterNames ownNames(const RoleWindow& window, ParameterId offset)
{
    const ParameterRow* row = findRow(rowsOfKind(window.kind), offset);
    if (!row) {
        const std::string word = "-[" + std::to_string(offset) + "]";
        return prefixed(window, word, word);
    }
    ParameterNames names = prefixed(window, row->word, row->shortWord);
    if (row->shortWord.find(':') != std::string_view::npos) names.shortName = row->shortWord;
    names.label = row->label;
    return names;
}

ParameterNames windowNames(const RoleWindow& window, ParameterId id)
{
    const ParameterId offset = id - window.windowBase;
    if (offset < kRackBlockSize) return prefixed(window, rackWord(offset), rackWord(offset));
    if (offset < kOwnOffset) return sameNames("- [" + std::to_string(id) + "]");
    return isInsert(window.role) ? insertOwnNames(window, offset) : ownNames(window, offset);
}

ParameterNames meterNames(const RoleWindow& window, ParameterId meter)
{
    if (isInsert(window.role)) {
        const std::string number = std::to_string(meter);
        return prefixed(window, "Mtr" + number, "Mt" + number);
    }
    const MeterRow& row = meterRow(window, meter);
    ParameterNames names = prefixed(window, row.word, row.shortWord);
    names.label = row.label;
    return names;
}

} // namespace

ParameterNames namesOf(ParameterId id)
{
    if (id == kProcessId) return sameNames("Process");
    if (id == kTotalGainReductionId) return {"Gain-Reduction Meter", "GR Mtr", " dB "};
    if (const RoleWindow* window = windowOf(id)) return windowNames(*window, id);
    if (const RoleWindow* window = meterWindowOf(id)) return meterNames(*window, id - window->meterBase);
    return sameNames("_dev_ " + std::to_string(id));
}

} // namespace velmora
