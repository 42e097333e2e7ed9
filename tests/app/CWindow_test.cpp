#include "app/CWindow.h"

#include "app/CUnit6.h"
#include "support/InScope.h"

namespace {

class Window : public test::InScope {
protected:
    Window() : InScope("-log") {}
};

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

TEST_F(Window, TicksPollThenTimersThenFlush) {
    std::string told;
    Listener poller(told, 'p');
    window().addIPoller(&poller);
    window().addIPoller(&poller);
    struct Timer : CTimerNotificator {
        explicit Timer(std::string & where) : told(where) {}
        void onTimer(int) override { told += " timer"; }
        std::string & told;
    } timer(told);
    window().getTimer()->add(77, 10, &timer);
    clock().advance(50);
    window().Tick();
    EXPECT_EQ(told, ""); // nothing at all until it is active
    window().OnActivateApp(true);
    window().Tick();
    EXPECT_EQ(told, "p:tick timer p:flush");
    window().OnActivateApp(false);
    window().Tick();
    EXPECT_EQ(told, "p:tick timer p:flush");
}

TEST_F(Window, TheLogBeginsWithTheVersionAndTakesTextAsItIs) {
    CWindow::toLog("100%s %d\n", false);
    std::string log = get("Tarnook.log");
    const std::string head = "Tarnook.6.0.0\n============================\n============================\n";
    EXPECT_EQ(log.substr(0, head.size()), head);
    EXPECT_TRUE(log.ends_with("100%s %d\n")) << log;
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
