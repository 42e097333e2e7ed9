#include "app/CWindow.h"

#include "app/CApplication.h"
#include "app/CUnit6.h"
#include "input/CKeyboard.h"
#include "platform/debug/RecordingDebugChannel.h"
#include "platform/input/ScriptedKeyboard.h"
#include "support/InScope.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace {

class Window : public test::InScope {
protected:
    Window() : InScope("-log") {}
};

class Log : public test::InWorld {};

// Writes down what reaches it.
class Listener : public CMouseListener, public CKeyListener, public CInputPoller {
public:
    explicit Listener(std::string & told, char name, bool takes = false)
        : told_(told), name_(name), takes_(takes) {}
    bool onMouseMove(CXPoint p) override { return tell("move " + std::to_string(p.x)); }
    bool onClick(CXPoint) override { return tell("click"); }
    bool onClick(int button, CXPoint) override { return tell("click" + std::to_string(button)); }
    bool onRelease(CXPoint) override { return tell("release"); }
    bool onRelease(int button, CXPoint) override { return tell("release" + std::to_string(button)); }
    bool onDblClick(CXPoint) override { return tell("double"); }
    bool onLooseFocus() override { return tell("loose"); }
    bool onKeyDown(int key) override { return tell("key" + std::to_string(key)); }
    bool onKeyUp(int key) override { return tell("up" + std::to_string(key)); }
    bool onChar(unsigned char c) override { return tell("char" + std::to_string(c)); }
    void tick() override { tell("tick"); }
    void flushSignals(bool) override { tell("flush"); }

private:
    bool tell(const std::string & what) {
        told_ += std::string(told_.empty() ? "" : " ") + name_ + ":" + what;
        return takes_;
    }
    std::string & told_;
    char name_;
    bool takes_;
};

} // namespace

TEST_F(Window, MouseGoesFromTheHighestPriorityDown) {
    std::string told;
    Listener a(told, 'a'), b(told, 'b'), taker(told, 't', true);
    window().registerMouseListener(&a, 1);
    window().registerMouseListener(&b, 5);
    window().registerMouseListener(&b, 9); // again: nothing
    struct {
        const char * what;
        std::function<int()> act;
        const char * expected;
    } const cases[] = {
        {"move",
         [&] {
             return window().OnMouseMove({7, 0}, 0);
         },
         "b:move 7 a:move 7"},
        {"flags",
         [&] {
             return window().OnMouseMove({7, 0}, 1);
         },
         ""},
        {"left", [&] { return window().OnLButtonDown({}, 0); }, "b:click b:click0 a:click a:click0"},
        {"up", [&] { return window().OnLButtonUp({}, 0); }, "b:release b:release0 a:release a:release0"},
        {"double", [&] { return window().OnLButtonDblClk({}, 1); }, "b:double a:double"},
        {"middle", [&] { return window().OnMButtonDown({}, 0); }, "b:click1 a:click1"},
        {"right", [&] { return window().OnRButtonUp({}, 0); }, "b:release2 a:release2"},
        {"capture",
         [&] {
             window().setMouseCaption(&a);
             return window().OnMouseMove({1, 0}, 0);
         },
         "b:loose a:loose a:move 1 b:move 1"},
        {"on top",
         [&] {
             window().setMouseCaption(&a);
             return 0;
         },
         ""},
        {"off",
         [&] {
             window().enableMouse(false);
             return window().OnLButtonUp({}, 0);
         },
         ""},
        {"taken",
         [&] {
             window().enableMouse(true);
             window().registerMouseListener(&taker, 2000000);
             return window().OnMouseMove({2, 0}, 0) - 1;
         },
         "t:move 2"},
    };
    for (const auto & c : cases) {
        told.clear();
        EXPECT_EQ(c.act(), 0) << c.what;
        EXPECT_EQ(told, c.expected) << c.what;
    }
}

// Handlers may change the list that is walked.
TEST_F(Window, MouseListenersMayComeAndGo) {
    std::string told;
    Listener a(told, 'a'), b(told, 'b'), late(told, 'l');
    struct Changer : CMouseListener {
        std::function<void()> act;
        bool onMouseMove(CXPoint) override {
            act();
            return false;
        }
    } changer;
    window().registerMouseListener(&a, 1);
    window().registerMouseListener(&b, 2);
    window().registerMouseListener(&changer, 9);
    changer.act = [&] {
        window().removeMouseListener(&b);
        window().removeMouseListener(&changer);
        window().registerMouseListener(&late, 5);
    };
    window().OnMouseMove({1, 0}, 0);
    EXPECT_EQ(told, "a:move 1"); // who came now is told the next time
    told.clear();
    window().OnMouseMove({2, 0}, 0);
    EXPECT_EQ(told, "l:move 2 a:move 2");
    told.clear();
    // Of two that took the mouse the last one has it; without any listener nobody can.
    window().setMouseCaption(&a);
    window().setMouseCaption(&b);
    EXPECT_EQ(told, "l:loose a:loose a:loose b:loose");
    told.clear();
    window().OnMouseMove({3, 0}, 0);
    EXPECT_EQ(told, "b:move 3 a:move 3 l:move 3");
    for (CMouseListener * each : {&a, &b, &late, &late}) window().removeMouseListener(each);
    told.clear();
    window().setMouseCaption(&a);
    window().OnMouseMove({4, 0}, 0);
    EXPECT_EQ(told, "");
}

