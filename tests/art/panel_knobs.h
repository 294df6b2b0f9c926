#pragma once

#include "params/tables/module_tables.h"

#include <array>
#include <string_view>
#include <vector>

namespace velmora::art {

/// A knob as its panel places it, and the numbers that its panel prints around it.
struct PanelKnob {
    ParameterId offset; ///< in its module's window
    double x;           ///< left of its frame
    double y;           ///< top of its frame
    double frame;       ///< its side
    double body;        ///< radius
    double tip;         ///< radius that numbered ticks reach and fine ones don't
    std::vector<std::string_view> numbers;
};

struct PanelUnderTest {
    std::uint32_t printed;
    std::uint32_t plain; ///< without lettering; 0 where there is none
    Rows rows;
    std::vector<PanelKnob> knobs;
};

inline std::vector<PanelKnob> preampKnobs(double frame, double body, double tip, bool hasAnalogStage)
{
    const double inset = (60 - frame) / 2;
    std::vector<PanelKnob> knobs{
        {16, 46 + inset, 51, frame, body, tip, {"-20", "-10", "0", "10", "20"}},
        {18, 46 + inset, 164, frame, body, tip, {"-25", "-20", "-15", "-10", "-5"}},
    };
    if (hasAnalogStage) {
        knobs.push_back({24, 24 + inset, 330, frame, body, tip, {"-20", "-10", "0", "10", "20"}});
        knobs.push_back({26, 24 + inset, 433, frame, body, tip, {"-110", "-100", "-90", "-80", "-70"}});
    }
    return knobs;
}

inline std::vector<PanelKnob> filterKnobs(bool hasParametric)
{
    std::vector<PanelKnob> knobs{
        {17, 26, 57, 60, 20.5, 27.3, {"1000", "3000", "10000"}},
        {25, 26, 438, 60, 20.5, 27.3, {"50", "100", "200", "500", "1000"}},
    };
    if (hasParametric) {
        knobs.push_back(
            {21, 26, 169, 60, 20.5, 27.3, {"50", "100", "200", "500", "1000", "2000", "5000", "10000"}});
        knobs.push_back({22, 91, 230, 50, 17, 23.2, {"0.1", "0.2", "0.5", "1", "2", "5", "10"}});
        knobs.push_back({20, 26, 281, 60, 20.5, 27.3, {"-18", "-12", "-6", "0", "6", "12", "18"}});
    }
    return knobs;
}

inline std::vector<PanelKnob> dynamicsKnobs(PanelKnob own)
{
    return {
        std::move(own),
        {16, 16, 59, 47, 16.5, 22.8, {"1", "10", "100"}},
        {17, 91, 59, 47, 16.5, 22.8, {"30", "100", "300", "1000"}},
        {20, 17, 270, 60, 21, 27.8, {"-50", "-40", "-30", "-20", "-10"}},
        {21, 16, 382, 47, 16.5, 22.8, {"-50", "0", "50"}},
        {22, 91, 382, 47, 16.5, 22.8, {"-40", "-20", "-10", "-6", "-3"}},
        {24, 38, 475, 25, 8.6, 12, {"70", "200", "700", "2000"}},
        {26, 89, 475, 25, 8.6, 12, {"200", "500", "2000", "5000"}},
    };
}

inline std::vector<PanelKnob> compressorKnobs()
{
    return {
        {16, 14, 155, 50, 17.5, 23.2, {"1", "10"}},
        {17, 89, 155, 50, 17.5, 23.2, {"100", "250", "500", "1000"}},
        {18, 38, 226, 78, 29, 35.8, {"-30", "-20", "-10", "0"}},
        {19, 14, 323, 50, 17.5, 23.2, {"2", "3", "4", "6", "10", "20"}},
        {20, 89, 323, 50, 17.5, 23.2, {"25", "50", "75"}},
        {21, 38, 394, 78, 29, 35.8, {"4", "8", "12", "16"}},
        {22, 27, 495, 25, 8.6, 12.2, {"20", "50", "100", "200", "500"}},
    };
}

/// The gain after the bands, and the high pass of the limiters' key.
inline PanelKnob trimKnob(ParameterId offset, double x, std::vector<std::string_view> numbers)
{
    return {offset, x, 495, 25, 8.6, 12.2, std::move(numbers)};
}

inline std::vector<PanelKnob> sorrelKnobs()
{
    return {
        {18, 44, 60, 66, 27.5, 31.4, {"4000", "6000", "8000", "10000", "14000"}},
        {22, 44, 172, 66, 27.5, 31.4, {"800", "1500", "2500", "4000", "7000"}},
        {26, 44, 284, 66, 27.5, 31.4, {"200", "300", "500", "800", "1300"}},
        {30, 44, 396, 66, 27.5, 31.4, {"50", "70", "100", "140", "230"}},
        trimKnob(32, 27, {"-12", "-6", "0", "6", "12"}),
    };
}

/// Where the knobs are gains alone. @param y of the frame of the highest band
inline std::vector<PanelKnob> gainKnobs(double x, double y, double pitch, double body, double tip)
{
    std::vector<PanelKnob> knobs{trimKnob(32, 27, {"-12", "-6", "0", "6", "12"})};
    for (ParameterId band = 0; band < 4; ++band)
        knobs.push_back({17 + 4 * band, x, y + pitch * band, 66, body, tip, {"-12", "-6", "0", "6", "12"}});
    return knobs;
}

/// Ceiling and output of the limiters, whose frames stand at (x, y) and `pitch` below.
inline std::vector<PanelKnob> limiterKnobs(double x, double y, double frame, double body, double tip,
                                           double pitch = 133)
{
    return {
        {18, x, y, frame, body, tip, {"-30", "-20", "-10", "0"}},
        {19, x, y + pitch, frame, body, tip, {"-10", "0", "10"}},
    };
}

inline PanelKnob limiterKey()
{
    return trimKnob(20, 23, {"20", "50", "100", "200", "500"});
}

inline std::vector<PanelKnob> optoLimiterKnobs()
{
    // As wide as their frames, which reach further down than up.
    auto knobs = limiterKnobs(22, 215.5, 109, 39, 46);
    knobs.push_back({16, 2, 115.5, 73, 23.5, 29.2, {"1", "10"}});
    knobs.push_back({17, 77, 115.5, 73, 23.5, 29.2, {"30", "100", "300"}});
    knobs.push_back(limiterKey());
    return knobs;
}

inline std::vector<PanelKnob> vcaLimiterKnobs()
{
    auto knobs = limiterKnobs(46, 236, 60, 20.5, 27.8);
    knobs.push_back({16, 15, 126, 46, 16, 22.5, {"1", "10"}});
    knobs.push_back({17, 90, 126, 46, 16, 22.5, {"30", "100", "300"}});
    knobs.push_back(limiterKey());
    return knobs;
}

inline std::vector<PanelKnob> brickWallKnobs()
{
    auto knobs = limiterKnobs(46, 237, 60, 20.5, 27.5);
    knobs.push_back({17, 89, 125, 50, 17, 23, {"30", "100", "300"}});
    knobs.push_back({25, 14, 125, 50, 17, 23, {"Mode 2"}});
    return knobs;
}

inline std::vector<PanelKnob> saturatorKnobs()
{
    auto knobs = limiterKnobs(37, 227, 78, 29, 35.8);
    knobs.push_back({28, 13, 122, 50, 17.5, 23, {"25", "50", "75"}});
    knobs.push_back({29, 89, 122, 50, 17.5, 23, {"Valve 2", "Tape 1", "Tape 2", "Soft Clip", "Hard Clip"}});
    knobs.push_back(limiterKey());
    return knobs;
}

inline std::vector<PanelKnob> deesserKnobs()
{
    return {
        {16, 14, 57, 50, 17, 23, {"1000", "2000", "4000", "8000"}},
        {17, 89, 57, 50, 17, 23, {"1", "2", "4", "8"}},
        {18, 24, 157, 60, 20.5, 27.2, {"20", "40", "60", "80"}},
        {19, 24, 270, 60, 20.5, 27.2, {"-12", "-9", "-6", "-3"}},
    };
}

inline std::vector<PanelKnob> dehummerKnobs()
{
    return {
        {16, 29, 57, 50, 17, 23, {"100/100"}},
        {17, 24, 157, 60, 20.5, 27.2, {"20", "40", "60", "80"}},
        {18, 24, 270, 60, 20.5, 27.2, {"-24", "-18", "-12", "-6"}},
        {20, 29, 457, 50, 17, 23, {"-5", "0", "5"}},
    };
}

inline std::vector<PanelKnob> marlowKnobs()
{
    return {
        {16, 16, 56, 60, 20.5, 27.2, {"-60", "-40", "-20", "0"}},
        {17, 107, 89, 25, 8.6, 12.2, {"0.2", "0.5", "1", "2", "5"}},
        {18, 16, 396, 60, 20.5, 27.2, {"50", "100", "200", "500", "1000", "2000", "5000", "10000"}},
        {19, 15, 206, 50, 17, 22.8, {"-12", "0", "12"}},
        {20, 15, 298, 50, 17, 22.8, {"-12", "0", "12"}},
        {21, 107, 430, 25, 8.6, 12.2, {"0.2", "0.5", "1", "2", "5"}},
        {22, 107, 365, 25, 8.6, 12.2, {"4", "8", "12", "16", "20"}},
    };
}

inline std::vector<PanelUnderTest> panelsUnderTest()
{
    const PanelKnob ratio{
        18, 17, 157, 60, 21, 27.8, {"1.1", "1.2", "1.3", "1.5", "1.7", "2", "2.5", "3.2", "5"}};
    const PanelKnob hold{19, 17, 157, 60, 21, 27.8, {"10", "25", "50", "100", "200", "300"}};
    return {
        {31001, 31000, preampRows(), preampKnobs(60, 20.5, 27.7, false)},
        {31104, 31100, preampRows(), preampKnobs(58, 23.5, 29.5, true)},
        {31203, 31200, preampRows(), preampKnobs(60, 21.5, 27.7, true)},
        {31305, 31300, preampRows(), preampKnobs(60, 20.5, 27.7, true)},
        {31401, 31400, preampRows(), preampKnobs(60, 20.5, 27.7, true)},
        {32000, 0, filtersRows(), filterKnobs(false)},
        {32100, 0, filtersRows(), filterKnobs(true)},
        {32200, 0, filtersRows(), filterKnobs(true)},
        {33000, 0, dynamicsRows(), dynamicsKnobs(ratio)},
        {33100, 0, dynamicsRows(), dynamicsKnobs(hold)},
        {33200, 0, dynamicsRows(), dynamicsKnobs(hold)},
        {34006, 34000, compressorRows(), compressorKnobs()},
        {34105, 34100, compressorRows(), compressorKnobs()},
        {34205, 34200, compressorRows(), compressorKnobs()},
        {35000, 0, equalizerRows(), sorrelKnobs()},
        {35100, 0, equalizerRows(), gainKnobs(43, 62, 112, 24, 28.9)},
        {35200, 0, equalizerRows(), gainKnobs(46, 55, 116, 19.5, 25.7)},
        {36006, 36000, limiterRows(), optoLimiterKnobs()},
        {36101, 36100, limiterRows(), vcaLimiterKnobs()},
        {36201, 36200, limiterRows(), brickWallKnobs()},
        {36301, 36300, limiterRows(), saturatorKnobs()},
        {37001, 37000, outputRows(), {}},
        {38000, 0, deesserRows(), deesserKnobs()},
        {38100, 0, dehummerRows(), dehummerKnobs()},
        {38200, 0, marlowRows(), marlowKnobs()},
    };
}

} // namespace velmora::art
