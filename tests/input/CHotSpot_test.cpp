#include "input/CHotSpot.h"

#include "graphics/CGraphicsObject.h"
#include "support/InScope.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

// Tells its name and what it was told.
struct Spot : CHotSpot {
    Spot(CWindow * window, std::string name, std::vector<std::string> & told, CXRect rect, int priority,
         CHotSpot * parent = nullptr)
        : CHotSpot(window, parent, kMove, priority, nullptr), name(std::move(name)), told(told) {
        SetActiveRect(rect, kMove, priority);
    }
    int tell(const char * what) {
        told.push_back(name + " " + what);
        if (then) then();
        return answer;
    }
    int OnMouseMove(CXPoint, int, void *) override { return tell("move"); }
    int OnFocusOn(CXPoint, int, void *) override { return tell("on"); }
    int OnFocusOff(CXPoint, int, void *) override { return tell("off"); }
    int OnLButtonDown(CXPoint, int, void *) override { return tell("down"); }
    int OnLButtonUp(CXPoint, int, void *) override { return tell("up"); }
    int OnRButtonDown(CXPoint, int, void *) override { return tell("right"); }
    int OnRButtonUp(CXPoint, int, void *) override { return tell("never"); }
    int OnMButtonDown(CXPoint, int, void *) override { return tell("never"); }
    int OnLButtonDblClk(CXPoint, int, void *) override { return tell("never"); }

    std::string name;
    std::vector<std::string> & told;
    int answer = 0;
    std::function<void()> then;
};

class HotSpots : public test::InScope, public CMouseListener {
protected:
    HotSpots() { window().registerMouseListener(this, 1); }

    std::unique_ptr<Spot> spot(const char * name, CXRect rect, int priority, CHotSpot * parent = nullptr) {
        return std::make_unique<Spot>(&window(), name, told, rect, priority, parent);
    }
    std::string all() {
        std::string text;
        for (const std::string & each : std::exchange(told, {})) text += (text.empty() ? "" : ", ") + each;
        return text;
    }
    std::string move(int x, int y) {
        window().OnMouseMove({x, y}, 0);
        return all();
    }
    std::string press(int x, int y) {
        window().OnLButtonDown({x, y}, 0);
        return all();
    }
    std::string pressRight(int x, int y) {
        window().OnRButtonDown({x, y}, 0);
        return all();
    }
    bool onClick(CXPoint) override {
        told.emplace_back("listener");
        return false;
    }

    std::vector<std::string> told;
};

TEST_F(HotSpots, TheHighestOfThoseHitAndOfEqualsTheFirst) {
    auto low = spot("low", {0, 0, 100, 100}, 1), high = spot("high", {50, 50, 150, 150}, 2),
         twin = spot("twin", {50, 50, 150, 150}, 2);
    EXPECT_EQ(press(10, 10), "low down, listener"); // it didn't take it
    EXPECT_EQ(press(60, 60), "high down, listener");
    EXPECT_EQ(press(50, 100), "high down, listener"); // all edges belong to the rectangle
    EXPECT_EQ(press(151, 0), "listener");
    high->Enable(false);
    EXPECT_EQ(press(60, 60), "twin down, listener");
    twin->setPriority(0);
    low->answer = 1;
    EXPECT_EQ(press(60, 60), "low down");
    auto child = spot("child", {0, 0, 100, 100}, 9, high.get());
    EXPECT_EQ(press(10, 10), "low down"); // its parent is off
    high->Enable(true);
    EXPECT_EQ(press(10, 10), "child down, listener");
    high->Enable(false);
    high.reset(); // a parent that went leaves the child on its own
    EXPECT_EQ(press(10, 10), "child down, listener");
}