namespace {

// An application that tells when its turn comes.
class TellingApplication : public CApplication {
public:
    TellingApplication(CWindow & window, std::string & told)
        : CApplication(&window, "", "", window.getCommandLine()), told_(told) {}
    int OnKeyDown(int key, int flags) override {
        told_ += " app" + std::to_string(key) + "/" + std::to_string(flags);
        return 1;
    }
    void stepMedia() override { told_ += " media"; }
    bool domodal() override {
        told_ += " app";
        return false;
    }
    bool OnExit() override { return false; }

private:
    std::string & told_;
};

} // namespace

TEST_F(Window, KeysGoToTheApplicationAndThenToListenersInOrder) {
    std::string told;
    Listener a(told, 'a', true), b(told, 'b');
    window().registerKeyListener(&a);
    window().registerKeyListener(&b);
    auto keys = [&] {
        told.clear();
        window().OnKeyDown(28, 3);
        window().OnKeyUp(28, 3);
        window().OnChar(0xB9, 3);
        return told;
    };
    EXPECT_EQ(keys(), "a:up28 b:up28 a:char185 b:char185"); // nobody takes a key from the next
    {
        TellingApplication application(window(), told);
        EXPECT_EQ(keys(), " app28/3 a:key28 b:key28 a:up28 b:up28 a:char185 b:char185");
        window().removeKeyListener(&a);
        EXPECT_EQ(keys(), " app28/3 b:key28 b:up28 b:char185");
        EXPECT_FALSE(window().OnExit());
    }
    EXPECT_TRUE(window().OnExit());
}

TEST_F(Window, TicksInItsOrder) {
    std::string told;
    struct Drawn : CWindow {
        Drawn(CWindow & like, CLanguageOSVer * language, std::string & where)
            : CWindow(nullptr, like.getCommandLine(), language, CXSize(800, 600), nullptr, "", true),
              told(where) {}
        void Redraw() override { told += " draw"; }
        int OnTimer(int id) override {
            told += " own" + std::to_string(id);
            return 0;
        }
        std::string & told;
    };
    CLanguageOSVer language;
    Drawn drawn(window(), &language, told);
    Listener poller(told, 'p');
    struct Timer : CTimerNotificator {
        explicit Timer(std::string & where) : told(where) {}
        void onTimer(int) override { told += " timer"; }
        std::string & told;
    } timer(told);
    struct Flushed : CMC_Object {
        explicit Flushed(std::string & where) : CMC_Object("F", 0), told(where) {}
        void flush() override { told += " flush"; }
        std::string & told;
    } flushed(told);
    TellingApplication application(drawn, told);
    drawn.OnCreate();
    drawn.addIPoller(&poller);
    drawn.addIPoller(&poller); // again: nothing
    drawn.registerMCListener(&flushed);
    drawn.getTimer()->add(77, 10, &timer);
    auto tick = [&](unsigned step) {
        told.clear();
        clock().advance(step);
        EXPECT_FALSE(drawn.domodal());
        return told;
    };
    EXPECT_EQ(tick(50), " app"); // nothing of a tick until it is active
    drawn.OnActivateApp(true);
    const std::string rest = " media p:flush flush app";
    EXPECT_EQ(tick(0), " draw p:tick own0 timer" + rest);
    EXPECT_EQ(tick(0), " draw p:tick" + rest);
    EXPECT_EQ(tick(9), " draw p:tick own0" + rest);
    EXPECT_EQ(tick(1), " draw p:tick own0 timer" + rest);
    drawn.startDraggingWindow({1, 2});
    drawn.OnActivateApp(false);
    EXPECT_FALSE(drawn.isWindowDragged());
    drawn.startDraggingWindow({1, 2});
    drawn.OnActivateApp(false); // it isn't active: nothing
    EXPECT_TRUE(drawn.isWindowDragged());
    EXPECT_EQ(tick(100), " app");
    drawn.OnActivateApp(true);
    drawn.KillTimer(77);
    drawn.removeMCListener(&flushed);
    drawn.SetTimer(5, 1, nullptr, false);
    EXPECT_EQ(tick(1), " draw p:tick own0 own5 media p:flush app");
    drawn.removeAllIPollers();
    EXPECT_EQ(drawn.getPollers()->size, 0);
    drawn.quit();
    EXPECT_TRUE(drawn.domodal());
}

