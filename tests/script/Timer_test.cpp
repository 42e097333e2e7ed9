#include "script/CMC_Timer.h"
#include "support/InScope.h"

namespace {

class Timer : public test::InScope {
protected:
    // A timer of 100 ms; its own keys and bindings behind that.
    void make(const std::string & keys) { load("OBJECT=T\nT:TYPE=TIMER\nT:ELAPSE=100\n" + keys); }

    // What n ticks of the engine show, one each millisecond.
    std::string after(int milliseconds) {
        boxes();
        tick(milliseconds, 1);
        std::string all;
        for (const std::string & each : boxes()) all += (all.empty() ? "" : "; ") + each;
        return all;
    }
};

constexpr const char * kTold = "T:ONTICK={@MSGBOX(T^GETTICKS());}\n";

TEST_F(Timer, StopsAtItsLastTickAndStartsAnew) {
    make(std::string("T:ENABLED=TRUE\nT:TICKS=3\n") + kTold);
    EXPECT_EQ(after(99), "");
    EXPECT_EQ(after(1), "1");
    EXPECT_EQ(after(1000), "2; 3");
    run("T^ENABLE();");
    EXPECT_EQ(after(150), "1");
    run("T^ENABLE();"); // runs already
    EXPECT_EQ(after(50), "2");
}

TEST_F(Timer, EnabledIsTheWordTrue) {
    struct {
        const char * value;
        bool enabled;
    } cases[] = {{"true", true}, {"TRUE", true}, {"1", false}, {"", false}};
    for (auto & each : cases) {
        make(std::string("T:ENABLED=") + each.value + "\n");
        EXPECT_EQ(static_cast<CMC_Timer *>(scope().getObject("T"))->isEnabled(), each.enabled) << each.value;
    }
}

TEST_F(Timer, ATickWithABindingOfItsOwnIsToldThere) {
    make("T:ENABLED=TRUE\nT:ONTICK^2={@MSGBOX(\"two\");}\nT:ONTICK={@MSGBOX(\"tick\");}\n");
    EXPECT_EQ(after(350), "tick; two; tick");
}

TEST_F(Timer, PauseKeepsTheIntervalOfAllTimers) {
    make(std::string("T:ENABLED=TRUE\n") + kTold);
    load("OBJECT=U\nU:TYPE=TIMER\nU:ELAPSE=1000\nU:ENABLED=TRUE\nU:ONTICK={@MSGBOX(\"U\");}\n");
    EXPECT_EQ(after(60), "");
    run("T^PAUSE();");
    clock().advance(500); // no pass meanwhile
    run("T^RESUME();");
    EXPECT_EQ(after(39), "");
    EXPECT_EQ(after(1), "1");
    run("T^RESUME();"); // on a running timer it does nothing
    EXPECT_EQ(after(100), "2");
    EXPECT_EQ(after(799), "3; 4; 5; 6; 7; 8; 9");
    EXPECT_EQ(after(1), "10; U"); // 60 ms before the pause and 940 since, the pause not counted
}

TEST_F(Timer, TicksAndIntervalCanBeSet) {
    make(std::string("T:ENABLED=TRUE\nT:TICKS=12\n") + kTold);
    EXPECT_EQ(after(60), "");
    run("T^SET(10);"); // the interval begins anew
    EXPECT_EQ(after(99), "");
    EXPECT_EQ(after(1), "11");
    run("T^SETELAPSE(30);");
    EXPECT_EQ(after(29), "");
    EXPECT_EQ(after(1), "12");
    EXPECT_EQ(after(300), "");
    run("T^ENABLE();T^SETELAPSE(-5);"); // each tick
    EXPECT_EQ(after(3), "1; 2; 3");
    EXPECT_EQ(shown("T^RESET();@MSGBOX(T^GETTICKS());T^DISABLE();"), "0");
    EXPECT_EQ(after(300), "");
}

TEST_F(Timer, LeavesTheWindowsTimersWithItsScope) {
    make(std::string("T:ENABLED=TRUE\n") + kTold);
    scope().unload();
    EXPECT_EQ(after(300), "");
    make(std::string("T:ENABLED=TRUE\nT:ONTICK={T^SETELAPSE(50);T^DISABLE();}\n") + kTold);
    make(std::string("T:ENABLED=TRUE\n") + kTold); // takes the other's name, which goes
    EXPECT_EQ(after(100), "1");
}

} // namespace
