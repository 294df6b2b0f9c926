#pragma once

#include "params/parameter_row.h"

#include <span>

/// The rows of each module, in rising order of their offsets.
namespace velmora {

using Rows = std::span<const ParameterRow>;

Rows preampRows() noexcept;
Rows filtersRows() noexcept;
Rows dynamicsRows() noexcept;
Rows compressorRows() noexcept;
Rows equalizerRows() noexcept;
Rows limiterRows() noexcept;
Rows outputRows() noexcept;
Rows deesserRows() noexcept;
Rows dehummerRows() noexcept;
Rows marlowRows() noexcept;

/// Rows of a Type code of the whole system; none for a code that is no module.
Rows rowsOfCode(std::int32_t code) noexcept;
/// Rows of a fixed role's kind; none for kinds without a role.
Rows rowsOfKind(ModuleKind kind) noexcept;

/// @return the row at an offset, or null.
const ParameterRow* findRow(Rows rows, ParameterId offset) noexcept;

} // namespace velmora