TEST_F(Window, UnitsHaveTimersToo) {
    struct Unit : CUnit6 {
        using CUnit6::CUnit6;
        void onTimer(int id) override { ticks += id; }
        int ticks = 0;
    } unit(&window(), "U");
    window().SetTimer(1, 10, &unit, true); // only while it is active
    window().SetTimer(10, 10, &unit, false);
    tick(1, 10);
    EXPECT_EQ(unit.ticks, 10);
    unit.setActivity(true);
    tick(1, 10);
    EXPECT_EQ(unit.ticks, 21);
    // Edit boxes are gone through in a circle.
    CXObject a, b, c;
    for (CXObject * each : {&a, &b, &c}) unit.addEditBox(each);
    std::string order;
    for (int i = 0; i < 4; i++) {
        unit.onKeyDown(CUnit6::kTab);
        unit.onKeyDown(CUnit6::kTab + 1);
        order += std::to_string(unit.getCurrentEditBoxIndex());
    }
    for (int shift : {42, 54, 42}) {
        world().scriptedKeyboard->set(shift, true);
        window().getKeyboard()->tick();
        unit.onKeyDown(CUnit6::kTab);
        world().scriptedKeyboard->set(shift, false);
        window().getKeyboard()->tick();
        order += std::to_string(unit.getCurrentEditBoxIndex());
    }
    EXPECT_EQ(order, "0120210");
    unit.flushEditBoxes();
    unit.nextEditBox();
    EXPECT_EQ(unit.getCurrentEditBoxIndex(), -1);
}

TEST_F(Window, CursorsAndTheirLocks) {
    struct Shown : CWindow {
        Shown(CWindow & like, CLanguageOSVer * language)
            : CWindow(nullptr, like.getCommandLine(), language, CXSize(800, 600), HCURSOR(1), "", true) {}
        void showCursorImage(HCURSOR cursor) override {
            shown += std::to_string(reinterpret_cast<std::uintptr_t>(cursor));
        }
        std::string shown;
    };
    CLanguageOSVer language;
    Shown w(window(), &language);
    struct {
        const char * what;
        std::function<void()> act;
        const char * shown;
    } const rows[] = {
        {"no active cursor yet", [&] { w.BeginActiveCursor(); }, ""},
        {"no wait cursor yet", [&] { w.BeginWaitCursor(); }, ""},
        {"mouse off without a wait cursor", [&] { w.enableMouse(false); }, ""},
        {"mouse on", [&] { w.enableMouse(true); }, "1"},
        {"active",
         [&] {
             w.SetActiveCursor(HCURSOR(2));
             w.BeginActiveCursor();
         },
         "2"},
        {"wait",
         [&] {
             w.SetWaitCursor(HCURSOR(3));
             w.BeginWaitCursor();
             w.EndWaitCursor();
         },
         "31"},
        {"mouse off",
         [&] {
             w.enableMouse(false);
             w.enableMouse(true);
         },
         "31"},
        {"active locked",
         [&] {
             w.lockActiveCursor(true);
             w.BeginActiveCursor();
             w.BeginWaitCursor();
         },
         "13"},
        {"active free",
         [&] {
             w.lockActiveCursor(false);
             w.BeginActiveCursor();
         },
         "12"},
        {"another",
         [&] {
             w.SetCursor(HCURSOR(7));
             w.SetCursor(nullptr);
         },
         "70"},
        {"locked",
         [&] {
             w.LockCursor();
             w.SetCursor(HCURSOR(7));
             w.BeginActiveCursor();
             w.BeginWaitCursor();
         },
         ""},
        {"the main one comes", [&] { w.EndWaitCursor(); }, "1"},
        {"free",
         [&] {
             w.UnLockCursor();
             w.SetCursor(HCURSOR(7));
         },
         "7"},
    };
    for (const auto & row : rows) {
        w.shown.clear();
        row.act();
        EXPECT_EQ(w.shown, row.shown) << row.what;
    }
    EXPECT_EQ(w.GetMainCursor(), HCURSOR(1));
}

namespace {

// A device that counts how often it is read, and by whom.
class CountingPoller : public CInputPoller {
public:
    void tick() override {
        if (std::this_thread::get_id() != flusher) elsewhere++;
        ticks++;
    }
    void flushSignals(bool) override {
        int before = ticks;
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
        if (ticks != before) raced = true; // the lock is held
        flushes++;
    }
    // Whether that many ticks come within five seconds.
    bool reaches(int wanted) {
        for (int i = 0; i < 500 && ticks < wanted; i++)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return ticks >= wanted;
    }

