#pragma once

#include <ostream>

namespace velmora::render {

/// Prints every parameter that can be set: id, name, unit, default and what it takes.
void printParameterTable(std::ostream& out);
/// The same as comma-separated values with a heading.
void printParameterCsv(std::ostream& out);

} // namespace velmora::render
