// What a host gets through the dispatcher.

#include "host/vst24/vst24_effect_wrapper.h"
#include "tests/host/recording_host.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace velmora::vst24::test {
namespace {

class EffectAnswersTest : public ::testing::Test {
protected:
    std::intptr_t call(std::int32_t opcode, std::int32_t index = 0, std::intptr_t value = 0,
                       void* ptr = nullptr, float opt = 0.0f)
    {
        return record->dispatcher(record, opcode, index, value, ptr, opt);
    }
    std::string text(std::int32_t opcode, std::int32_t index = 0)
    {
        char buffer[256] = "untouched";
        call(opcode, index, 0, buffer);
        return buffer;
    }

    PrivateHome home;
    RecordingHost host;
    QORVST24EffectWrapper effect{&RecordingHost::callback};
    AEffect* record = effect.getAeffect();
};

TEST_F(EffectAnswersTest, TheRecord)
{
    EXPECT_EQ(record->magic, kEffectMagic);
    EXPECT_EQ(record->numPrograms, 1);
    EXPECT_EQ(record->numParams, 360);
    EXPECT_EQ(record->numInputs, 4);
    EXPECT_EQ(record->numOutputs, 2);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&record->uniqueID), 4), "MVqQ");
    EXPECT_EQ(record->version, 1200);
    EXPECT_EQ(record->initialDelay, 0);
    constexpr std::int32_t kFlags =
        effFlagsHasEditor | effFlagsCanReplacing | effFlagsProgramChunks | effFlagsCanDoubleReplacing;
    EXPECT_EQ(record->flags, kFlags);
    call(effSetSampleRate, 0, 0, nullptr, 48000.0f);
    EXPECT_EQ(record->flags, kFlags | effFlagsNoSoundInStop);
}

TEST_F(EffectAnswersTest, NamesAndNumbers)
{
    EXPECT_EQ(text(effGetEffectName), "QOR Velmora Mono");
    EXPECT_EQ(text(effGetVendorString), "Qorvane");
    EXPECT_EQ(text(effGetProductString), "QOR Velmora Mono - channel strip emulation");
    EXPECT_EQ(text(effGetProgramName), "Default");
    EXPECT_EQ(text(effGetParamName, 242), "Mstr:Gain");
    EXPECT_EQ(text(effGetParamDisplay, 242), "0.00");
    EXPECT_EQ(text(effGetParamLabel, 242), " dB ");
    EXPECT_EQ(text(effGetParamDisplay, -4), "");
    EXPECT_EQ(text(effGetParamDisplay, 5000), "");
    EXPECT_EQ(call(effGetVendorVersion), 1200);
    EXPECT_EQ(call(effGetVstVersion), 2400);
    EXPECT_EQ(call(effGetPlugCategory), 4);
    EXPECT_EQ(call(effCanBeAutomated, 32), 1);
    EXPECT_EQ(call(effCanBeAutomated, 22), 0);
    const std::vector<std::int32_t> zero{effGetProgram,
                                         effIdentify,
                                         effCanDo,
                                         effGetTailSize,
                                         effSetBypass,
                                         effString2Parameter,
                                         effGetInputProperties,
                                         effGetOutputProperties,
                                         effEditOpen, // of a window that isn't one
                                         effEditClose,
                                         effEditIdle,
                                         effVendorSpecific,
                                         1000,
                                         -1};
    for (const std::int32_t opcode : zero) {
        char buffer[256] = {};
        EXPECT_EQ(call(opcode, 0, 0, buffer), 0) << opcode;
    }
    const std::vector<std::int32_t> buffered{effGetParamName,           effGetEffectName,
                                             effSetProgramName,         effGetChunk,
                                             effGetParameterProperties, effGetProgramNameIndexed,
                                             effSetSpeakerArrangement,  effGetSpeakerArrangement};
    for (const std::int32_t opcode : buffered) EXPECT_EQ(call(opcode), 0) << "null buffer, opcode " << opcode;
}

TEST_F(EffectAnswersTest, SizeOfTheEditorBeforeItOpens)
{
    ERect* rect = nullptr;
    ASSERT_EQ(call(effEditGetRect, 0, 0, &rect), 1);
    EXPECT_EQ(rect->left, 0);
    EXPECT_EQ(rect->top, 0);
    EXPECT_EQ(rect->right, 1515);
    EXPECT_EQ(rect->bottom, 712);
    EXPECT_EQ(call(effEditOpen, 0, 0, nullptr), 0);
}

TEST_F(EffectAnswersTest, ProgramNamesOfTheFirstList)
{
    char buffer[256] = "untouched";
    EXPECT_EQ(call(effGetProgramNameIndexed, 0, -1, buffer), 1);
    EXPECT_STREQ(buffer, "Default");
    EXPECT_EQ(call(effGetProgramNameIndexed, 512, 0, buffer), 1);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(call(effGetProgramNameIndexed, -3, 0, buffer), 1);
    EXPECT_STREQ(buffer, "");
}

TEST_F(EffectAnswersTest, ParameterProperties)
{
    VstParameterProperties properties{};
    EXPECT_EQ(call(effGetParameterProperties, 272, 0, &properties), 1);
    EXPECT_FLOAT_EQ(properties.stepFloat, 0.001f);
    EXPECT_EQ(properties.flags, kVstParameterUsesFloatStep);
    EXPECT_EQ(call(effGetParameterProperties, 116, 0, &properties), 1);
    EXPECT_EQ(properties.flags, kVstParameterUsesFloatStep | kVstParameterIsSwitch);
    EXPECT_EQ(properties.stepFloat, 1.0f);
    EXPECT_STREQ(properties.label, "C:Side ");
    EXPECT_STREQ(properties.shortLabel, "C:Side ");
    EXPECT_EQ(call(effGetParameterProperties, 1 << 30, 0, &properties), 1);
}

TEST_F(EffectAnswersTest, SpeakerArrangements)
{
    const auto asked = [&](int ins, int outs) {
        VstSpeakerArrangement in{}, out{};
        in.numChannels = ins;
        out.numChannels = outs;
        return call(effSetSpeakerArrangement, 0, reinterpret_cast<std::intptr_t>(&in), &out);
    };
    for (const auto& [in, out] : {std::pair(1, 1), std::pair(1, 2), std::pair(2, 2), std::pair(4, 2)})
        EXPECT_EQ(asked(in, out), 1) << in << '/' << out;
    for (const auto& [in, out] : {std::pair(2, 1), std::pair(3, 2), std::pair(4, 4), std::pair(0, 0)})
        EXPECT_EQ(asked(in, out), 0) << in << '/' << out;
}

} // namespace
} // namespace velmora::vst24::test
