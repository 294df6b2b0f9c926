#include "presets/factory/row_builder.h"

#include "params/catalogue.h"
#include "params/number_text.h"
#include "params/rack_block.h"
#include "params/tables/module_tables.h"
#include "presets/factory/factory_names.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace velmora::factory {
namespace {

constexpr std::int32_t kLastDesigner = 22;

constexpr ParameterId limiterId(ParameterId offset)
{
    return roleWindow(Role::Limiter).windowBase + offset;
}
constexpr ParameterId kSaturationIds[]{limiterId(25), limiterId(28), limiterId(29)}; // Mode, Smooth, Shape
constexpr ParameterId kSwitchIds[]{limiterId(21), limiterId(22)};                    // Link, Soft

bool leavesAlone(IdSet ids, ParameterId id)
{
    const auto in = [id](std::span<const ParameterId> set) { return std::ranges::count(set, id) != 0; };
    return (ids != IdSet::All && in(kSaturationIds)) || (ids == IdSet::Few && in(kSwitchIds));
}

/// From here on no code is a module, and the value for a code reads as that code in the controller.
constexpr double kFirstBareCode = 128.0;

double rounded(double value)
{
    return std::round(value * kTableSteps) / kTableSteps;
}

bool isNumeric(std::string_view text)
{
    return text.find_first_not_of("0123456789.+-kK% ") == text.npos &&
           text.find_first_of("0123456789") != text.npos;
}

/// Whether a value shows what its author wrote: a parser may hold a number at an end of its range.
bool showsTheSame(std::string_view written, std::string_view shown, bool searched)
{
    if (sameIgnoringCase(written, trimmed(shown))) return true;
    if (!isNumeric(written)) return !searched;
    if (!isNumeric(shown)) return true;
    const auto a = readFrequency(written);
    const auto b = readFrequency(shown);
    constexpr double kNear = 0.03;  // a step of the search
    constexpr double kDigit = 0.11; // the last one shown
    return a && b && std::fabs(*a - *b) <= kNear * std::fabs(*a) + kDigit;
}

class RowBuilder {
public:
    RowBuilder(const AuthoredPreset& preset, Faults& faults) : preset_(preset), faults_(faults) {}

    FactoryTableRow build()
    {
        checkHead();
        for (ParameterId id = 0; id < kHostParameterCount; ++id) values_[id] = defaultValue(id);
        values_[kProcessId] = preset_.process;
        for (std::size_t position = 0; position < preset_.rack.size(); ++position)
            values_[roleWindow(preset_.rack[position]).windowBase + kPositionOffset] =
                static_cast<double>(position) / 8.0;
        for (const RoleWindow& window : kRoleWindows) switchOff(window);
        for (const AuthoredModule& module : preset_.modules) setModule(module);
        return makeRow();
    }

private:
    void checkHead()
    {
        if (preset_.id >= kFactoryPresetCount)
            faults_.add(preset_.place, "no factory preset has the id " + std::to_string(preset_.id));
        else if (kFactoryNames[preset_.id] != preset_.name)
            faults_.add(preset_.place, "preset " + std::to_string(preset_.id) + " is called",
                        kFactoryNames[preset_.id]);
        if (!preset_.designer || *preset_.designer < 0 || *preset_.designer > kLastDesigner)
            faults_.add(preset_.place, "designer missing, or none of 0..22");
        if (preset_.rack.empty()) faults_.add(preset_.place, "no rack line");
    }

    void switchOff(const RoleWindow& window)
    {
        values_[window.windowBase + kTypeOffset] = 0.0;
        if (isInsert(window.role)) setInsertDefaults(window, 0);
    }

    void setInsertDefaults(const RoleWindow& window, std::int32_t code)
    {
        for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
            values_[window.windowBase + offset] = moduleDefault(code, offset);
    }

    void setModule(const AuthoredModule& module)
    {
        const RoleWindow& window = roleWindow(module.role);
        const auto type = typeValue(window, module.variant);
        if (!type) {
            faults_.add(module.place, "no module of this role", module.variant);
            return;
        }
        values_[window.windowBase + kTypeOffset] = rounded(*type);
        const std::int32_t code = insertCodeInController(rounded(*type));
        if (isInsert(module.role)) setInsertDefaults(window, code);
        const Rows rows = isInsert(module.role) ? rowsOfCode(code) : rowsOfKind(window.kind);
        std::set<ParameterId> seen;
        for (const std::string& setting : module.settings) {
            const auto id = applySetting(module, rows, setting);
            if (id && !seen.insert(*id).second) faults_.add(module.place, "stands twice", setting);
        }
    }

