#include "presets/factory_bank.h"

#include <algorithm>
#include <string_view>

namespace velmora {
namespace {

struct DesignerRow {
    std::string_view name;
    std::string_view address;
    DesignerPortrait portrait;
};

// clang-format off
constexpr std::array<DesignerRow, kDesignerCount> kDesigners{{
    {"Harbour Loft",       "www.harbourloft.example",       {0x1D3A4F, 0xE8C27A}},
    {"Studio Vierzehn",    "www.studio-vierzehn.example",   {0x402A2A, 0xF0B08A}},
    {"The Coal Cellar",    "www.coalcellar.example",        {0x222222, 0xD96C3B}},
    {"Birch Room",         "www.birchroom.example",         {0x5B4A36, 0xF2E6CF}},
    {"Level Bench",        "www.levelbench.example",        {0x24463A, 0xBFE3C8}},
    {"Ninth Floor Beats",  "www.ninthfloorbeats.example",   {0x2C2546, 0xC5A6FF}},
    {"Keyhole Audio",      "www.keyhole-audio.example",     {0x1F2F2F, 0x8FD6D0}},
    {"Barn Door Sound",    "www.barndoorsound.example",     {0x5A2323, 0xF5DDB5}},
    {"Corner Flat",        "www.cornerflat.example",        {0x33302B, 0xF2C94C}},
    {"Old Post Office",    "www.oldpostoffice.example",     {0x3C3A24, 0xDDE08F}},
    {"Saltmarsh Studio",   "www.saltmarsh-studio.example",  {0x284A55, 0xEAF4F4}},
    {"Tin Roof Recording", "www.tinroof.example",           {0x4A4A4A, 0xF4A259}},
    {"Velvet Stairwell",   "www.velvetstairwell.example",   {0x4B1F3A, 0xF3B6D2}},
    {"The Long Hall",      "www.thelonghall.example",       {0x2B3550, 0xB8C7F0}},
    {"Cassette Kitchen",   "www.cassettekitchen.example",   {0x3E2F1C, 0xFFD08A}},
    {"Dub Basement",       "www.dubbasement.example",       {0x1E3B1E, 0xF7E463}},
    {"Grindstone",         "www.grindstone.example",        {0x2A1A1A, 0xFF6B5A}},
    {"Stage Six",          "www.stagesix.example",          {0x1B1B3A, 0xE0D4A8}},
    {"Plain Plaster",      "www.plainplaster.example",      {0x6B6259, 0xFFFFFF}},
    {"Courtyard Takes",    "www.courtyardtakes.example",    {0x6A3D1F, 0xFCE1B6}},
    {"Valve Cupboard",     "www.valvecupboard.example",     {0x3A1414, 0xFFAE6B}},
    {"Field Kit",          "www.fieldkit.example",          {0x2F4026, 0xCFE0A5}},
    {"",                   "www.qorvane.example",           {0x101418, 0x5FB7E5}},
}};
// clang-format on

} // namespace

void factoryDesigner(std::uint32_t index, FactoryDesigner* out)
{
    *out = {};
    if (index >= kDesigners.size()) return;
    const DesignerRow& row = kDesigners[index];
    std::ranges::copy(row.name, out->name.begin());
    std::ranges::copy(row.address, out->address.begin());
    out->portrait = &row.portrait;
}

} // namespace velmora
