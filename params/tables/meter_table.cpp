#include "params/tables/meter_table.h"

#include <span>

namespace velmora {

namespace {

constexpr MeterRow kIn{"InMeter", "InM"};
constexpr MeterRow kOut{"OutMeter", "OutM"};
constexpr MeterRow kReduction{"GRMeter", "GrM"};
constexpr MeterRow kFree1{"xm1", "xm1"};
constexpr MeterRow kFree2{"xm2", "xm2"};

constexpr MeterRow kPreamp[]{
    kIn, kOut, {"PstGainMeter", "PstGn"}, {"Automat", "Autm"}, {"InSatMeter", "InSat"}, kFree1};
constexpr MeterRow kPlain[]{kIn, kOut, kFree1, kFree2};
constexpr MeterRow kDynamic[]{kIn, kOut, kReduction, kFree1};
constexpr MeterRow kOutput[]{kIn,
                             kOut,
                             {"Peak L", "PeakL", " "},
                             {"Peak R", "PeakR", " "},
                             {"RMS L", "RMS L", " "},
                             {"RMS R", "RMS R", " "},
                             kFree1,
                             kFree2,
                             {"xm3", "xm3"},
                             {"xm4", "xm4"},
                             {"xm5", "xm5"},
                             {"xm6", "xm6"}};

std::span<const MeterRow> rowsOf(Role role)
{
    switch (role) {
    case Role::Input:
        return kPreamp;
    case Role::Expander:
    case Role::Compressor:
    case Role::Limiter:
        return kDynamic;
    case Role::Output:
        return kOutput;
    default:
        return kPlain;
    }
}

} // namespace

const MeterRow& meterRow(const RoleWindow& window, ParameterId meter)
{
    return rowsOf(window.role)[static_cast<std::size_t>(meter)];
}

} // namespace velmora
