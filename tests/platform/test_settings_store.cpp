#include "platform/settings_store.h"
#include "platform/user_folders.h"
#include "tests/support/files.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(SettingsStore, KeepsBytesUnderTheNameInTheKeyFolder)
{
    const TemporaryFolder folder;
    const ScopedEnvironment config("XDG_CONFIG_HOME", folder.path().string());
    const SettingsStore store;
    const Bytes first{0, 1, 0xFF, 0}, second{7};

    EXPECT_FALSE(store.read("QORVelmora: 792"));
    ASSERT_TRUE(store.write("QORVelmora: 792", first));
    EXPECT_EQ(store.read("QORVelmora: 792"), first);
    EXPECT_EQ(readBytes(folder.path() / "Qorvane/QORVelmora/QORVelmora: 792"), first);
    ASSERT_TRUE(store.write("QORVelmora: 792", second));
    EXPECT_EQ(store.read("QORVelmora: 792"), second);
    ASSERT_TRUE(store.write("MemoA", {}));
    EXPECT_EQ(store.read("MemoA"), Bytes{});
}

TEST(SettingsStore, RefusesNamesThatLeaveTheFolderAndValuesThatAreTooLong)
{
    const TemporaryFolder folder;
    const ScopedEnvironment config("XDG_CONFIG_HOME", folder.path().string());
    const SettingsStore store;
    const Bytes value{1};

    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("a/b"), std::string("/etc/x"),
          std::string("a..b"), std::string("a\0b", 3), std::string(300, 'n')}) {
        EXPECT_FALSE(store.write(name, value)) << name;
        EXPECT_FALSE(store.read(name)) << name;
    }
    EXPECT_FALSE(store.write("Long", Bytes(SettingsStore::kMaxBytes + 1)));
    ASSERT_TRUE(store.write("Long", value));
    const auto path = folder.path() / "Qorvane/QORVelmora/Long";
    std::filesystem::resize_file(path, SettingsStore::kMaxBytes + 1);
    EXPECT_FALSE(store.read("Long"));
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_FALSE(store.read("Long"));
    EXPECT_FALSE(store.write("Long", value));
}

TEST(SettingsStore, FallsBackToTheHomeFolderAndFailsQuietlyWithoutOne)
{
    const TemporaryFolder home;
    const SettingsStore store;
    const Bytes value{42};
    {
        const ScopedEnvironment config("XDG_CONFIG_HOME", "relative/folder");
        const ScopedEnvironment homeVariable("HOME", home.path().string());
        ASSERT_TRUE(store.write("MemoA", value));
        EXPECT_EQ(readBytes(home.path() / ".config/Qorvane/QORVelmora/MemoA"), value);
    }
    const ScopedEnvironment config("XDG_CONFIG_HOME", std::nullopt);
    for (const std::optional<std::string>& place :
         {std::optional<std::string>(), std::optional<std::string>(""),
          std::optional<std::string>("there")}) {
        const ScopedEnvironment homeVariable("HOME", place);
        EXPECT_FALSE(store.write("MemoA", value));
        EXPECT_FALSE(store.read("MemoA"));
    }
    writeBytes(home.path() / "file", value);
    const ScopedEnvironment homeVariable("HOME", home.file("file"));
    EXPECT_FALSE(store.write("MemoA", value));
}

TEST(UserFolders, ProfileFolderPrefersUserProfile)
{
    const ScopedEnvironment home("HOME", "/home/somebody");
    const ScopedEnvironment profile("USERPROFILE", "/profiles/somebody");
    EXPECT_EQ(profileFolder(), "/profiles/somebody");
    {
        const ScopedEnvironment empty("USERPROFILE", "");
        EXPECT_EQ(profileFolder(), "/home/somebody");
        const ScopedEnvironment noHome("HOME", std::nullopt);
        EXPECT_EQ(profileFolder(), "");
    }
}

} // namespace
} // namespace velmora::test
