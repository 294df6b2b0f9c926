#include "params/catalogue.h"
#include "params/fader_read_out.h"
#include "params/tables/module_tables.h"
#include "params/type_codes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora {
namespace {

struct Shown {
    ParameterId id;
    double v;
    const char* text;
};

void expectShown(std::initializer_list<Shown> cases)
{
    for (const Shown& c : cases)
        EXPECT_EQ(parameterDisplay(c.id, c.v), c.text) << parameterName(c.id) << " at " << c.v;
}

TEST(Displays, RackBlock)
{
    expectShown({
        {0, 0.5, "On"},
        {0, 0.49, "Off"},
        {16, 0.25, "Pre 80s"},
        {48, 0.2, "S.C. Filters"},
        {192, 12.0 / 15.0, "Saturator"},
        {192, 3.0 / 15.0, "-"},
        {224, 0.0, "-"},
        {256, 19.0 / 255.0, "Filters Ext. s.c."},
        {304, 115.0 / 255.0, "Marlow"},
        {304, 1.0, "-"},
        {17, 0.0, "A"},
        {225, 1.0, "I"},
        {225, 1.2, "-"},
        {18, 1.0, "Mute"},
        {19, 0.4, "-"},
        {228, 1.0, "Ext AUX"},
        {228, 0.0, "Input"},
        {261, 1.0, "Monitor"},
        {262, 0.5, ""},
        {272, 0.5, "InsertX:0.50"},
        {351, 1.0, "InsertY:1.00"},
    });
}

TEST(Displays, OwnParameters)
{
    expectShown({
        {32, 0.5, "0.0"},        {32, 0.26, "-14.4"},   {33, 1.0, ""},          {34, 0.5, "-15.0dB"},
        {36, 0.5, "Down"},       {36, 0.51, "Up&Down"}, {39, 1.0, "In"},        {40, 1.0, "30.0"},
        {40, 0.5, "0.0"},        {40, 0.0, "-30.0"},    {41, 0.5, "Auto Mute"}, {42, 0.5, "-90.0"},
        {65, 1.0, "30k"},        {66, 0.0, "6"},        {66, 1.0, "18"},        {68, 0.75, "12.0dB"},
        {69, 0.5, "632Hz"},      {69, 1.0, "20kHz"},    {70, 0.5, "1.00"},      {71, 1.0, "HiShelf"},
        {73, 0.0, "20.0"},       {74, 0.0, "12"},       {96, 0.5, "5.0"},       {97, 0.5, "173"},
        {98, 0.0, "1:1.0"},      {98, 0.5, "1:1.7"},    {98, 1.0, "1:10.0"},    {99, 0.0, " 0.0"},
        {99, 1.0, "400.0"},      {100, 0.5, "-30.0"},   {101, 0.0, "-100.0"},   {101, 0.5, "0.0"},
        {102, 0.0, "-oo"},       {102, 0.0316, "-oo"},  {102, 0.5, "-12.0"},    {102, 1.0, "0.0"},
        {104, 1.0, "8000"},      {106, 0.0, "50"},      {128, 0.5, "3.2"},      {129, 1.0, "2500.0"},
        {130, 0.0, "-40.0"},     {131, 0.0, "1.00:1"},  {131, 0.5, "4.0:1"},    {131, 0.9760729, "100:1"},
        {131, 0.976073, "oo:1"}, {132, 1.0, "100%"},    {132, 0.0, " 0%"},      {133, 0.145, "2.9"},
        {134, 0.0, "Off"},       {134, 0.5, "100"},     {135, 1.0, ""},         {160, 0.0, "OUT"},
        {161, 1.0, "18.0"},      {162, 0.0, "1k4"},     {162, 1.0, "28k"},      {166, 0.0, "500"},
        {166, 1.0, "10k"},       {170, 1.0, "2k"},      {174, 0.0, "20.0"},     {174, 1.0, "400"},
        {175, 0.0, "Wide"},      {177, 1.0, "SatOn"},   {208, 1.0, "100.0"},    {209, 0.5, "100"},
        {210, 0.8, "0.0"},       {211, 0.25, "-10.0"},  {212, 0.0, "Off"},      {212, 1.0, "1k"},
        {213, 1.0, "Linked"},    {214, 0.0, "-"},       {217, 0.2, "Mode 3"},   {217, 0.5, "undef"},
        {217, 2.0, "Mode ?"},    {220, 0.5, "50"},      {221, 0.2, "Tape 1"},   {221, -1.0, "Shape ?"},
        {222, 0.5, ""},          {240, 0.5, "100\n%"},  {241, 0.25, "25L"},     {241, 0.5, "C"},
        {241, 1.0, "50R"},       {242, 0.0, "-oo"},     {242, 0.7511, "0.00"},  {242, 1.0, "10.00"},
        {243, 0.625, "Post"},    {423, 0.5, "-6.02"},   {423, 0.00005, "-oo"},  {387, 0.5, ""},
        {438, 0.5, ""},
    });
}

TEST(Displays, SpecialModules)
{
    EXPECT_EQ(moduleValueText(kDeesserCode, 16, moduleDefault(kDeesserCode, 16)), "6k");
    EXPECT_EQ(moduleValueText(kDeesserCode, 17, moduleDefault(kDeesserCode, 17)), "6.00");
    EXPECT_EQ(moduleValueText(kDeesserCode, 19, 0.5), "-6.0");
    EXPECT_EQ(moduleValueText(kDeesserCode, 20, 0.5), "4:1");
    EXPECT_EQ(moduleValueText(kDeesserCode, 5, 0.5), "On");
    EXPECT_EQ(moduleValueText(kDehummerCode, 16, 0.25), "100/50");
    EXPECT_EQ(moduleValueText(kDehummerCode, 16, 0.5), "100/100");
    EXPECT_EQ(moduleValueText(kDehummerCode, 16, 1.0), "0/100");
    EXPECT_EQ(moduleValueText(kDehummerCode, 17, 0.5), "50%");
    EXPECT_EQ(moduleValueText(kDehummerCode, 18, 0.5), "-12.0");
    EXPECT_EQ(moduleValueText(kDehummerCode, 20, 0.5), "0");
    EXPECT_EQ(moduleValueText(kDehummerCode, 20, 0.5025), "+0.05");
    EXPECT_EQ(moduleValueText(kDehummerCode, 20, 0.0), "-10.00");
    EXPECT_EQ(moduleValueText(kMarlowCode, 16, 0.5), "-30.0");
    EXPECT_EQ(moduleValueText(kMarlowCode, 18, 0.5), "632");
    EXPECT_EQ(moduleValueText(kMarlowCode, 19, 0.0), "-24.0dB");
    EXPECT_EQ(moduleValueText(kMarlowCode, 24, 1.0), "Complement");
}

/// Exactly the rows that say so answer "UNDEF" outside 0..1, and none fails on a value that isn't a number.
TEST(Displays, OutsideTheRange)
{
    constexpr ParameterId kChecked[]{32,  34,  40,  42,  65,  68,  69,  70,  71,  73,  128, 129, 130, 132,
                                     133, 134, 161, 162, 165, 166, 169, 170, 173, 174, 176, 210, 212};
    for (ParameterId id = 0; id < kIdCount; ++id) {
        const bool checked = std::ranges::find(kChecked, id) != std::end(kChecked);
        for (const double v :
             {-0.001, 1.001, -1e300, 1e300, std::nan(""), std::numeric_limits<double>::infinity()})
            EXPECT_EQ(parameterDisplay(id, v) == "UNDEF", checked) << id << " at " << v;
    }
}

TEST(Displays, FaderReadOut)
{
    EXPECT_EQ(faderReadOutText(0.0), "-oo");
    EXPECT_EQ(faderReadOutText(-1.0), "-oo");
    EXPECT_EQ(faderReadOutText(0.002), "-oo"); // -86.1 dB
    EXPECT_EQ(faderReadOutText(0.0021), "-85.9");
    EXPECT_EQ(faderReadOutText(0.751), "0.0");
    EXPECT_EQ(faderReadOutText(0.748), "-0.1");
    EXPECT_EQ(faderReadOutText(1.0), "10.0");
}

} // namespace
} // namespace velmora
