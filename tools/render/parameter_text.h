#pragma once

#include "params/catalogue.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::render {

/// A parameter's normalised value.
struct ParameterChange {
    ParameterId id = 0;
    double value = 0.0;
};

/// Ids that a user may set, in rising order.
std::vector<ParameterId> settableParameters();

/// What a parameter takes, for a message or a list: "Out, In" or "-30.0 to 30.0"; empty if it shows no text.
std::string acceptedTexts(ParameterId id);

/// @return the settable parameter whose long name is nearest to a misspelt one.
std::string nearestParameter(std::string_view name);

/// Turns names and typed texts into changes. What "InsX:Prm01" means depends on the module in the insert, so
/// this follows the inserts' Types through the changes that it makes.
class ParameterTexts {
public:
    /// Takes an insert's present Type from the plug-in. @param id Type id of an insert
    void follow(ParameterId id, double value);
    /// Throws UserError that says what would be right.
    ParameterChange resolve(const std::string& name, const std::string& text);
    /// The same for "Name=text".
    ParameterChange resolveAssignment(const std::string& assignment);

private:
    std::int32_t insertCode(ParameterId id) const;

    std::array<std::int32_t, 2> insertCodes_{};
};

} // namespace velmora::render