TEST_F(HotSpots, ComingAndGoing) {
    auto under = spot("under", {0, 0, 100, 100}, 1), over = spot("over", {50, 0, 100, 100}, 2);
    EXPECT_EQ(move(10, 10), "under move, under on");
    EXPECT_EQ(move(11, 10), "under move");
    // It is still over the lower one too.
    EXPECT_EQ(move(60, 10), "over move, over on");
    EXPECT_EQ(move(200, 200), "under off, over off");
    EXPECT_EQ(move(201, 200), "");
    EXPECT_EQ(move(60, 10), "over move, over on");
    window().OnLButtonUp({60, 10}, 0);
    EXPECT_EQ(all(), "over up");
    EXPECT_EQ(move(60, 10), "over move, over on"); // letting go began anew
    // Whoever takes the leaving ends it for the others.
    EXPECT_EQ(move(10, 10), "over off, under move, under on");
    EXPECT_EQ(move(60, 10), "over move, over on");
    under->answer = 1;
    EXPECT_EQ(move(200, 200), "under off");
    EXPECT_EQ(move(200, 201), "over off");
}

// Outside the bounds a hot spot is as it was, until it is inside again.
TEST_F(HotSpots, Bounds) {
    auto five = spot("five", {0, 0, 100, 100}, 5);
    EXPECT_EQ(move(1, 1), "five move, five on");
    CHotSpot::setMinPriority(6);
    EXPECT_EQ(move(200, 1), "");
    EXPECT_EQ(press(1, 1), "listener");
    CHotSpot::setMinPriority(5);
    CHotSpot::setMaxPriority(5);
    EXPECT_EQ(move(1, 1), "five move");
    CHotSpot::setMaxPriority(4);
    EXPECT_EQ(move(200, 1), "");
    CHotSpot::setMaxPriority(CHotSpot::kHighest);
    EXPECT_EQ(move(200, 1), "five off");
}

TEST_F(HotSpots, TheRightButtonGoesDownTheList) {
    auto low = spot("low", {0, 0, 100, 100}, 1), high = spot("high", {0, 0, 100, 100}, 2),
         third = spot("third", {0, 0, 100, 100}, 3);
    high->answer = 1;
    EXPECT_EQ(pressRight(5, 5), "low right, high right");
    EXPECT_EQ(move(200, 0), "low off, high off");
    // Nobody is asked of these.
    window().OnRButtonUp({5, 5}, 0);
    window().OnMButtonDown({5, 5}, 0);
    window().OnMButtonUp({5, 5}, 0);
    window().OnLButtonDblClk({5, 5}, 0);
    EXPECT_EQ(all(), "");
}

TEST_F(HotSpots, AHandlerMayEndAnyOfThem) {
    auto first = spot("first", {0, 0, 100, 100}, 1), second = spot("second", {0, 0, 100, 100}, 2),
         third = spot("third", {0, 0, 100, 100}, 3);
    first->then = [&] { second.reset(); };
    EXPECT_EQ(pressRight(5, 5), "first right, third right");
    third->then = [&] { first.reset(); };
    EXPECT_EQ(move(500, 5), "first off, third off");
    third->then = [&] { CHotSpot::remove(third.get()); };
    EXPECT_EQ(move(5, 5), "third move"); // and no focus
}

// A pixel object's region is its box, or with the pixel test what isn't clear of it; it may end.
TEST_F(HotSpots, APixelObjectAsRegion) {
    auto picture = std::make_unique<CGraphicsObject>(&window());
    picture->alloc({4, 4}, 16, true);
    std::fill_n(picture->GetChannelAlpha(), 16, '\0');
    picture->GetChannelAlpha()[5] = 1; // 1, 1
    picture->SetPosition(10, 10);
    auto over = spot("over", {}, 1);
    EXPECT_EQ(press(11, 11), "listener");
    over->Set(picture.get(), true);
    EXPECT_EQ(press(10, 10), "listener");
    EXPECT_EQ(press(11, 11), "over down, listener");
    over->Set(picture.get(), false);
    EXPECT_EQ(press(10, 10), "over down, listener");
    over->SetActiveRect({0, 0, 5, 5}, CHotSpot::kMove, 1); // goes before
    EXPECT_EQ(press(10, 10), "listener");
    over->Set(picture.get(), false);
    picture.reset();
    EXPECT_EQ(press(10, 10), "listener");
}

} // namespace
