#include "core/CXTimer.h"

#include "app/CUnit6.h"
#include "core/CPublicTrash.h"
#include "files/InGame.h"

#include <functional>
#include <string>
#include <vector>

namespace {

// Writes down who fired, and may act on it.
struct Notes : CTimerNotificator {
    void onTimer(int id) override {
        fired += std::to_string(id) + " ";
        if (act) act(id);
    }
    std::string take() { return std::exchange(fired, {}); }

    std::string fired;
    std::function<void(int)> act;
};

class CXTimers : public test::InGame {
protected:
    std::string pass(unsigned milliseconds) {
        clock().advance(milliseconds);
        timer_.domodal();
        return notes_.take();
    }

    Notes notes_;
    CXTimer timer_;
};

TEST_F(CXTimers, FireInOrderOfAddOnceAPass) {
    timer_.add(2, 100, &notes_);
    timer_.add(1, 50, &notes_);
    timer_.add(3, 0, &notes_);
    EXPECT_EQ(pass(0), "3 ");
    EXPECT_EQ(pass(49), "3 ");
    EXPECT_EQ(pass(1), "1 3 "); // at the very millisecond
    EXPECT_EQ(pass(50), "2 1 3 ");
    EXPECT_EQ(pass(1000), "2 1 3 "); // what was missed is lost
    EXPECT_EQ(pass(49), "3 ");
    EXPECT_EQ(timer_.find(1)->ticks, 3);
    EXPECT_EQ(timer_.find(2)->ticks, 2);
}

// A message box in a delivery may let the timers run on: the pass inside deletes nothing that the outer one
// still holds.
TEST_F(CXTimers, APassInsideAPass) {
    timer_.add(1, 10, &notes_);
    timer_.add(2, 10, &notes_);
    timer_.add(3, 10, &notes_);
    bool isInside = false;
    notes_.act = [&](int id) {
        if (id != 1 || std::exchange(isInside, true)) return;
        timer_.remove(2);
        clock().advance(10);
        timer_.domodal();
    };
    EXPECT_EQ(pass(10), "1 1 3 ");
    notes_.act = nullptr;
    EXPECT_EQ(timer_.find(2), nullptr);
    EXPECT_EQ(pass(10), "1 3 ");
}

TEST_F(CXTimers, TheIntervalCountsFromTheEndOfADelivery) {
    timer_.add(1, 100, &notes_);
    notes_.act = [&](int) { clock().advance(30); };
    EXPECT_EQ(pass(100), "1 ");
    EXPECT_EQ(pass(99), "");
    EXPECT_EQ(pass(1), "1 ");
}

TEST_F(CXTimers, ChangeInsideADelivery) {
    timer_.add(1, 10, &notes_);
    timer_.add(2, 10, &notes_);
    timer_.add(3, 10, &notes_);
    notes_.act = [&](int id) {
        if (id != 1 && id != 2) return;
        if (id == 1) timer_.remove(2); // stands behind in this pass
        timer_.remove(id);
        timer_.add(id + 10, 0, &notes_); // for the next one
    };
    EXPECT_EQ(pass(10), "1 3 ");
    EXPECT_EQ(timer_.find(1), nullptr);
    EXPECT_EQ(timer_.find(2), nullptr);
    EXPECT_EQ(pass(0), "11 ");
    notes_.act = [&](int id) {
        timer_.remove(id); // and the same id anew
        timer_.add(id, 5, &notes_);
    };
    EXPECT_EQ(pass(10), "3 11 ");
    EXPECT_EQ(pass(4), "");
    EXPECT_EQ(pass(1), "3 11 ");
}

TEST_F(CXTimers, OfTwoWithOneIdTheFirstIsMeant) {
    timer_.add(1, 10, &notes_);
    timer_.add(1, 20, &notes_);
    EXPECT_EQ(timer_.find(1)->interval, 10U);
    timer_.remove(1);
    EXPECT_EQ(timer_.find(1)->interval, 20U);
    EXPECT_EQ(timer_.find(7), nullptr);
    timer_.remove(7);
    timer_.reset(7);
    EXPECT_EQ(pass(20), "1 ");
}

TEST_F(CXTimers, PauseKeepsWhatIsLeftOfTheInterval) {
    timer_.add(1, 100, &notes_);
    clock().advance(60);
    timer_.pause();
    clock().advance(1000);
    timer_.resume();
    EXPECT_EQ(pass(39), "");
    EXPECT_EQ(pass(1), "1 ");
    clock().advance(60);
    timer_.reset(1);
    EXPECT_EQ(pass(99), "");
    EXPECT_EQ(pass(1), "1 ");
}

TEST_F(CXTimers, CanBeStoppedAsAWhole) {
    timer_.add(1, 10, &notes_);
    CXTimer::enable(false);
    EXPECT_EQ(pass(50), "");
    timer_.remove(1);
    timer_.add(2, 10, &notes_);
    CXTimer::enable(true);
    EXPECT_EQ(pass(10), "2 ");
}

TEST_F(CXTimers, TheClockWraps) {
    // Nearly 2^32 milliseconds on: the count of a tick starts anew.
    clock().advance(0xFFFFFFFFU - 1000 - 50);
    timer_.add(1, 100, &notes_);
    EXPECT_EQ(pass(0), "");
    EXPECT_EQ(pass(99), "");
    EXPECT_EQ(pass(1), "1 ");
    EXPECT_EQ(pass(99), "");
}

TEST_F(CXTimers, AUnitIsToldWhileItIsActive) {
    struct Unit : CUnit6 {
        using CUnit6::CUnit6;
        void onTimer(int id) override { told += std::to_string(id) + " "; }
        std::string told;
    } unit(&window_, "UNIT");
    timer_.add(1, 10, &unit, true);
    timer_.add(2, 10, &unit, false);
    pass(10);
    EXPECT_EQ(std::exchange(unit.told, {}), "2 ");
    EXPECT_EQ(timer_.find(1)->ticks, 1); // it fell due all the same
    unit.setActivity(true);
    pass(5);
    EXPECT_EQ(unit.told, "");
    pass(5);
    EXPECT_EQ(unit.told, "1 2 ");
}

TEST_F(CXTimers, AWindowIsTold) {
    struct Window : CWindow {
        using CWindow::CWindow;
        int OnTimer(int id) override { return told = id; }
        int told = 0;
    } window(nullptr, &commandLine_, &language_, {800, 600}, nullptr, "", true);
    timer_.add(42, 10, &window);
    pass(10);
    EXPECT_EQ(window.told, 42);
}

struct Alive : CXObject {
    explicit Alive(int & count, CPublicTrash * trash = nullptr) : count_(count), trash_(trash) { count_++; }
    ~Alive() override {
        count_--;
        if (trash_) trash_->add(new Alive(count_));
    }
    int & count_;
    CPublicTrash * trash_;
};

TEST_F(CXTimers, TheWindowsTrashIsEmptiedEveryTenSeconds) {
    int alive = 0;
    CPublicTrash * trash = window_.getPublicTrashInterface();
    trash->add(new Alive(alive));
    trash->add(new Alive(alive, trash)); // throws away another while it goes
    clock().advance(9999);
    window_.getTimer()->domodal();
    EXPECT_EQ(alive, 2);
    clock().advance(1);
    window_.getTimer()->domodal();
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(trash->size, 0);
    {
        CPublicTrash own;
        own.add(new Alive(alive));
    }
    EXPECT_EQ(alive, 0); // what was left goes with it
}

} // namespace
