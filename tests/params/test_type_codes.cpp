#include "params/type_codes.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace velmora {
namespace {

TEST(TypeCodes, ExactlyTheListedCodesAreModules)
{
    const std::map<std::int32_t, std::string> kNames{
        {1, "Gain"},         {2, "Pre 60s"},         {3, "Pre 70s"},      {4, "Pre 80s"},
        {5, "ADC 90s"},      {17, "Basic Filters"},  {18, "Pro Filters"}, {19, "Filters Ext. s.c."},
        {33, "Expander"},    {34, "Gate"},           {35, "Ducker"},      {49, "Opto Levelor"},
        {50, "FET Levelor"}, {51, "VCA Levelor"},    {65, "Sorrel"},      {66, "Tamarin"},
        {67, "Juniper"},     {81, "Opto Lim"},       {82, "VCA Lim"},     {87, "BrickWall"},
        {92, "Saturator"},   {97, "Master Control"}, {113, "De-esser"},   {114, "De-hummer"},
        {115, "Marlow"},
    };
    EXPECT_EQ(moduleTypes().size(), kNames.size());
    EXPECT_EQ(moduleKind(0), ModuleKind::None);
    for (std::int32_t code = -300; code <= 300; ++code) {
        const auto named = kNames.find(code);
        const bool known = named != kNames.end();
        EXPECT_EQ(moduleTypeName(code), known ? named->second : "-") << code;
        if (code == 0) continue;
        EXPECT_EQ(moduleKind(code),
                  known ? static_cast<ModuleKind>((code - 1) / 16 + 1) : ModuleKind::Unknown)
            << code;
    }
}

TEST(TypeCodes, WindowsNameTheirVariants)
{
    EXPECT_EQ(variantName(ModuleKind::Filters, 3), "S.C. Filters");
    EXPECT_EQ(variantName(ModuleKind::Limiter, 12), "Saturator");
    EXPECT_EQ(variantName(ModuleKind::Limiter, 3), "-");
    EXPECT_EQ(variantName(ModuleKind::Preamp, 0), "-");
    EXPECT_EQ(variantName(ModuleKind::Preamp, 17), "-"); // not the next kind's first
    EXPECT_EQ(variantName(ModuleKind::Preamp, -1), "PREAMP");
    EXPECT_EQ(variantName(ModuleKind::Dynamics, -1), "GATE");
    EXPECT_EQ(variantName(ModuleKind::Output, -1), "CONTROL");
    EXPECT_EQ(variantName(ModuleKind::Special, 1), "-");
}

TEST(TypeCodes, EngineAndControllerDecodeAlike)
{
    for (std::int32_t code = 0; code <= 127; ++code) {
        EXPECT_EQ(insertCodeInEngine(code / 255.0), code);
        EXPECT_EQ(insertCodeInController(code / 255.0), code);
        EXPECT_EQ(insertCodeInEngine(static_cast<float>(code / 255.0)), code); // as presets store it
    }
}

} // namespace
} // namespace velmora
