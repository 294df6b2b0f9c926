#include "presets/list_text.h"
#include "presets/preset_file.h"
#include "tests/presets/library_fixtures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <thread>

namespace velmora::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

TEST(FactoryLists, HoldEveryPresetOnceInIdOrderAndFoldersPartThem)
{
    const UserLibrary user;
    EXPECT_EQ(user.folders(kGroupApplication),
              (Names{"All", "Drums", "Bass", "Guitar", "Keys", "Strings", "Wind", "Vocals", "Special"}));
    EXPECT_EQ(user.library.folderCount(kGroupDesigner), 23); // the last designer has no name, so no folder
    const struct {
        std::int32_t group;
        std::set<std::int32_t> inNoFolder;
    } rows[] = {{kGroupApplication, {0, 1, 2, 113, 133, 151, 169, 175, 184, 219, 224, 225, 233, 234}},
                {kGroupDesigner, {}}};
    for (const auto& row : rows) {
        ASSERT_EQ(user.library.entryCount(row.group, 0), 235);
        std::set<std::int32_t> rest;
        for (std::int32_t i = 0; i < 235; ++i) {
            EXPECT_EQ(user.library.findEntry(row.group, 0, i)->factoryId, i);
            rest.insert(i);
        }
        for (std::int32_t folder = 1; folder < user.library.folderCount(row.group); ++folder) {
            std::int32_t last = -1;
            for (std::int32_t i = 0; i < user.library.entryCount(row.group, folder); ++i) {
                const std::int32_t id = user.library.findEntry(row.group, folder, i)->factoryId;
                EXPECT_GT(id, last);
                EXPECT_EQ(rest.erase(last = id), 1u) << id;
            }
        }
        if (!row.inNoFolder.empty()) {
            EXPECT_EQ(rest, row.inNoFolder);
        }
    }
    EXPECT_EQ(user.library.cellName(0, 0, 1), "01. Let's start from scratc");
    EXPECT_EQ(user.library.cellName(0, 0, 10), "10. Nice Warm Kck");
}

TEST(FactoryLists, AnEntryLoadsAsItsPreset)
{
    UserLibrary user;
    for (const std::int32_t index : {0, 2, 234}) {
        Preset out = randomPreset(1, "Before");
        const Preset before = out;
        ASSERT_TRUE(user.library.loadEntry(kGroupApplication, 0, index, &out));
        const Preset expected = makeFactoryPreset(static_cast<std::uint32_t>(index));
        EXPECT_EQ(out.title(), expected.title());
        for (std::size_t id = 0; id < out.values.size(); ++id)
            EXPECT_EQ(out.values[id],
                      isStored(static_cast<ParameterId>(id)) ? expected.values[id] : before.values[id]);
    }
}

TEST(UserFolder, IsMadeLevelByLevel)
{
    const UserLibrary user;
    EXPECT_EQ(user.root, user.home.path() / "Documents/Qorvane/User Presets/QOR Velmora");
    EXPECT_TRUE(fs::is_directory(user.root));
    EXPECT_EQ(user.folders(kGroupUser), Names{"All"});
    EXPECT_EQ(user.library.entryCount(kGroupUser, 0), 0);
    EXPECT_EQ(user.library.folderName(kGroupUser, kMainFolderIndex), "#MAIN FOLDER");
}

