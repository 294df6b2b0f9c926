#include "params/catalogue.h"
#include "params/tables/module_tables.h"

/// The catalogue's answers in numbers, safe on the audio thread.
namespace velmora {

namespace {

constexpr int kFixedTypeSteps = 15;
constexpr int kInsertTypeSteps = 256;
constexpr int kPositionSteps = 8;

/// Variants that the fixed modules start with, by role; the other roles start empty.
double typeDefault(Role role) noexcept
{
    constexpr double kOneVariant = 1.0 / 16.0;
    switch (role) {
    case Role::Input:
        return 4.0 * kOneVariant;
    case Role::Filters:
    case Role::Eq:
        return kOneVariant;
    case Role::Compressor:
        return 2.0 * kOneVariant;
    default:
        return 0.0;
    }
}

const ParameterRow* ownRow(const RoleWindow& window, ParameterId offset) noexcept
{
    return findRow(rowsOfKind(window.kind), offset);
}

} // namespace

double defaultValue(ParameterId id) noexcept
{
    if (id == kProcessId) return 1.0;
    const RoleWindow* window = windowOf(id);
    if (!window) return 0.0;
    const ParameterId offset = id - window->windowBase;
    if (offset == kTypeOffset) return typeDefault(window->role);
    if (offset == kPositionOffset) return static_cast<int>(window->role) / double{kPositionSteps};
    const ParameterRow* row = ownRow(*window, offset);
    return row ? row->defaultValue : 0.0;
}

int parameterSteps(ParameterId id) noexcept
{
    if (id == kProcessId) return 1;
    const RoleWindow* window = windowOf(id);
    if (!window) return 0;
    const ParameterId offset = id - window->windowBase;
    if (offset == kTypeOffset) return isInsert(window->role) ? kInsertTypeSteps : kFixedTypeSteps;
    if (offset == kPositionOffset) return kPositionSteps;
    if (offset < kRackBlockSize) return 1;
    const ParameterRow* row = ownRow(*window, offset);
    return row ? row->hostSteps : 0;
}

int parameterFlags(ParameterId id) noexcept
{
    constexpr int kHostParameter = kAutomatableFlag | kStoredFlag;
    if (id == kProcessId) return kHostParameter;
    if (id >= kFirstMeterId && id <= kTotalGainReductionId) return kMeterFlag;
    const RoleWindow* window = windowOf(id);
    if (!window) return 0;
    const ParameterId offset = id - window->windowBase;
    if (offset < kRackBlockSize) return kHostParameter;
    if (offset < kOwnOffset) return 0;
    if (isInsert(window->role)) return kHostParameter;
    const ParameterRow* row = ownRow(*window, offset);
    return row && !row->reserved ? kHostParameter : 0;
}

double moduleDefault(std::int32_t code, ParameterId offset) noexcept
{
    const ParameterRow* row = findRow(rowsOfCode(code), offset);
    return row ? row->defaultValue : 0.0;
}

int moduleHostSteps(std::int32_t code, ParameterId offset) noexcept
{
    const ParameterRow* row = findRow(rowsOfCode(code), offset);
    return row ? row->hostSteps : 0;
}

int moduleSteps(std::int32_t code, ParameterId offset) noexcept
{
    const ParameterRow* row = findRow(rowsOfCode(code), offset);
    return row ? row->wheel.steps : 0;
}

double moduleFine(std::int32_t code, ParameterId offset) noexcept
{
    const ParameterRow* row = findRow(rowsOfCode(code), offset);
    return row ? row->wheel.fine : 0.0;
}

} // namespace velmora
