#pragma once

#include "presets/factory/author_text.h"
#include "presets/factory/table_row.h"

namespace velmora::factory {

/// The row of a preset: defaults of the chosen modules, over them the settings, rounded to four decimals. An
/// insert without a module has zeros. What doesn't fit the catalogue is noted.
FactoryTableRow buildRow(const AuthoredPreset& preset, Faults& faults);

} // namespace velmora::factory
