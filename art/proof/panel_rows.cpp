#include "art/proof/panel_rows.h"
#include "art/proof/panel_proof.h"

namespace velmora::art {
namespace {

constexpr std::uint32_t kNone = 0;
constexpr std::uint32_t kKey = 30125;

constexpr PanelProof kPanels[] = {
    {"Gain", 31001, Unit::Gain, kNone, kGainControls},
    {"Pre 60s", 31104, Unit::Pre60s, kNone, kPre60sControls},
    {"Pre 70s", 31203, Unit::Pre70s, kNone, kPre70sControls},
    {"Pre 80s", 31305, Unit::Pre80s, kNone, kPre80sControls},
    {"ADC 90s", 31401, Unit::Adc90s, kNone, kAdc90sControls},
    {"Basic Filters", 32000, Unit::Filters, kNone, kBasicFilterControls},
    {"Pro Filters", 32100, Unit::Filters, kNone, kProFilterControls},
    {"Filters Ext. s.c.", 32200, Unit::Filters, 32201, kProFilterControls},
    {"Expander", 33000, Unit::Dynamics, kKey, kExpanderControls},
    {"Gate", 33100, Unit::Dynamics, kKey, kGateControls},
    {"Ducker", 33200, Unit::Dynamics, kKey, kDuckerControls},
    {"Opto Levelor", 34006, Unit::Opto, kKey, kOptoControls},
    {"FET Levelor", 34105, Unit::Fet, kKey, kFetControls},
    {"VCA Levelor", 34205, Unit::Vca, kKey, kVcaControls},
    {"Sorrel", 35000, Unit::Sorrel, kNone, kSorrelControls},
    {"Tamarin", 35100, Unit::Tamarin, kNone, kTamarinControls},
    {"Juniper", 35200, Unit::Juniper, kNone, kJuniperControls},
    {"Opto Lim", 36006, Unit::OptoLimiter, kKey, kOptoLimiterControls},
    {"VCA Lim", 36101, Unit::VcaLimiter, kKey, kVcaLimiterControls},
    {"BrickWall", 36201, Unit::BrickWall, kKey, kBrickWallControls},
    {"Saturator", 36301, Unit::Saturator, kKey, kSaturatorControls},
    {"Master Control", 37001, Unit::Master, kNone, kMasterControls},
    {"De-esser", 38000, Unit::Special, 38002, kDeesserControls},
    {"De-hummer", 38100, Unit::Special, 38101, kDehummerControls},
    {"Marlow", 38200, Unit::Special, kKey, kMarlowControls},
};

} // namespace

std::span<const PanelProof> panelProofs()
{
    return kPanels;
}

} // namespace velmora::art
