#include "tests/presets/session_fixtures.h"
#include "tests/presets/undo_model.h"

#include <gtest/gtest.h>

#include <iostream>

namespace velmora::test {
namespace {

using Side = PresetStore::Side;

TEST(PresetSteps, NudgesStopAtTheEndsAndLeaveNoStepThere)
{
    PresetSession session;
    PresetStore& store = session.store;
    EXPECT_EQ(store.position(), (ListPosition{0, 0, 0}));
    session.change(40, 0.77);
    EXPECT_TRUE(store.isDirty());
    store.nudgePrevious();
    EXPECT_EQ(store.position().entry, 0);
    EXPECT_FALSE(store.isDirty());
    EXPECT_NE(store.currentValue(40), 0.77f);
    store.undo(); // only the change was a step
    EXPECT_FALSE(store.canUndo());

    store.selectEntry(233);
    store.nudgeNext();
    EXPECT_EQ(store.position().entry, 234);
    store.nudgeNext();
    EXPECT_EQ(store.position().entry, 234);
    store.undo();
    EXPECT_EQ(store.position().entry, 233);
    store.undo();
    EXPECT_EQ(store.position().entry, 0);
    store.redo();
    store.redo();
    EXPECT_EQ(store.position().entry, 234);
    EXPECT_FALSE(store.canRedo());
    EXPECT_EQ(store.currentName(), "Init");
    EXPECT_TRUE(session.engineFollows());

    store.selectEntry(std::numeric_limits<std::int32_t>::max());
    store.nudgeNext();
    EXPECT_EQ(store.position().entry, 234);
    store.selectEntry(std::numeric_limits<std::int32_t>::min());
    store.nudgePrevious();
    EXPECT_EQ(store.position().entry, 0);
}

TEST(PresetSteps, AnEmptyFolderHasNothingToNudgeTo)
{
    PresetSession session;
    const Preset before = session.current();
    session.store.selectGroup(kGroupUser);
    EXPECT_EQ(session.store.position(), (ListPosition{kGroupUser, 0, -1}));
    EXPECT_EQ(session.store.currentName(), "Default");
    session.store.nudgeNext();
    EXPECT_EQ(session.store.position().entry, -1);
    EXPECT_EQ(session.store.currentName(), "error loading preset");
    EXPECT_EQ(session.current().values, before.values);
    session.store.undo();
    EXPECT_EQ(session.store.position(), (ListPosition{}));
    EXPECT_TRUE(sameBytes(session.current(), before));
    session.store.redo();
    EXPECT_EQ(session.store.position(), (ListPosition{kGroupUser, 0, -1}));
    EXPECT_EQ(session.store.currentName(), "Default");
}

TEST(PresetSteps, UndoGivesBackWhatAMoveReplacedWithItsMark)
{
    PresetSession session;
    session.store.selectEntry(1);
    const Preset loaded = session.current();
    session.change(40, 0.7771);
    session.store.setCurrentName("Mine");
    const Preset edited = session.current();
    session.store.selectGroup(kGroupUser);
    session.user.add("folder/added.qor", randomPreset(3, ""));
    session.store.undo();
    EXPECT_TRUE(sameBytes(session.current(), edited));
    EXPECT_TRUE(session.store.isDirty());
    EXPECT_EQ(session.store.position(), (ListPosition{0, 0, 1}));
    session.store.undo();
    EXPECT_TRUE(sameBytes(session.current(), loaded));
    EXPECT_FALSE(session.store.isDirty());
    session.store.redo();
    session.store.redo(); // into the user's group, which is listed anew
    EXPECT_EQ(session.user.library.entryCount(kGroupUser, 1), 1);
    session.store.selectFolder(1);
    session.store.nudgeNext();
    EXPECT_EQ(session.store.currentName(), "added");
    EXPECT_TRUE(session.engineFollows());
}

TEST(PresetSteps, AFileThatWentAwayLeavesTheValuesAndCanBeUndone)
{
    PresetSession session;
    session.user.add("gone.qor", randomPreset(3, ""));
    session.store.selectGroup(kGroupUser);
    std::filesystem::remove(session.user.root / "gone.qor");
    session.change(40, 0.7771);
    const Preset edited = session.current();
    session.store.selectEntry(0);
    EXPECT_EQ(session.store.currentName(), "error loading preset");
    EXPECT_EQ(session.current().values, edited.values);
    EXPECT_FALSE(session.store.isDirty());
    session.store.undo();
    EXPECT_TRUE(sameBytes(session.current(), edited));
}

TEST(PresetSteps, TheGroupThatIsShownAlreadyLeavesTheHistoryAlone)
{
    PresetSession session;
    for (const std::int32_t entry : {1, 2, 3, 4, 5, 6, 7, 8}) session.store.selectEntry(entry);
    session.store.undo();
    session.store.undo();
    session.store.selectGroup(kGroupApplication);
    EXPECT_EQ(session.store.position().entry, 6);
    EXPECT_TRUE(session.store.canRedo());
    session.store.redo();
    EXPECT_EQ(session.store.position().entry, 7);
    for (int step = 0; step < 6; ++step) {
        EXPECT_TRUE(session.store.canUndo()) << step;
        session.store.undo();
    }
    EXPECT_FALSE(session.store.canUndo());
    EXPECT_EQ(session.store.position().entry, 1);
}

TEST(PresetSteps, AStepOfAnotherThreadNeverSeesHalfAName)
{
    PresetSession session;
    const int before = session.master.claims;
    session.store.setCurrentName("Mine");
    EXPECT_EQ(session.master.claims, before + 1);
}

TEST(CompareSides, EachKeepsItsOwnValuesAndMark)
{
    PresetSession session;
    PresetStore& store = session.store;
    const Preset start = session.current();
    session.change(40, 0.7771);
    const Preset edited = session.current();
    store.selectSide(Side::B);
    EXPECT_FALSE(store.isDirty());
    EXPECT_TRUE(sameBytes(session.current(), start));
    EXPECT_TRUE(session.engineFollows());
    store.selectSide(Side::A);
    EXPECT_TRUE(store.isDirty());
    EXPECT_TRUE(sameBytes(session.current(), edited));

    store.selectSide(Side::B);
    store.selectEntry(2);
    const Preset other = session.current();
    store.copyCompareSide();
    EXPECT_TRUE(sameBytes(store.compareA().snapshot(), other));
    store.selectSide(Side::A);
    EXPECT_FALSE(store.isDirty());
    EXPECT_TRUE(session.engineFollows());
}

TEST(CompareSides, AChunkLoadsBothAndLeavesTheHistory)
{
    PresetSession session;
    session.change(40, 0.7771);
    session.store.selectSide(Side::B);
    Bytes block(18985);
    ASSERT_EQ(session.store.writeChunkBlock(block), block.size());
    session.change(41, 0.3);
    ASSERT_EQ(session.store.readChunkBlock(block), BlockLoad::Loaded);
    EXPECT_EQ(session.store.activeSide(), Side::B);
    EXPECT_TRUE(sameBytes(session.store.compareA().snapshot(), session.store.compareB().snapshot()));
    EXPECT_EQ(session.store.position().entry, -1);
    EXPECT_TRUE(session.store.canUndo());
}

/// The store as its user sees it: two sides, a place in the lists, a history, a clipboard.
class StoreModel {
public:
    struct Record {
        Preset preset, reference;
        bool dirty() const { return preset.values != reference.values; }
    };

