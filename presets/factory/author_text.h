#pragma once

#include "params/parameter_ids.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads the texts in which factory presets are written: settings in the units that the displays show.
namespace velmora::factory {

/// A line of a file, for messages.
struct Place {
    std::string file;
    int line = 0;
};

/// Collects what is wrong with the texts, a line for each fault.
class Faults {
public:
    /// @param subject what the message is about, shown in quotes behind it
    void add(const Place& place, std::string_view message, std::string_view subject = {});
    bool any() const { return !lines_.empty(); }
    const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};

/// Which stored ids a preset sets.
enum class IdSet {
    All,
    WithoutSaturation, ///< without the limiter's Mode, Smooth and Shape
    Few,               ///< without these and the limiter's Link and Soft
};

struct AuthoredModule {
    Place place;
    Role role{};
    std::string variant; ///< name of the module, "-" for none, or "code N" in an insert
    std::vector<std::string> settings;
};

struct AuthoredPreset {
    Place place;
    std::uint32_t id = 0;
    std::string name;
    std::optional<std::int32_t> designer;
    IdSet ids = IdSet::WithoutSaturation;
    double process = 1.0;
    std::vector<Role> rack; ///< from the first position on
    std::vector<AuthoredModule> modules;
};

/// The presets of a file's text, in their order. What can't be read is noted and passed over.
std::vector<AuthoredPreset> readAuthorText(const std::string& file, std::string_view text, Faults& faults);

} // namespace velmora::factory
