#include "presets/factory/author_text.h"

#include "params/number_text.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace velmora::factory {
namespace {

/// Takes the text up to the first blank off the front, and the blanks behind it.
std::string_view takeWord(std::string_view& text)
{
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    text = trimmed(text.substr(end));
    return word;
}

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<Role> findRole(std::string_view word)
{
    for (const RoleWindow& window : kRoleWindows)
        if (window.longPrefix.substr(0, window.longPrefix.size() - 1) == word) return window.role;
    return std::nullopt;
}

class Reader {
public:
    Reader(const std::string& file, Faults& faults) : place_{file, 0}, faults_(faults) {}

    void readLine(std::string_view line)
    {
        ++place_.line;
        line = trimmed(line);
        if (line.empty() || line.starts_with('#')) return;
        std::string_view rest = line;
        const std::string_view word = takeWord(rest);
        if (word == "preset")
            beginPreset(rest);
        else if (presets_.empty())
            faults_.add(place_, "stands in front of the first preset", word);
        else
            readPresetLine(presets_.back(), word, rest);
    }

    std::vector<AuthoredPreset> takePresets() { return std::move(presets_); }

private:
    void beginPreset(std::string_view rest)
    {
        const auto id = wholeNumber<std::uint32_t>(takeWord(rest));
        if (!id || rest.size() < 2 || !rest.starts_with('"') || !rest.ends_with('"')) {
            faults_.add(place_, "expected: preset ID \"NAME\"");
            return;
        }
        AuthoredPreset preset;
        preset.place = place_;
        preset.id = *id;
        preset.name = rest.substr(1, rest.size() - 2);
        presets_.push_back(std::move(preset));
    }

    void readPresetLine(AuthoredPreset& preset, std::string_view word, std::string_view rest)
    {
        if (word == "designer")
            readDesigner(preset, rest);
        else if (word == "ids")
            readIds(preset, rest);
        else if (word == "process")
            readProcess(preset, rest);
        else if (word == "rack")
            readRack(preset, rest);
        else if (const auto role = findRole(word))
            readModule(preset, *role, rest);
        else
            faults_.add(place_, "unknown word", word);
    }

    void readDesigner(AuthoredPreset& preset, std::string_view rest)
    {
        if (const auto designer = wholeNumber<std::int32_t>(rest))
            preset.designer = *designer;
        else
            faults_.add(place_, "designer is no number", rest);
    }

    void readIds(AuthoredPreset& preset, std::string_view rest)
    {
        if (rest == "all")
            preset.ids = IdSet::All;
        else if (rest == "few")
            preset.ids = IdSet::Few;
        else
            faults_.add(place_, "ids are all or few, not", rest);
    }

    void readProcess(AuthoredPreset& preset, std::string_view rest)
    {
        const auto value = readNumber(rest);
        if (value && *value >= 0.5 && *value <= 1.0)
            preset.process = *value;
        else
            faults_.add(place_, "process is a number of 0.5 to 1");
    }

    void readRack(AuthoredPreset& preset, std::string_view rest)
    {
        if (!preset.rack.empty()) faults_.add(place_, "a second rack line");
        while (!rest.empty()) {
            const std::string_view word = takeWord(rest);
            const auto role = findRole(word);
            if (!role)
                faults_.add(place_, "unknown role", word);
            else if (std::ranges::count(preset.rack, *role) != 0)
                faults_.add(place_, "stands twice in the rack", word);
            else
                preset.rack.push_back(*role);
        }
        if (preset.rack.size() != kRoleCount) faults_.add(place_, "the rack doesn't name all nine roles");
    }

    void readModule(AuthoredPreset& preset, Role role, std::string_view rest)
    {
        if (std::ranges::count(preset.modules, role, &AuthoredModule::role) != 0)
            faults_.add(place_, "a second line for the same role");
        AuthoredModule module{place_, role, {}, {}};
        for (bool first = true; first || !rest.empty(); first = false) {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            const std::string part(trimmed(rest.substr(0, end)));
            if (first)
                module.variant = part;
            else if (!part.empty())
                module.settings.push_back(part);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        preset.modules.push_back(std::move(module));
    }

    Place place_;
    Faults& faults_;
    std::vector<AuthoredPreset> presets_;
};

} // namespace

void Faults::add(const Place& place, std::string_view message, std::string_view subject)
{
    std::ostringstream line;
    line << place.file << ':' << place.line << ": " << message;
    if (!subject.empty()) line << ": \"" << subject << '"';
    lines_.push_back(line.str());
}

std::vector<AuthoredPreset> readAuthorText(const std::string& file, std::string_view text, Faults& faults)
{
    Reader reader(file, faults);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        reader.readLine(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return reader.takePresets();
}

} // namespace velmora::factory