    explicit StoreModel(PresetSession& session) : library_(session.user.library)
    {
        sides[0] = sides[1] = {session.current(), session.current()};
    }

    Record& side() { return sides[active]; }

    void change(ParameterId id, double value)
    {
        undo.change(id, value, PresetSession::now, side().preset);
        side().preset.values[static_cast<std::size_t>(id)] = static_cast<float>(value);
    }
    void load()
    {
        library_.loadEntry(place.group, place.folder, place.entry, &side().preset);
        side().reference = side().preset;
    }
    void move(const ListPosition& to, bool loads)
    {
        undo.beginMove(place, side().preset);
        place = to;
        if (loads) load();
        undo.endMove(place);
    }
    void goTo(const ListPosition& to)
    {
        place = to;
        if (to.entry >= 0) load();
    }
    void stepBack()
    {
        if (!undo.canUndo()) return;
        const UndoModel::Step& step = undo.back();
        if (step.isMove) goTo(step.from);
        side().preset = step.before;
    }
    void stepForward()
    {
        if (!undo.canRedo()) return;
        const UndoModel::Step& step = undo.forward();
        if (step.isMove)
            goTo(step.to);
        else
            side().preset = step.after;
    }
    void paste()
    {
        if (!memory) return;
        side() = {*memory, *memory};
        place.entry = -1;
    }

