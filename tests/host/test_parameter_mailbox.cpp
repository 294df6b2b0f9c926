#include "host/master/base_audio_processor.h"
#include "host/vst24/parameter_mailbox.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

namespace velmora::vst24 {
namespace {

/// An engine that notes the parameters it gets.
class ListeningEngine : public QORBaseAudioProcessor {
public:
    void processFloat(float**, float**, std::int32_t) override {}
    void processDouble(double**, double**, std::int32_t) override {}
    void processBypassedFloat(float**, float**, std::int32_t) override {}
    void processBypassedDouble(double**, double**, std::int32_t) override {}
    std::int32_t getLatency() const override { return 0; }
    std::int32_t getHalfSampleRate() const override { return 22050; }
    bool setSampleRate(double) override { return true; }
    void reset() override {}
    bool canProcessFloat() const override { return true; }
    bool canProcessDouble() const override { return true; }
    void setParameter(std::int32_t id, double value) override
    {
        heard.emplace_back(id, value);
        if (onParameter) onParameter(id);
    }
    bool getParameter(std::int32_t, double*) override { return false; }

    std::vector<std::pair<std::int32_t, double>> heard;
    std::function<void(std::int32_t)> onParameter;
};

TEST(ParameterMailbox, HandsOverTheLastValueOnceInRisingOrder)
{
    ParameterMailbox mailbox;
    ListeningEngine engine;
    mailbox.post(700, 0.25f);
    mailbox.post(32, 0.1f);
    mailbox.post(0, 1.0f);
    mailbox.post(32, 0.2f);
    mailbox.post(818, 0.5f);
    mailbox.flush(engine);

    const std::vector<std::pair<std::int32_t, double>> expected{
        {0, 1.0}, {32, static_cast<double>(0.2f)}, {700, 0.25}, {818, 0.5}};
    EXPECT_EQ(engine.heard, expected);

    engine.heard.clear();
    mailbox.flush(engine);
    EXPECT_TRUE(engine.heard.empty()) << "nothing has changed since";
}

TEST(ParameterMailbox, TakesAHostValueThatDiffersFromTheExactOneAlone)
{
    ParameterMailbox mailbox;
    mailbox.init(17, 0.125);
    EXPECT_FALSE(mailbox.post(17, 0.125f));
    EXPECT_TRUE(mailbox.postExact(17, 0.5));
    EXPECT_EQ(mailbox.value(17), 0.125f) << "the host's view stays";
    EXPECT_TRUE(mailbox.post(17, 0.125f)) << "the host repeats its value, the engine must follow";
    EXPECT_EQ(mailbox.exactValue(17), 0.125);

    mailbox.postExact(17, 0.75);
    EXPECT_EQ(mailbox.settle(17), 0.125);
    EXPECT_EQ(mailbox.exactValue(17), 0.125) << "what was posted holds against the reaction";
}

TEST(ParameterMailbox, DoubleStartValuesReachTheEngineUnrounded)
{
    ParameterMailbox mailbox;
    ListeningEngine engine;
    mailbox.init(242, 0.7511);
    EXPECT_FALSE(mailbox.post(242, 0.7511f));
    EXPECT_EQ(mailbox.exactValue(242), 0.7511);
}

TEST(ParameterMailbox, AChangeDuringTheFlushIsNeverLost)
{
    ParameterMailbox mailbox;
    ListeningEngine engine;
    mailbox.post(100, 0.5f);
    bool posted = false;
    engine.onParameter = [&](std::int32_t id) {
        if (posted || id != 100) return;
        posted = true;
        mailbox.post(16, 0.3f);  // behind the flush's place
        mailbox.post(100, 0.6f); // at its place
        mailbox.post(300, 0.7f); // ahead of it
    };
    mailbox.flush(engine);
    mailbox.flush(engine);

    double last16 = -1.0, last100 = -1.0, last300 = -1.0;
    for (const auto& [id, value] : engine.heard) {
        if (id == 16) last16 = value;
        if (id == 100) last100 = value;
        if (id == 300) last300 = value;
    }
    EXPECT_EQ(last16, static_cast<double>(0.3f));
    EXPECT_EQ(last100, static_cast<double>(0.6f));
    EXPECT_EQ(last300, static_cast<double>(0.7f));
}

TEST(ParameterMailbox, RepostsAnInsertBehindItsType)
{
    ParameterMailbox mailbox;
    ListeningEngine engine;
    mailbox.post(304, 0.2f);
    mailbox.repostInsert(roleWindow(Role::InsertY));
    mailbox.flush(engine);
    ASSERT_EQ(engine.heard.size(), 1u + 2u + 32u);
    EXPECT_EQ(engine.heard[0].first, 304);
    EXPECT_EQ(engine.heard[1].first, 308);
    EXPECT_EQ(engine.heard[2].first, 309);
    EXPECT_EQ(engine.heard[3].first, 320);
    EXPECT_EQ(engine.heard.back().first, 351);
}

} // namespace
} // namespace velmora::vst24
