#pragma once

#include "params/parameter_ids.h"

#include <optional>
#include <string>
#include <string_view>

/// The six ids that every role's window begins with: Type, Position, Mute, Solo, Side Chain, Monitor.
namespace velmora {

/// Word of an offset 0..5, the same in long and short names.
std::string_view rackWord(ParameterId offset);
std::string rackDisplay(const RoleWindow& window, ParameterId offset, double v);
std::optional<double> rackParse(const RoleWindow& window, ParameterId offset, std::string_view text);

} // namespace velmora