TEST(UserFolder, ListsFilesAndOneLevelOfFoldersSortedWithoutCase)
{
    UserLibrary user;
    const Preset preset = randomPreset(1, "Inside");
    for (const char* name :
         {"beta.qor", "Alpha.qor", "alphabet.qor", "x.qor", "CAPITALS.QOR", ".qor", "none.txt",
          "vocals/Lead.qor", "vocals/back.qor", "Drums/beta.qor", "drums 2/Tom.qor", ".hidden/no.qor",
          "Drums/deeper/no.qor", "a folder.qor/in.qor"})
        user.add(name, preset);
    fs::create_directories(user.root / "Drums/another.qor");
    fs::create_symlink(user.root / "x.qor", user.root / "link.qor");
    fs::create_symlink(user.root / "nowhere", user.root / "dangling.qor");
    fs::create_directory_symlink(user.root / "vocals", user.root / "Same vocals");
    user.library.scanUserFolder();

    for (int scan = 0; scan < 3; ++scan) {
        EXPECT_EQ(user.folders(kGroupUser),
                  (Names{"All", "a folder.qor", "Drums", "drums 2", "Same vocals", "vocals"}));
        EXPECT_EQ(user.names(kGroupUser, 0), (Names{"Alpha", "alphabet", "back", "back", "beta", "beta", "in",
                                                    "Lead", "Lead", "link", "Tom", "x"}));
        EXPECT_EQ(user.names(kGroupUser, 2), Names{"beta"});
        EXPECT_EQ(user.names(kGroupUser, 5), (Names{"back", "Lead"}));
        EXPECT_EQ(user.names(kGroupUser, kMainFolderIndex),
                  (Names{"Alpha", "alphabet", "beta", "link", "x"}));
        EXPECT_EQ(user.library.findEntry(kGroupUser, 0, 4)->path, (user.root / "beta.qor").string());
        EXPECT_EQ(user.library.findEntry(kGroupUser, 0, 5)->path, (user.root / "Drums/beta.qor").string());
        user.library.scanUserFolder();
    }
    for (std::int32_t i = 0; i < user.library.entryCount(kGroupUser, 0); ++i) {
        Preset out;
        EXPECT_TRUE(user.library.loadEntry(kGroupUser, 0, i, &out));
        EXPECT_EQ(out.title(), user.library.findEntry(kGroupUser, 0, i)->name);
        EXPECT_TRUE(sameStoredValues(out, preset));
    }
    EXPECT_EQ(user.library.currentFolderIndex(), 0);
    Preset out;
    user.library.loadEntry(kGroupUser, 5, 0, &out);
    EXPECT_EQ(user.library.currentFolderIndex(), 5);

    fs::remove_all(user.root);
    user.library.scanUserFolder();
    EXPECT_EQ(user.folders(kGroupUser), Names{"All"});
    EXPECT_EQ(user.library.entryCount(kGroupUser, 0), 0);
}

TEST(UserFolder, OfTooManyTheFirstByNameAreListed)
{
    UserLibrary user;
    const auto number = [](int i) { return std::to_string(10000 + i); };
    for (int i = 0; i < 5000; ++i) user.addBytes(number(4999 - i) + ".qor", {});
    for (int i = 0; i < 200; ++i) fs::create_directory(user.root / ("folder " + number(i)));
    user.add("folder 10000/first.qor", randomPreset(1, ""));
    user.library.scanUserFolder();
    ASSERT_EQ(user.library.entryCount(kGroupUser, 0), 512);
    EXPECT_EQ(user.names(kGroupUser, kMainFolderIndex).back(), number(511));
    ASSERT_EQ(user.library.folderCount(kGroupUser), 127);
    EXPECT_EQ(user.folders(kGroupUser).back(), "folder " + number(125));
    EXPECT_EQ(user.names(kGroupUser, 1), Names{"first"});
}

