#include "tools/render/automation_plan.h"
#include "tools/render/parameter_text.h"
#include "tools/common/user_error.h"

#include <gtest/gtest.h>

namespace velmora::render {
namespace {

std::string refusal(const std::string& assignment)
{
    try {
        ParameterTexts().resolveAssignment(assignment);
    } catch (const UserError& error) {
        return error.what();
    }
    return "";
}

TEST(ParameterText, ResolvesNamesAndTexts)
{
    ParameterTexts texts;
    const ParameterChange gain = texts.resolveAssignment("Pre:Gain=-12");
    EXPECT_EQ(gain.id, 32);
    EXPECT_NEAR(gain.value, 0.3, 1e-12);
    EXPECT_EQ(texts.resolveAssignment("Flt:LPF In=Out").value, 0.0);
    EXPECT_EQ(texts.resolveAssignment("Lim:Type=Saturator").id, 192);
}

TEST(ParameterText, TakesEveryZeroButNoUnknownWordForIt)
{
    for (const char* zero : {"0", "0.0", "-0", "0 dB", "0.00dB"})
        EXPECT_EQ(ParameterTexts().resolve("Comp:Makeup Gain", zero).value, 0.0) << zero;
    for (const char* word :
         {"Pre:Gain=loud", "Gate:Shape=round", "EQ:HI Freq=high", "Comp:HPF=low", "Lim:Shape=square",
          "Lim:Mode=Mode 9", "Pre:Drive=", "Pre:Drive=nan", "Mstr:Balance=hello"})
        EXPECT_NE(refusal(word), "") << word;
    EXPECT_EQ(ParameterTexts().resolve("Comp:HPF", "off").value, 0.0);
    EXPECT_EQ(ParameterTexts().resolve("Mstr:Gain", "-oo").value, 0.0);
    EXPECT_EQ(ParameterTexts().resolve("Flt:LPF In", "Off").value, 0.0);
    EXPECT_EQ(ParameterTexts().resolve("Pre:Type", "Off").value, 0.0);
    EXPECT_NEAR(ParameterTexts().resolve("Lim:Shape", "Tape 2").value, 0.3, 1e-12);
}

TEST(ParameterText, SaysWhatWouldBeRight)
{
    EXPECT_NE(refusal("Mstr:Gian=-6").find("\"Mstr:Gain\""), std::string::npos) << refusal("Mstr:Gian=-6");
    EXPECT_NE(refusal("comp:treshold=-6").find("\"Comp:Threshold\""), std::string::npos);
    EXPECT_NE(refusal("Pre:Gain=loud").find("-30.0 to 30.0"), std::string::npos) << refusal("Pre:Gain=loud");
    EXPECT_NE(refusal("Flt:HPF Slope=13").find("12, 18, 24"), std::string::npos)
        << refusal("Flt:HPF Slope=13");
    EXPECT_NE(refusal("Pre:AutoIn=maybe").find("Off, On"), std::string::npos) << refusal("Pre:AutoIn=maybe");
    EXPECT_NE(refusal("InsX:Type=Flanger").find("De-esser"), std::string::npos)
        << refusal("InsX:Type=Flanger");
    EXPECT_NE(refusal("Comp:GRMeter=0").find("can't be set"), std::string::npos);
    EXPECT_NE(refusal("Mstr:Gain").find("Mstr:Gain=-6"), std::string::npos);
    EXPECT_NE(refusal("=3"), "");
    EXPECT_NE(refusal(""), "");
}

// Every text that a message or the list offers is one that the parameter takes.
TEST(ParameterText, OffersOnlyWhatItTakes)
{
    for (const ParameterId id : settableParameters()) {
        const std::string offered = acceptedTexts(id);
        EXPECT_FALSE(offered.empty()) << parameterName(id);
        const std::string first = offered.substr(0, std::min(offered.find(", "), offered.find(" to ")));
        EXPECT_NO_THROW(ParameterTexts().resolve(parameterName(id), first)) << " offers \"" << first << "\"";
    }
}

// The text of an insert's own parameter is in the units of the module that the insert holds at that moment.
TEST(ParameterText, FollowsTheModuleInAnInsert)
{
    ParameterTexts texts;
    EXPECT_TRUE(texts.resolveAssignment("InsX:Type=De-esser").value > 0.0);
    const ParameterChange frequency = texts.resolveAssignment("InsX:Prm01=4k");
    EXPECT_EQ(frequency.id, 272);
    EXPECT_NEAR(frequency.value, moduleParseText(kDeesserCode, 16, "4k").value(), 1e-12);
    try {
        texts.resolveAssignment("InsX:Prm01=high");
        ADD_FAILURE() << "taken";
    } catch (const UserError& error) {
        EXPECT_NE(std::string(error.what()).find("500 to 16k"), std::string::npos) << error.what();
    }
    texts.resolveAssignment("InsX:Type=De-hummer");
    EXPECT_NEAR(texts.resolveAssignment("InsX:Prm03=-48").value, 0.0, 1e-12);

    EXPECT_THROW(texts.resolveAssignment("InsX:Prm01=even"), UserError);
    texts.resolveAssignment("InsX:Type=Pre 70s"); // its switches show no text
    EXPECT_EQ(texts.resolveAssignment("InsX:Prm02=On").value, 1.0);

    texts.follow(304, kMarlowCode / 255.0);
    EXPECT_NEAR(texts.resolveAssignment("InsY:Prm01=-30").value, 0.5, 1e-12);
}

TEST(AutomationPlanTest, PutsChangesOnSamplesAndNamesBadLines)
{
    const std::vector<AutomationLine> lines{{2, 0.0, "Pre:Gain", "30"},
                                            {3, 0.5, "InsX:Type", "De-esser"},
                                            {4, 0.50001, "InsX:Prm01", "500"},
                                            {5, 1e300, "Pre:Gain", "0"}};
    AutomationPlan plan(lines, "moves.csv", ParameterTexts(), 44100.0);
    std::vector<ParameterId> done;
    const auto note = [&](const ParameterChange& change) { done.push_back(change.id); };
    plan.applyUpTo(0, note);
    EXPECT_EQ(done, std::vector<ParameterId>{32});
    EXPECT_EQ(plan.nextPosition(), 22050);
    plan.applyUpTo(22050, note);
    plan.applyUpTo(22050, note);
    EXPECT_EQ(done, (std::vector<ParameterId>{32, 256, 272}));
    EXPECT_EQ(plan.left(), 1u);

    try {
        AutomationPlan({{7, 0.0, "Pre:Gian", "1"}}, "moves.csv", ParameterTexts(), 44100.0);
        ADD_FAILURE() << "taken";
    } catch (const UserError& error) {
        EXPECT_EQ(std::string(error.what()).rfind("moves.csv:7: ", 0), 0u) << error.what();
    }
}

} // namespace
} // namespace velmora::render