    std::atomic<int> ticks = 0, elsewhere = 0;
    std::thread::id flusher = std::this_thread::get_id();
    int flushes = 0;
    bool raced = false;
};

} // namespace

TEST_F(Window, APollingThreadReadsDevicesWhileTheProgramIsActive) {
    CLanguageOSVer language;
    CWindow polled(nullptr, window().getCommandLine(), &language, CXSize(800, 600), nullptr, "", false);
    CountingPoller poller;
    polled.addIPoller(&poller);
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(poller.ticks, 0);
    for (int round = 1; round <= 3; round++) {
        polled.OnActivateApp(true);
        EXPECT_TRUE(poller.reaches(poller.ticks + 3)) << round;
        polled.Tick(); // on this thread input is raised, but not read
        EXPECT_EQ(poller.elsewhere, poller.ticks) << round;
        polled.OnActivateApp(false);
        polled.OnActivateApp(false);
        std::this_thread::sleep_for(std::chrono::milliseconds(40)); // one may be under way
        int stopped = poller.ticks;
        polled.Tick();
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        EXPECT_EQ(poller.ticks, stopped) << round;
        EXPECT_EQ(poller.flushes, round);
    }
    EXPECT_FALSE(poller.raced);
    polled.OnActivateApp(true);
    EXPECT_TRUE(poller.reaches(poller.ticks + 1));
    polled.removeIPoller(&poller); // waits for a reading that is under way
    int stopped = poller.ticks;
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(poller.ticks, stopped);
    polled.OnDestroy();
    polled.OnDestroy();
    polled.addIPoller(&poller);
    polled.Tick(); // without the thread the tick reads
    EXPECT_EQ(poller.ticks, stopped + 1);
}

TEST_F(Window, TheLogBeginsWithTheVersionAndTakesTextAsItIs) {
    CWindow::toLog("100%s %d\n", false);
    std::string log = get("Tarnook.log");
    const std::string line(28, '=');
    const std::string head = "Tarnook.6.0.0\n" + line + "\n" + line + "\n" + world().describe();
    EXPECT_EQ(log, head + "100%s %d\n");
    // The file is read while it is written, and a crash loses nothing; no line end is added.
    auto channel = std::make_unique<platform::RecordingDebugChannel>();
    auto & heard = channel->written;
    world().debugger = std::move(channel);
    CWindow::toLog("to both", true);
    CWindow::toLog(", to one", false);
    EXPECT_EQ(get("Tarnook.log"), log + "to both, to one");
    EXPECT_EQ(heard, "to both\n");
}

TEST_F(Log, WithoutTheOptionNothingIsLogged) {
    auto channel = std::make_unique<platform::RecordingDebugChannel>();
    auto & heard = channel->written;
    world().debugger = std::move(channel);
    CCommandLine6 commandLine("");
    CLanguageOSVer language;
    CWindow window(nullptr, &commandLine, &language, CXSize(800, 600), nullptr, "", true);
    CWindow::toLog("text", true);
    EXPECT_FALSE(exists("Tarnook.log"));
    EXPECT_EQ(heard, "");
}

// A log that can't be written keeps nobody from playing.
TEST_F(Log, ALogThatCantBeWritten) {
    put("Tarnook.log/x", "");
    CCommandLine6 commandLine("-log");
    CLanguageOSVer language;
    CWindow window(nullptr, &commandLine, &language, CXSize(800, 600), nullptr, "", true);
    CWindow::toLog("text", false);
    EXPECT_TRUE(CWindow::logEnabled);
}

TEST_F(Window, ErrorsTellTheirText) {
    window().ShowError("title");
    EXPECT_TRUE(boxes().empty());
    for (const auto & [code, text] : {std::pair(-998, "Nieprawid\xB3owe dzia\xB3"
                                                      "anie karty graficznej."),
                                      std::pair(-997, "Nieprawid\xB3owe dzia\xB3"
                                                      "anie karty d\x9Fwi\xEAkowej."),
                                      std::pair(-1, "Nieznany b\xB3\xB9"
                                                    "d krytyczny.")}) {
        window().setErrorCode(code);
        window().ShowError("title");
        EXPECT_EQ(boxes(), std::vector<std::string>{text});
    }
    CXObject file;
    window().QuitOnError(&file, "a.img", "title");
    EXPECT_TRUE(boxes().empty());
    file.setErrorCode(2000);
    window().QuitOnError(&file, "a.img", "title");
    EXPECT_EQ(boxes(), std::vector<std::string>{"Wyst\xB9pi\xB3 b\xB3\xB9"
                                                "d krytyczny, plik: a.img nie zosta\xB3 odnaleziony."});
}