TEST(UserFolder, FilesLoadByTheirFullNameAndShowWhatFits)
{
    const std::string longName(200, 'n'), umlauts = "Für Gesänge über ächzenden Bässen, süß";
    const struct {
        std::string file, shown, cell, title;
    } rows[] = {
        {"a 'quoted' \"name\"", "a 'quoted' \"name\"", "a 'quoted' \"name\"", "a 'quoted' \"name\""},
        {"bad \xFF\xC3(\xE2\x82",
         "bad ?"
         "?(??",
         "bad ?"
         "?(??",
         "bad ?"
         "?(??"},
        {"line\nbreak", "line?break", "line?break", "line?break"},
        {longName, std::string(63, 'n'), std::string(32, 'n'), std::string(23, 'n')},
        {umlauts, umlauts, "Für Gesänge über ächzenden B", "Für Gesänge über äc"},
    };
    UserLibrary user;
    std::uint32_t seed = 0;
    for (const auto& row : rows) {
        user.add(row.file + ".qor", randomPreset(++seed, "Inside"));
        user.add(fs::path(row.file + row.file.substr(0, 40)) / (row.file + ".qor"),
                 randomPreset(seed, "Inside"));
    }
    user.library.scanUserFolder();
    std::set<std::string> shownFolders;
    for (const std::string& name : user.folders(kGroupUser)) shownFolders.insert(name);
    seed = 0;
    for (const auto& row : rows) {
        const Preset written = randomPreset(++seed, "");
        int found = 0;
        for (std::int32_t i = 0; i < user.library.entryCount(kGroupUser, 0); ++i) {
            const ListedPreset listed = *user.library.findEntry(kGroupUser, 0, i);
            if (fs::path(listed.path).stem() != row.file) continue;
            ++found;
            EXPECT_EQ(listed.name, row.shown);
            EXPECT_EQ(user.library.cellName(kGroupUser, 0, i).substr(4), row.cell);
            Preset out;
            EXPECT_TRUE(user.library.loadEntry(kGroupUser, 0, i, &out));
            EXPECT_EQ(out.title(), row.title);
            EXPECT_TRUE(sameStoredValues(out, written));
        }
        EXPECT_EQ(found, 2) << row.file;
    }
    EXPECT_TRUE(shownFolders.contains(std::string(67, 'n')));
}

/// What can't be loaded leaves the values alone and shows as the name.
void expectLoadFails(PresetLibrary& library, std::int32_t group, std::int32_t folder, std::int32_t entry)
{
    const Preset before = randomPreset(9, "Before");
    Preset out = before;
    EXPECT_FALSE(library.loadEntry(group, folder, entry, &out));
    EXPECT_EQ(out.title(), "error loading preset");
    EXPECT_EQ(out.values, before.values);
}

TEST(UserFolder, WhatIsNoPresetShowsSoWhenItIsLoaded)
{
    UserLibrary user;
    const std::vector<MalformedBlock> blocks = malformedBlocks();
    for (const MalformedBlock& block : blocks) user.addBytes(block.what + ".qor", block.bytes);
    Bytes bank = writePresetBlock(randomPreset(1, "Bank"));
    bank[4] = 0x38;
    user.addBytes("bank.qor", bank);
    user.library.scanUserFolder();
    ASSERT_EQ(user.library.entryCount(kGroupUser, 0), static_cast<std::int32_t>(blocks.size() + 1));
    for (std::int32_t i = 0; i < user.library.entryCount(kGroupUser, 0); ++i) {
        SCOPED_TRACE(user.library.cellName(kGroupUser, 0, i));
        expectLoadFails(user.library, kGroupUser, 0, i);
    }
    constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
    const std::int32_t places[][3] = {{-1, 0, 0},  {3, 0, 0},    {0, -1, 0},        {0, 9, 0},
                                      {0, 128, 0}, {0, 0, -1},   {0, 0, 235},       {2, 1, 0},
                                      {0, 127, 0}, {0, 0, kFar}, {kFar, kFar, kFar}};
    for (const auto& [group, folder, entry] : places) {
        expectLoadFails(user.library, group, folder, entry);
        EXPECT_EQ(user.library.cellName(group, folder, entry), "");
    }
    EXPECT_EQ(user.library.folderName(3, 0), "");
}

TEST(UserFolder, FilesAndFoldersMayGoOrChangePlacesBetweenScanAndLoad)
{
    UserLibrary user;
    const Preset preset = randomPreset(1, "");
    for (const char* name : {"a.qor", "b.qor", "folder/c.qor", "other/d.qor"}) user.add(name, preset);
    user.library.scanUserFolder();
    ASSERT_EQ(user.library.entryCount(kGroupUser, 0), 4);
    fs::remove(user.root / "a.qor");
    fs::remove(user.root / "b.qor");
    fs::create_directory(user.root / "b.qor");
    fs::remove_all(user.root / "folder");
    writeBytes(user.root / "folder", writePresetBlock(preset));
    fs::rename(user.root / "other", user.root / "moved");
    for (std::int32_t i = 0; i < 4; ++i) expectLoadFails(user.library, kGroupUser, 0, i);
    user.library.scanUserFolder();
    EXPECT_EQ(user.folders(kGroupUser), (Names{"All", "b.qor", "moved"}));
    EXPECT_EQ(user.names(kGroupUser, 0), Names{"d"});
}

