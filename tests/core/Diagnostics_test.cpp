#include "core/Diagnostics.h"

#include "core/CXRandom.h"
#include "files/InGame.h"
#include "platform/debug/RecordingDebugChannel.h"
#include "platform/dialogs/RecordingDialogs.h"

#include <set>

namespace {

class Diagnostics : public test::InGame {
protected:
    Diagnostics() {
        auto channel = std::make_unique<platform::RecordingDebugChannel>();
        channel_ = channel.get();
        world().debugger = std::move(channel);
    }
    ~Diagnostics() override { setMsgBoxFlag(true); }

    std::string heard() { return std::exchange(channel_->written, {}); }

    platform::RecordingDebugChannel * channel_;
};

TEST_F(Diagnostics, WithoutTheOptionNothingIsLogged) {
    CWindow::toLog("note\n", true);
    CXObject().log("note\n", true);
    EXPECT_EQ(heard(), "");
    EXPECT_FALSE(exists("Tarnook.log"));
}

TEST_F(Diagnostics, TheLogIsWrittenAsItIsAndAtOnce) {
    CCommandLine6 withLog("-log");
    CWindow window(nullptr, &withLog, &language_, {800, 600}, nullptr, "", true);
    ASSERT_TRUE(exists("Tarnook.log"));
    std::string head = get("Tarnook.log");
    heard();
    CWindow::toLog("100% of %s and %n\n", true);
    CWindow::toLog("no line end", false);
    CXObject().log("|from an object", false);
    EXPECT_EQ(heard(), "100% of %s and %n\n\n"); // the channel gets a line feed more
    EXPECT_EQ(get("Tarnook.log").substr(head.size()), "100% of %s and %n\nno line end|from an object");
}

TEST_F(Diagnostics, ProfileMeasuresOneStretch) {
    CXObject::profile(nullptr, true);
    EXPECT_EQ(heard(), "");
    CXObject::profile("first", false);
    clock().advance(70);
    std::string name = "loading 50%";
    CXObject::profile(name.c_str(), false); // takes the place of the first
    name = "xxxxxxxxxxx";
    clock().advance(25);
    CXObject::profile(nullptr, true); // the log is off
    EXPECT_EQ(heard(), "Time spend in loading 50%: 25 ms.\n");
    CXObject::profile(nullptr, true);
    EXPECT_EQ(heard(), "");
    CCommandLine6 withLog("-log");
    CWindow window(nullptr, &withLog, &language_, {800, 600}, nullptr, "", true);
    std::size_t head = get("Tarnook.log").size();
    heard();
    CXObject::profile("x", true);
    CXObject::profile(nullptr, true);
    EXPECT_EQ(heard(), "Time spend in x: 0 ms.\n"); // once
    EXPECT_EQ(get("Tarnook.log").substr(head), "Time spend in x: 0 ms.\n");
}

TEST_F(Diagnostics, BoxesObeyTheFlag) {
    auto dialogs = std::make_unique<platform::RecordingDialogs>();
    auto * shown = dialogs.get();
    world().dialogs = std::move(dialogs);
    dispMsgBox(nullptr, "one %d");
    clearMsgBoxFlag();
    EXPECT_FALSE(isMsgBox());
    dispMsgBox(nullptr, "two");
    setMsgBoxFlag(true);
    dispMsgBox(nullptr, "three");
    EXPECT_EQ(shown->texts, (std::vector<std::string>{"one %d", "three"}));
}

TEST_F(Diagnostics, ObjectsCarryTheirCode) {
    CXObject object;
    EXPECT_EQ(object.LastError(), 0);
    EXPECT_FALSE(object.isToDelete());
    object.setErrorCode(2000);
    object.setToDelete();
    object.Type(static_cast<_errtype>(3));
    CXObject copy(object);
    EXPECT_EQ(copy.LastError(), 2000);
    EXPECT_TRUE(copy.isToDelete());
    EXPECT_EQ(copy.GetType(), 3);
    EXPECT_FALSE(copy.equals(&object) || copy.compare(&object));
    EXPECT_EQ(copy.compare(&copy), 1);
    EXPECT_EQ(object.clone(), nullptr);
    EXPECT_EQ(CXObject::swap_word(0x12FF), static_cast<short>(0xFF12));
    EXPECT_EQ(CXObject::swap_dword(0x123456F8), static_cast<int>(0xF8563412U));
}

TEST_F(Diagnostics, ChanceStaysInItsRange) {
    EXPECT_EQ(CXRandom::random(0), 0);
    EXPECT_EQ(CXRandom::random(7, 0), 7);
    std::set<int> seen, moved;
    for (int i = 0; i < 500; i++) {
        seen.insert(CXRandom::random(3));
        moved.insert(CXRandom::random(5, 3));
        int below = CXRandom::random(-4);
        EXPECT_TRUE(below > -4 && below <= 0) << below;
    }
    EXPECT_EQ(seen, (std::set{0, 1, 2}));
    EXPECT_EQ(moved, (std::set{5, 6, 7}));
    // The tick count is part of it.
    world().random->seed(1);
    int first = CXRandom::random(1 << 30);
    clock().advance(100);
    world().random->seed(1);
    EXPECT_EQ(CXRandom::random(1 << 30), first + 100);
}

TEST_F(Diagnostics, ChanceGivesAsManyAsAreAsked) {
    auto drawn = CXRandom::random_vector(10, 100, 100, true);
    std::set<int> all(drawn.begin(), drawn.end());
    EXPECT_EQ(all.size(), 100U);
    EXPECT_EQ(*all.begin(), 10);
    EXPECT_EQ(*all.rbegin(), 109);
    EXPECT_EQ(CXRandom::random_vector(2, 9, 0, true).size(), 7U);
    EXPECT_EQ(CXRandom::random_vector(0, 5, 10000, false).size(), 10000U);
    EXPECT_TRUE(CXRandom::random_vector(0, 5, 10001, false).empty());
    EXPECT_TRUE(CXRandom::random_vector(0, 5, 6, true).empty()); // there aren't that many
    EXPECT_TRUE(CXRandom::random_vector(9, 2, 0, false).empty());
    EXPECT_TRUE(CXRandom::random_vector(0, 5, -1, false).empty());
}

} // namespace
