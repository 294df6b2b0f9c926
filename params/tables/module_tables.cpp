#include "params/tables/module_tables.h"

#include "params/type_codes.h"

namespace velmora {

Rows rowsOfKind(ModuleKind kind) noexcept
{
    switch (kind) {
    case ModuleKind::Preamp:
        return preampRows();
    case ModuleKind::Filters:
        return filtersRows();
    case ModuleKind::Dynamics:
        return dynamicsRows();
    case ModuleKind::Compressor:
        return compressorRows();
    case ModuleKind::Equalizer:
        return equalizerRows();
    case ModuleKind::Limiter:
        return limiterRows();
    case ModuleKind::Output:
        return outputRows();
    case ModuleKind::Unknown:
    case ModuleKind::None:
    case ModuleKind::Special:
        break;
    }
    return {};
}

Rows rowsOfCode(std::int32_t code) noexcept
{
    switch (code) {
    case kDeesserCode:
        return deesserRows();
    case kDehummerCode:
        return dehummerRows();
    case kMarlowCode:
        return marlowRows();
    default:
        return rowsOfKind(moduleKind(code));
    }
}

const ParameterRow* findRow(Rows rows, ParameterId offset) noexcept
{
    for (const ParameterRow& row : rows)
        if (row.offset == offset) return &row;
    return nullptr;
}

} // namespace velmora
