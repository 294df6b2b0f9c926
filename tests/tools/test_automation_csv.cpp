#include "tests/support/signals.h"
#include "tools/render/automation_csv.h"
#include "tools/common/user_error.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace velmora::render {
namespace {

std::vector<AutomationLine> parse(const std::string& text)
{
    std::istringstream in(text);
    return parseAutomation(in, "moves.csv");
}

TEST(AutomationCsv, ReadsHeadingCommentsQuotesAndSortsByTime)
{
    const auto lines = parse("\xEF\xBB\xBFtime,name,text\r\n"
                             "# a remark, with commas\r\n"
                             "\r\n"
                             "2.5, Mstr:Gain , -6 \r\n"
                             "0.25,\"EQ:LO Gain\",\"a \"\"b\"\", c\"\n"
                             "2.5,Comp:Mix,100%\n"
                             "1e-3,Pre:Gain,");
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].seconds, 0.001);
    EXPECT_EQ(lines[0].text, "");
    EXPECT_EQ(lines[1].name, "EQ:LO Gain");
    EXPECT_EQ(lines[1].text, "a \"b\", c");
    EXPECT_EQ(lines[1].line, 5);
    EXPECT_EQ(lines[2].name, "Mstr:Gain");
    EXPECT_EQ(lines[2].text, "-6");
    EXPECT_EQ(lines[3].name, "Comp:Mix") << "lines of one time keep their order";
}

TEST(AutomationCsv, RefusesWhatIsNoLineAndNamesIt)
{
    for (const char* bad :
         {"1.0", "1.0,Mstr:Gain", "1,Mstr:Gain,3,4", "-1,Mstr:Gain,0", "abc,Mstr:Gain,0", "1s,Mstr:Gain,0",
          "nan,Mstr:Gain,0", "inf,Mstr:Gain,0", "1e999,Mstr:Gain,0", "1,,0", ",Mstr:Gain,0",
          "1,\"Mstr:Gain,0", "1,\"Mstr:Gain\"x,0", "\"", ",", ",,", ",,,"}) {
        try {
            parse(std::string("0,Pre:Gain,1\n\n") + bad + "\n");
            ADD_FAILURE() << "taken: " << bad;
        } catch (const UserError& error) {
            EXPECT_EQ(std::string(error.what()).rfind("moves.csv:3: ", 0), 0u) << error.what();
        }
    }
}

// Any bytes give either lines with finite times or an error of one printable line.
TEST(AutomationCsv, SurvivesGarbage)
{
    std::mt19937 random(7);
    const std::string likely = "0123456789.,,\"\"\n\r#e-+ tMstr:Gain\xFF";
    int refused = 0;
    for (int round = 0; round < 5000; ++round) {
        std::string text(random() % 60, ' ');
        for (char& c : text)
            c = random() % 8 ? likely[random() % likely.size()] : static_cast<char>(random() % 256);
        try {
            for (const AutomationLine& line : parse(text)) ASSERT_GE(line.seconds, 0.0);
        } catch (const UserError& error) {
            ++refused;
            ASSERT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        }
    }
    EXPECT_GT(refused, 1000);
}

} // namespace
} // namespace velmora::render