TEST(UserFolder, AHomeThatCanHoldNothingGivesEmptyLists)
{
    const TemporaryFolder place;
    writeBytes(place.file("file"), Bytes{1});
    fs::create_directories(place.path() / "halfway/Documents");
    writeBytes(place.file("halfway/Documents/Qorvane"), Bytes{1});
    const auto before = entryCount(place);
    for (const std::string& home : {std::string(), std::string("relative/home"), place.file("file"),
                                    place.file("missing"), place.file("halfway")}) {
        PresetLibrary library(home, ignoreOutput);
        library.scanUserFolder();
        EXPECT_EQ(library.folderCount(kGroupUser), 1) << home;
        EXPECT_EQ(library.entryCount(kGroupUser, 0), 0) << home;
        EXPECT_EQ(library.entryCount(kGroupApplication, 0), 235);
        EXPECT_FALSE(fs::exists(library.userRoot())) << home;
    }
    EXPECT_EQ(entryCount(place), before);
    EXPECT_FALSE(fs::exists("relative"));
}

TEST(UserFolder, AScanTellsADebuggerWhereItLooks)
{
    static std::vector<std::string> lines;
    const TemporaryFolder home;
    const fs::path root = home.path() / "Documents/Qorvane/User Presets/QOR Velmora";
    fs::create_directories(root / "Sub");
    const PresetLibrary library(home.path().string(),
                                [](std::string_view line) { lines.emplace_back(line); });
    const std::string main = root.string() + '\t', sub = (root / "Sub").string() + '\t';
    const std::string first = "Plugin's Main Preset Folder:\t", second = "Looking for *.qor files in:\t";
    EXPECT_EQ(lines, (Names{first, main, second, main, first, main, second, sub}));
}

TEST(UserFolder, InstancesShareOneLibraryWhileOneOfThemScans)
{
    UserLibrary user;
    for (int i = 0; i < 20; ++i) user.add("Sub/" + std::to_string(i) + ".qor", randomPreset(1, ""));
    user.library.scanUserFolder();
    std::atomic<bool> done{false};
    std::thread other([&] {
        while (!done) user.library.scanUserFolder();
    });
    int loaded = 0;
    for (int i = 0; i < 500; ++i) {
        Preset out;
        loaded += user.library.loadEntry(kGroupUser, i % 2, i % 20, &out);
        EXPECT_EQ(user.library.cellName(kGroupUser, 1, 19).substr(0, 4), "19. ");
    }
    done = true;
    other.join();
    EXPECT_EQ(loaded, 500);
    EXPECT_EQ(&initPresetLibrary(), &initPresetLibrary());
}

TEST(ListText, NamesAreOrderedTotally)
{
    const Names sorted{"", "_", "A", "a", "a b", "AB", "ab", "abc", "B", "Z", "Ä", "ä"};
    for (std::size_t i = 0; i < sorted.size(); ++i)
        for (std::size_t j = 0; j < sorted.size(); ++j)
            EXPECT_EQ(namePrecedes(sorted[i], sorted[j]), i < j) << sorted[i] << " / " << sorted[j];
}

TEST(ListText, WhatIsShownIsUtf8WhateverTheBytes)
{
    EXPECT_EQ(shownText("\xF0\x9F\x8E\x9A fader \xE2\x82\xAC", 64), "\xF0\x9F\x8E\x9A fader \xE2\x82\xAC");
    EXPECT_EQ(shownText("\xC0\xAF\xE0\x80\x80\xED\xA0\x80\xF4\x90\x80\x80\xC2\x85\x7F", 64),
              std::string(15, '?'));
    std::mt19937 random(4);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 40, ' ');
        for (char& c : bytes) c = static_cast<char>(random() % 3 ? 0x80 + random() % 0x80 : random() % 0x80);
        const std::string shown = shownText(bytes, 20);
        EXPECT_LE(shown.size(), 20u);
        EXPECT_EQ(shownText(shown, 20), shown);
    }
}

} // namespace
} // namespace velmora::test
