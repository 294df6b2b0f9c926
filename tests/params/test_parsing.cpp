#include "params/catalogue.h"
#include "params/number_text.h"
#include "params/tables/module_tables.h"
#include "params/type_codes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iostream>
#include <random>
#include <set>
#include <string>

namespace velmora {
namespace {

/// One row of any module, or one id of the host.
struct Subject {
    std::string name;
    int steps;
    std::function<std::string(double)> show;
    std::function<std::optional<double>(std::string_view)> parse;
};

std::vector<Subject> allSubjects()
{
    std::vector<Subject> subjects;
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        subjects.push_back({parameterName(id), parameterSteps(id),
                            [id](double v) { return parameterDisplay(id, v); },
                            [id](std::string_view text) { return textToValue(id, text); }});
    for (const std::int32_t code : {kDeesserCode, kDehummerCode, kMarlowCode})
        for (const ParameterRow& row : rowsOfCode(code)) {
            const ParameterId offset = row.offset;
            subjects.push_back(
                {std::string(moduleTypeName(code)).append(" ").append(row.word), row.hostSteps,
                 [code, offset](double v) { return moduleValueText(code, offset, v); },
                 [code, offset](std::string_view text) { return moduleParseText(code, offset, text); }});
        }
    return subjects;
}

/// A shown text either comes back as a value that shows it, or is a zero that must be typed plainly.
TEST(Parsing, ShownTextsComeBackOnEveryStep)
{
    int texts = 0;
    int accepted = 0;
    std::string refusals;
    for (const Subject& subject : allSubjects()) {
        const int steps = subject.steps > 0 ? subject.steps : 1000;
        std::set<std::string> refused;
        for (int i = 0; i <= steps; ++i) {
            const std::string text = subject.show(static_cast<double>(i) / steps);
            if (text.empty()) continue;
            ++texts;
            const auto value = subject.parse(text);
            if (!value) {
                refused.insert(text);
                EXPECT_EQ(readNumber(text), 0.0) << subject.name << " refused " << text;
                EXPECT_NE(text.find('0'), std::string::npos) << subject.name << " refused " << text;
                continue;
            }
            ++accepted;
            EXPECT_GE(*value, 0.0);
            EXPECT_LE(*value, 1.0);
            EXPECT_EQ(subject.show(*value), text) << subject.name << " gave " << *value;
        }
        for (const std::string& text : refused) refusals += "  " + subject.name + ": \"" + text + "\"\n";
    }
    std::cout << "shown texts " << texts << ", accepted " << accepted << ", refused as a bare zero:\n"
              << refusals;
    EXPECT_GT(accepted, 20000);
}

/// What a host keeps of a typed value, in single precision, still shows the number that was typed.
TEST(Parsing, TypedFrequenciesSurviveSinglePrecision)
{
    struct Range {
        ParameterId id;
        int low, high;
    };
    int checked = 0;
    for (const Range range :
         {Range{65, 300, 30000}, Range{69, 20, 20000}, Range{73, 20, 2000}, Range{134, 11, 1000}}) {
        const std::string unit = range.id == 69 ? "Hz" : "";
        for (int hertz = range.low; hertz <= range.high; hertz += hertz < 1000    ? 1
                                                                  : hertz < 10000 ? 10
                                                                                  : 100,
                 ++checked) {
            const auto v = textToValue(range.id, std::to_string(hertz));
            ASSERT_TRUE(v) << hertz;
            EXPECT_EQ(parameterDisplay(range.id, static_cast<float>(*v)), frequencyText(hertz) + unit);
        }
    }
    std::cout << "frequencies checked " << checked << "\n";
}

struct Typed {
    ParameterId id;
    const char* text;
    double value; ///< negative where the text is refused
};
constexpr double kRefused = -1.0;

void expectTyped(std::initializer_list<Typed> cases)
{
    for (const Typed& c : cases) {
        const auto value = textToValue(c.id, c.text);
        ASSERT_EQ(value.has_value(), c.value >= 0.0) << parameterName(c.id) << " from \"" << c.text << "\"";
        if (value) {
            EXPECT_NEAR(*value, c.value, 1e-12) << parameterName(c.id) << " from \"" << c.text << "\"";
        }
    }
}

TEST(Parsing, WordsOfTheRack)
{
    expectTyped({
        {0, "On", 1.0},
        {0, "off", 0.0},
        {0, "2", kRefused},
        {16, "Pre 80s", 4 / 15.0},
        {16, "pre 80S", 4 / 15.0},
        {16, "-", 0.0},
        {16, "Gate", kRefused},
        {48, "S.C. Filters", 0.2},
        {48, "Filters Ext. s.c.", 0.2},
        {192, "Saturator", 0.8},
        {224, "Master Control", 1 / 15.0},
        {256, "Gate", 34 / 255.0},
        {304, "marlow", 115 / 255.0},
        {304, "", kRefused},
        {17, "A", 0.0},
        {305, "i", 1.0},
        {305, "J", kRefused},
        {18, "Mute", 1.0},
        {18, "-", 0.0},
        {19, "on", 1.0},
        {228, "Ext AUX", 1.0},
        {228, "Input", 0.0},
        {261, "monitor", 1.0},
        {261, "Mute", kRefused},
        {22, "1", kRefused},
        {1, "0", kRefused},
        {361, "0", kRefused},
    });
}

TEST(Parsing, NumbersByTheirRows)
{
    expectTyped({
        {32, "12 dB", 0.7},
        {32, "30.1", kRefused},
        {32, "abc", kRefused},
        {32, "abc5", kRefused},
        {32, "-.0", 0.5},
        {68, "Bell", kRefused},
        {102, "loud", kRefused},
        {34, "-30", 0.0},
        {34, "1", kRefused},
        {34, "-36", kRefused},
        {42, "-90", 0.5},
        {42, "abc", kRefused},
        {65, "3k", 0.5},
        {65, "0.3k", 0.0},
        {65, "299", kRefused},
        {69, "632.45553203367586", 0.5},
        {70, "1", 0.5},
        {96, "250", 1.0},
        {98, "1:2", 0.6},
        {98, "2.4", 0.6},
        {98, "1:11", kRefused},
        {98, "0.9", kRefused},
        {99, "100", 0.5},
        {102, "-60", 0.0},
        {102, "oo", 0.0},
        {102, "0", 1.0},
        {102, "-12.041199826559248", 0.5},
        {102, "6", 1.0},
        {104, "8k", 1.0},
        {106, "20001", kRefused},
        {130, "0", 0.8},
        {130, "0.", 0.8},
        {130, "0.0", kRefused},
        {130, "abc", kRefused},
        {131, "oo", 1.0},
        {131, "oo:1", 1.0},
        {131, "93", 1.0},
        {131, "92", std::pow(1.0 - 1.0 / 92.0, 2.4096385542168677)},
        {131, "0.5", kRefused},
        {131, "4:1", std::pow(0.75, 2.4096385542168677)},
        {132, "0%", 0.0},
        {132, "50%", 0.5},
        {132, "x", kRefused},
        {134, "Off", 0.0},
        {134, "k0", 0.0},
        {134, "low", kRefused},
        {134, "0", 0.0},
        {134, "5", kRefused},
        {134, "1k", 1.0},
        {161, "-18", 0.0},
        {161, "0.0", kRefused},
        {209, "0.5", 0.0},
        {209, "0.05", kRefused},
        {209, "1k", 1.0},
        {212, "off", 0.0},
        {212, "100", 0.5},
        {212, "abc", kRefused},
        {210, "0", 0.8},
        {220, "73", 0.73},
        {240, "150", 0.75},
        {240, "201", kRefused},
        {240, "0.0", kRefused},
        {241, "c", 0.5},
        {241, "0.0", 0.5},
        {241, "25L", 0.25},
        {241, "25l", 0.25},
        {241, "-10", 0.4},
        {241, "10", 0.6},
        {241, "10R", 0.6},
        {241, "80R", 1.0},
        {241, "abc", kRefused},
        {241, "hello", kRefused},
        {242, "-oo", 0.0},
        {242, "-101", 0.0},
        {242, "11", 1.0},
        {242, "10", 1.0},
        {242, "0", std::pow(1 / 1.1, 3.003003003003003)},
        {242, "0.00", kRefused},
        {243, "Post", 2 / 3.0},
        {272, "0.25", 0.25},
        {272, "InsertX:0.25", 0.25},
        {272, "InsertY:0.25", 0.25},
        {320, "InsertY: 1", 1.0},
        {320, "x0.25", kRefused},
        {272, "1.01", kRefused},
        {272, "abc", kRefused},
        {222, "0.5", kRefused},
        {33, "1", 1.0},
        {37, "Off", 0.0},
        {33, "0.5", kRefused},
        {36, "up&down", 1.0},
        {41, "Auto Mute", 0.5},
        {71, "Bell", 0.25},
        {163, "narrow", 1.0},
        {217, "Mode 2", 0.1},
        {217, "Mode", 0.0},
        {217, "0", 0.0},
        {221, "Soft", 0.4},
        {221, "Hard Clip", 0.5},
        {221, "nonsense", 0.0},
        {162, "1", 0.0},
        {162, "90k", 1.0},
    });
}

TEST(Parsing, NumbersOfTheSpecialModules)
{
    const auto near = [](std::int32_t code, ParameterId offset, const char* text, double expected) {
        const auto value = moduleParseText(code, offset, text);
        ASSERT_EQ(value.has_value(), expected >= 0.0) << text;
        if (value) {
            EXPECT_NEAR(*value, expected, 1e-9) << text; // the tapers are inverses to 10 places
        }
    };
    near(kDeesserCode, 16, "6k", 0.636715681427498);
    near(kDeesserCode, 17, "6", 0.636715681427498);
    near(kDeesserCode, 19, "-24", 0.0);
    near(kDeesserCode, 20, "4:1", 1.0);
    near(kDehummerCode, 16, "100/50", 0.25);
    near(kDehummerCode, 16, "30\\100", 0.85);
    near(kDehummerCode, 16, "-50", 0.25);
    near(kDehummerCode, 16, "100/101", kRefused);
    near(kDehummerCode, 16, "101/50", kRefused);
    near(kDehummerCode, 19, "50Hz", 0.0);
    near(kDehummerCode, 20, "+0.05", 0.5025);
    near(kDehummerCode, 20, "0.00", kRefused);
    near(kMarlowCode, 17, "1", 0.5);
    near(kMarlowCode, 19, "0", 0.5);
    near(kMarlowCode, 22, "24.1", kRefused);
}

/// A value box takes for 0 what a command line or a host's dialogue has to refuse.
TEST(Parsing, ValueBoxesReadAWordAsZero)
{
    constexpr std::int32_t kPreampCode = 3;
    EXPECT_EQ(moduleParseText(kPreampCode, 16, "abc"), 0.5);
    EXPECT_FALSE(moduleTextToValue(kPreampCode, 16, "abc"));
    EXPECT_EQ(moduleParseText(kDehummerCode, 16, "even"), 0.5);
    EXPECT_FALSE(moduleTextToValue(kDehummerCode, 16, "even"));
    EXPECT_EQ(moduleTextToValue(kDehummerCode, 16, "100/0"), 0.0);
}

/// An equaliser's frequency has no closed inverse: the answer is the first step that reaches what was typed.
TEST(Parsing, EqualizerFrequenciesAreReached)
{
    double farthest = 0.0;
    for (const ParameterId id : {162, 166, 170, 174}) {
        const double low = *readFrequency(parameterDisplay(id, 0.0));
        const double high = *readFrequency(parameterDisplay(id, 1.0));
        for (double hertz = low + 1.0; hertz < high; hertz *= 1.013) {
            const auto v = textToValue(id, std::to_string(hertz));
            ASSERT_TRUE(v);
            const int step = static_cast<int>(std::lround(*v * 540));
            ASSERT_GT(step, 0);
            EXPECT_GE(*readFrequency(parameterDisplay(id, *v)) + 0.001, hertz);
            EXPECT_LT(*readFrequency(parameterDisplay(id, (step - 1) / 540.0)), hertz);
            farthest = std::max(farthest, *readFrequency(parameterDisplay(id, *v)) / hertz - 1.0);
        }
    }
    std::cout << "farthest above the typed frequency " << 100.0 * farthest << " %\n";
}

TEST(Parsing, NoBytesBreakIt)
{
    std::mt19937 random(7);
    const std::string alphabet = "0123456789.-+kKeE:/\\LlRrCcoInsertXY%# \n";
    std::vector<std::string> texts{"",
                                   " ",
                                   "nan",
                                   "-nan",
                                   "inf",
                                   "INFINITY",
                                   "1e999",
                                   "-1e999",
                                   "1e-999",
                                   std::string(100000, '9'),
                                   std::string(100000, ' '),
                                   std::string("\0\0", 2),
                                   "k",
                                   ":",
                                   "/"};
    for (int i = 0; i < 60; ++i) {
        std::string text(random() % 12, ' ');
        for (char& c : text) c = i % 3 ? alphabet[random() % alphabet.size()] : static_cast<char>(random());
        texts.push_back(text);
    }
    int accepted = 0;
    for (const Subject& subject : allSubjects())
        for (const std::string& text : texts) {
            const auto value = subject.parse(text);
            if (!value) continue;
            ++accepted;
            EXPECT_TRUE(*value >= 0.0 && *value <= 1.0) << subject.name << " from " << text;
        }
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        for (const char* text : {"", " ", "nan", "inf", "-Infinity", "1e999"})
            EXPECT_FALSE(textToValue(id, text)) << id << text;
    std::cout << "texts " << texts.size() << ", accepted " << accepted << "\n";
}

} // namespace
} // namespace velmora