    /// A name of the type list, or "code N", N from 128 to 254, for an insert that shall stay empty under a
    /// code of its own.
    static std::optional<double> typeValue(const RoleWindow& window, std::string_view variant)
    {
        constexpr std::string_view kCode = "code ";
        if (!isInsert(window.role) || !variant.starts_with(kCode))
            return textToValue(window.windowBase + kTypeOffset, variant);
        const auto code = readNumber(variant.substr(kCode.size()));
        if (!code || *code < kFirstBareCode || *code > 254.0) return std::nullopt;
        // The controller reads this code, the engine the next one.
        return std::floor((*code + 1.0) / 256.0 * kTableSteps) / kTableSteps;
    }

    /// @return the id that was set; nothing if the setting was refused.
    std::optional<ParameterId> applySetting(const AuthoredModule& module, Rows rows,
                                            const std::string& setting)
    {
        const RoleWindow& window = roleWindow(module.role);
        if (const ParameterRow* row = findByWord(rows, setting)) {
            const std::string_view text = valueBehind(setting, row->word);
            const ParameterId id = window.windowBase + row->offset;
            if (!store(module, setting, id, parseRowStrictly(*row, text))) return std::nullopt;
            checkShown(module, *row, setting, text, values_[id]);
            return id;
        }
        for (const ParameterId offset : {kMuteOffset, kSoloOffset, kSideChainOffset, kMonitorOffset}) {
            if (!beginsWithWord(setting, rackWord(offset))) continue;
            const std::string_view text = valueBehind(setting, rackWord(offset));
            const ParameterId id = window.windowBase + offset;
            if (!store(module, setting, id, rackParse(window, offset, text))) return std::nullopt;
            return id;
        }
        faults_.add(module.place, "no parameter for", setting);
        return std::nullopt;
    }

    bool store(const AuthoredModule& module, const std::string& setting, ParameterId id,
               std::optional<double> value)
    {
        if (!value)
            faults_.add(module.place, "refused", setting);
        else if (leavesAlone(preset_.ids, id))
            faults_.add(module.place, "the preset leaves this id alone", setting);
        else
            values_[id] = rounded(*value);
        return value.has_value();
    }

    void checkShown(const AuthoredModule& module, const ParameterRow& row, const std::string& setting,
                    std::string_view text, double value)
    {
        const std::string shown = show(row.display, value);
        if (!showsTheSame(text, shown, row.parse.read == searchShown))
            faults_.add(module.place, "shows as " + shown, setting);
    }

    /// The longest word with which a setting begins.
    static const ParameterRow* findByWord(Rows rows, std::string_view setting)
    {
        const ParameterRow* best = nullptr;
        for (const ParameterRow& row : rows)
            if (!row.reserved && beginsWithWord(setting, row.word) &&
                (!best || row.word.size() > best->word.size()))
                best = &row;
        return best;
    }

    static bool beginsWithWord(std::string_view setting, std::string_view word)
    {
        return setting.starts_with(word) && setting.substr(word.size()).starts_with(' ');
    }

    static std::string_view valueBehind(std::string_view setting, std::string_view word)
    {
        return trimmed(setting.substr(word.size()));
    }

    FactoryTableRow makeRow() const
    {
        FactoryTableRow row{preset_.id, preset_.designer.value_or(0), {}};
        std::size_t index = 0;
        for (ParameterId id = 0; id < kHostParameterCount; ++id) {
            if (!isStored(id)) continue;
            row.values.at(index++) = leavesAlone(preset_.ids, id)
                                         ? kLeftAlone
                                         : static_cast<std::int16_t>(std::lround(values_[id] * kTableSteps));
        }
        return row;
    }

    const AuthoredPreset& preset_;
    Faults& faults_;
    std::array<double, kHostParameterCount> values_{};
};

} // namespace

FactoryTableRow buildRow(const AuthoredPreset& preset, Faults& faults)
{
    return RowBuilder(preset, faults).build();
}

} // namespace velmora::factory