    std::array<Record, 2> sides;
    std::size_t active = 0;
    ListPosition place;
    UndoModel undo;
    std::optional<Preset> memory; ///< of the clipboard

private:
    PresetLibrary& library_;
};

class RandomUser {
public:
    RandomUser(PresetSession& session, std::uint32_t seed) : session_(session), model_(session), random_(seed)
    {
    }

    void act()
    {
        PresetStore& store = session_.store;
        switch (below(12)) {
        case 0:
            return select(below(5));
        case 1:
            model_.move(place(std::max(model_.place.entry - 1, 0)), true);
            return store.nudgePrevious();
        case 2:
            model_.move(place(std::min(model_.place.entry + 1, count() - 1)), true);
            return store.nudgeNext();
        case 3:
        case 4:
            model_.stepBack();
            return store.undo();
        case 5:
            model_.stepForward();
            return store.redo();
        case 6:
            model_.active = static_cast<std::size_t>(below(2));
            return store.selectSide(model_.active == 0 ? Side::A : Side::B);
        case 7:
            model_.sides[1 - model_.active] = model_.side();
            return store.copyCompareSide();
        case 8:
            return below(2) == 0 ? changePlace() : exchange();
        default:
            return change();
        }
    }

    void expectAgreement()
    {
        const PresetStore& store = session_.store;
        ASSERT_TRUE(sameBytes(store.compareA().snapshot(), model_.sides[0].preset));
        ASSERT_TRUE(sameBytes(store.compareB().snapshot(), model_.sides[1].preset));
        ASSERT_TRUE(sameBytes(store.reference().snapshot(), model_.side().reference));
        ASSERT_EQ(store.isDirty(), model_.side().dirty());
        ASSERT_EQ(store.position(), model_.place);
        ASSERT_EQ(store.canUndo(), model_.undo.canUndo());
        ASSERT_EQ(store.canRedo(), model_.undo.canRedo());
        ASSERT_TRUE(session_.engineFollows());
    }

private:
    std::int32_t below(std::uint32_t n) { return static_cast<std::int32_t>(random_() % n); }
    std::int32_t count() const
    {
        return session_.user.library.entryCount(model_.place.group, model_.place.folder);
    }
    ListPosition place(std::int32_t entry) const { return {model_.place.group, model_.place.folder, entry}; }

    void select(std::int32_t entry)
    {
        model_.move(place(entry), true);
        session_.store.selectEntry(entry);
    }
    void change()
    {
        constexpr ParameterId kIds[] = {0, 40, 41, 210};
        constexpr std::uint32_t kWaits[] = {0, 50, 51, 1000};
        const ParameterId id = kIds[below(4)];
        const double value = below(20) * 0.05;
        const std::uint32_t wait = kWaits[below(4)];
        PresetSession::now += wait;
        model_.change(id, value);
        session_.change(id, value, 0);
    }
    void changePlace()
    {
        if (const std::int32_t group = below(3); group != model_.place.group) {
            model_.move({group, 0, -1}, false);
            return session_.store.selectGroup(group);
        }
        const std::int32_t folder = below(3);
        if (folder != model_.place.folder)
            model_.move({model_.place.group, folder, -1}, false);
        else
            model_.move(model_.place, false);
        session_.store.selectFolder(folder);
    }
    void exchange()
    {
        const bool copies = below(2) == 0;
        if (copies) session_.store.copyToClipboard();
        session_.store.pasteFromClipboard();
        if (copies) {
            model_.memory = model_.side().preset;
            model_.memory->name = session_.store.current().name; // tells the time
        }
        model_.paste();
    }

    PresetSession& session_;
    StoreModel model_;
    std::mt19937 random_;
};

TEST(PresetSteps, BehavesAsASimpleModelUnderRandomUse)
{
    for (const std::uint32_t seed : {1U, 2U, 3U}) {
        const TemporaryFolder settings;
        const ScopedEnvironment config("XDG_CONFIG_HOME", settings.path().string());
        PresetSession session;
        for (const char* name : {"a.qor", "b.qor", "sub/c.qor", "sub/d.qor"})
            session.user.add(name, randomPreset(static_cast<std::uint32_t>(name[0]), ""));
        session.user.addBytes("broken.qor", {1, 2, 3});
        session.user.library.scanUserFolder();
        RandomUser random(session, seed);
        for (int step = 0; step < 4000; ++step) {
            random.act();
            random.expectAgreement();
            if (HasFatalFailure()) FAIL() << "seed " << seed << ", step " << step;
        }
    }
}

} // namespace
} // namespace velmora::test
