#include "platform/settings_store.h"
#include "presets/save_dialog.h"
#include "tests/presets/session_fixtures.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <sys/wait.h>
#include <unistd.h>

namespace velmora::test {
namespace {

std::string digitsAsZeros(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return c >= '0' && c <= '9'; }, '0');
    return text;
}

class Clipboard : public ::testing::Test {
protected:
    void put(const Bytes& bytes) { ASSERT_TRUE(SettingsStore().write("MemoA", bytes)); }
    Bytes stored() { return SettingsStore().read("MemoA").value_or(Bytes{}); }

    TemporaryFolder settings;
    ScopedEnvironment config{"XDG_CONFIG_HOME", settings.path().string()};
    PresetSession session;
};

TEST_F(Clipboard, TwoInstancesShareIt)
{
    PresetSession other;
    session.change(40, 0.7771);
    session.store.copyToClipboard();
    EXPECT_TRUE(session.store.isDirty());
    EXPECT_EQ(session.store.currentName(), "Default");

    other.change(41, 0.1);
    other.store.pasteFromClipboard();
    EXPECT_TRUE(sameStoredValues(other.current(), session.current()));
    EXPECT_EQ(digitsAsZeros(other.store.currentName()), "clipboard 00:00:00");
    EXPECT_FALSE(other.store.isDirty());
    EXPECT_EQ(other.store.position().entry, -1);
    EXPECT_TRUE(other.engineFollows());
    EXPECT_EQ(stored(), other.store.writePresetBlock(other.current()));
    other.store.nudgeNext();
    EXPECT_EQ(other.store.position().entry, 0);
}

TEST_F(Clipboard, TwoProcessesShareIt)
{
    const pid_t child = ::fork();
    if (child == 0) {
        session.change(40, 0.7771);
        session.store.copyToClipboard();
        ::_exit(0);
    }
    ASSERT_GT(child, 0);
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    session.store.pasteFromClipboard();
    EXPECT_EQ(session.store.currentValue(40), 0.7771f);
}

TEST_F(Clipboard, WhatIsMissingOrDamagedChangesNothing)
{
    session.store.selectEntry(2);
    session.change(40, 0.7771);
    const Preset before = session.current();
    const std::size_t sent = session.master.sent.size();
    session.store.pasteFromClipboard();
    std::vector<MalformedBlock> blocks = malformedBlocks();
    Bytes sibling = writePresetBlock(randomPreset(3, "Sibling"));
    sibling[0] = 'S';
    blocks.push_back({"the sibling's", sibling});
    for (const MalformedBlock& block : blocks) {
        put(block.bytes);
        session.store.pasteFromClipboard();
        EXPECT_TRUE(sameBytes(session.current(), before)) << block.what;
    }
    EXPECT_TRUE(session.store.isDirty());
    EXPECT_EQ(session.store.position().entry, 2);
    EXPECT_EQ(session.master.sent.size(), sent);

    // Nor does a part of them show up in what is pasted next.
    Bytes headAlone = writePresetBlock(randomPreset(3, "Head"));
    headAlone.resize(kRecordsAt + kHeadRecord);
    putWord(headAlone, kCountAt, 1);
    putWord(headAlone, kSizeAt, kHeadRecord);
    put(headAlone);
    session.store.pasteFromClipboard();
    EXPECT_EQ(session.store.currentName(), "Head");
    EXPECT_TRUE(sameStoredValues(session.current(), makeFactoryPreset(0)));
}

TEST_F(Clipboard, ABlockOfAnotherKindPastesWhatWasThereLast)
{
    Bytes block = writePresetBlock(randomPreset(3, "Swapped"));
    swapBlock(block);
    put(block);
    session.store.pasteFromClipboard();
    EXPECT_TRUE(sameStoredValues(session.current(), randomPreset(3, "")));
    session.store.selectEntry(1);
    put({'M', 'V', 'q', 'Q', 0x38});
    session.store.pasteFromClipboard();
    EXPECT_EQ(session.store.currentName(), "Swapped");
    EXPECT_TRUE(sameStoredValues(session.current(), randomPreset(3, "")));
}

TEST_F(Clipboard, WithoutAPlaceToKeepItNothingHappens)
{
    const ScopedEnvironment noConfig("XDG_CONFIG_HOME", std::nullopt);
    const ScopedEnvironment noHome("HOME", std::nullopt);
    const Preset before = session.current();
    session.store.copyToClipboard();
    session.store.pasteFromClipboard();
    EXPECT_TRUE(sameBytes(session.current(), before));
}

class AnsweringDialog final : public SaveDialog {
public:
    std::optional<std::string> askForPath(const SaveRequest& request) override
    {
        asked = request;
        return answer;
    }
    SaveRequest asked;
    std::optional<std::string> answer;
};

TEST(SavePreset, AsksForAPathAndListsWhatItSaved)
{
    PresetSession session;
    session.change(40, 0.7771);
    session.store.setCurrentName("Take 1/2");
    AnsweringDialog dialog;
    EXPECT_FALSE(session.store.saveCurrentPreset(dialog));
    EXPECT_EQ(dialog.asked.title, "Save preset");
    EXPECT_EQ(dialog.asked.directory, session.user.library.userRoot());
    EXPECT_EQ(dialog.asked.suggestedName, "Take 1-2.qor");
    EXPECT_EQ(dialog.asked.typeName, "QOR Preset");
    EXPECT_EQ(dialog.asked.extension, "qor");
    session.store.setCurrentName("Loaded.qor"); // as some other program may have named it
    EXPECT_FALSE(session.store.saveCurrentPreset(dialog));
    EXPECT_EQ(dialog.asked.suggestedName, "Loaded.qor");
    session.store.setCurrentName("");
    for (const char* name : {"plain", "Take 1.5", "given.qor", "loud.QOR"}) {
        dialog.answer = (session.user.root / name).string();
        EXPECT_TRUE(session.store.saveCurrentPreset(dialog));
    }
    EXPECT_EQ(dialog.asked.suggestedName, "current.qor");
    EXPECT_EQ(session.user.names(kGroupUser, 0),
              (std::vector<std::string>{"given", "loud", "plain", "Take 1.5"}));
    const Preset saved = session.current();
    session.store.selectGroup(kGroupUser);
    session.store.selectEntry(3);
    EXPECT_EQ(session.store.currentName(), "Take 1.5");
    EXPECT_TRUE(sameStoredValues(session.current(), saved));
}

TEST(SavePreset, WhatCannotBeWrittenLosesNothing)
{
    PresetSession session;
    std::filesystem::create_directory(session.user.root / "folder.qor");
    const Preset before = session.current();
    AnsweringDialog dialog;
    for (const std::string& answer : {std::string(), (session.user.root / "folder").string(),
                                      (session.user.root / "missing/preset").string(),
                                      (session.user.root / std::string(300, 'n')).string()}) {
        dialog.answer = answer;
        EXPECT_FALSE(session.store.saveCurrentPreset(dialog)) << answer;
    }
    EXPECT_TRUE(sameBytes(session.current(), before));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(session.user.root), {}), 1);
}

TEST(ShowFolder, TellsTheUserWhenItCannotBeOpened)
{
    const TemporaryFolder empty;
    const ScopedEnvironment noPrograms("PATH", empty.path().string());
    ::testing::internal::CaptureStderr();
    showFolder(empty.file("missing"));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              empty.file("missing") + ": Could not open user's preset folder\n");
    ::testing::internal::CaptureStderr();
    showFolder(empty.path().string()); // there is no file browser: nobody's fault
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace velmora::test
