// A game's flow: changing scenes, ticks in which nothing happens, and a whole small game headless. Prints
// times beside their goals, and the part of a change that the definition's reading alone takes.

#include "Ratio.h"

#include "app/CApplication.h"
#include "app/CCommandLine6.h"
#include "app/CMC_Application.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "platform/World.h"
#include "platform/clock/VirtualClock.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::string element(const std::string & name, const std::string & type, const std::string & rest = "") {
    return "OBJECT=" + name + "\n" + name + ":TYPE=" + type + "\n" + rest;
}

// As games write them: 1,000 objects, half of them with a script behind them, and 300 behaviours of ten
// statements.
std::string largeScene() {
    std::string text;
    for (int i = 0; i < 1000; i++) {
        std::string n = "OBJ" + std::to_string(i);
        switch (i % 5) {
        case 0: text += element(n, "INTEGER", n + ":VALUE=" + std::to_string(i) + "\n"); break;
        case 1: text += element(n, "STRING", n + ":VALUE=some text\n" + n + ":ONCHANGED=BEH7(1,2)\n"); break;
        case 2:
            text += element(n, "INTEGER",
                            n + ":ONCHANGED^5={OBJ0^ADD(1);@IF(\"OBJ0'5\",{OBJ1^SET(\"x\");},\"\");}\n");
            break;
        case 3:
            text += element(n, "TIMER", n + ":ELAPSE=1000\n" + n + ":ENABLED=FALSE\n" + n + ":ONTICK=BEH3\n");
            break;
        default: text += element(n, "ARRAY");
        }
    }
    for (int i = 0; i < 300; i++) {
        std::string n = "BEH" + std::to_string(i), code;
        for (int s = 0; s < 10; s++) {
            std::string object = "OBJ" + std::to_string((i * 10 + s) % 200 * 5);
            code += s % 3 == 0   ? object + "^ADD(1);"
                    : s % 3 == 1 ? "@IF(\"" + object + "'10\",{" + object + "^SET(0);},\"\");"
                                 : object + "^SET([" + object + "+OBJ5*2]);";
        }
        text += element(n, "BEHAVIOUR", n + ":CODE={" + code + "}\n");
    }
    return text;
}

// 100 timers whose time hasn't come.
std::string idleScene() {
    std::string text;
    for (int i = 0; i < 100; i++) {
        std::string n = "T" + std::to_string(i);
        text += element(n, "TIMER",
                        n + ":ELAPSE=1000000000\n" + n + ":ENABLED=TRUE\n" + n + ":ONTICK={V^INC();}\n");
    }
    return text + element("V", "INTEGER");
}

// A timer at every tick that counts, and changes something each tenth time.
std::string smallScene() {
    return element("V", "INTEGER") + element("S", "STRING") +
           element("T", "TIMER", "T:ELAPSE=10\nT:ENABLED=TRUE\nT:ONTICK=STEP\n") +
           element("STEP", "BEHAVIOUR",
                   "STEP:CODE={V^ADD(1);@IF(\"V_10\",{V^SET(0);S^SET(\"turn\");},\"\");}\n");
}

class Game {
public:
    Game()
        : folder_(fs::temp_directory_path() / ("tarnook-bench-" + std::to_string(getpid()))),
          commandLine_("") {
        fs::create_directories(folder_ / "Dane");
        put("application.def", element("GAME", "APPLICATION", "GAME:EPISODES=E\n") +
                                   element("E", "EPISODE", "E:SCENES=ONE,TWO,IDLE,SMALL\n") +
                                   element("ONE", "SCENE") + element("TWO", "SCENE") +
                                   element("IDLE", "SCENE") + element("SMALL", "SCENE"));
        put("ONE.cnv", largeScene());
        put("TWO.cnv", largeScene());
        put("IDLE.cnv", idleScene());
        put("SMALL.cnv", smallScene());
        platform::Options options;
        options.currentDirectory = folder_.string();
        world_ = platform::headless(options);
        installed_ = std::make_unique<platform::Installed>(*world_);
        language_ = std::make_unique<CLanguageOSVer>();
        window_ = std::make_unique<CWindow>(nullptr, &commandLine_, language_.get(), CXSize(800, 600),
                                            nullptr, "", true);
        window_->SetDisplayMode(0, 0, 16);
        window_->OnCreate();
        application_ = std::make_unique<CApplication>(window_.get(), "", "", &commandLine_);
        application_->preinitializeApplication(false);
        if (application_->LastError()) std::abort();
        window_->OnActivateApp(true);
        tick();
    }
    ~Game() {
        application_.reset();
        window_.reset();
        language_.reset();
        installed_.reset();
        fs::remove_all(folder_);
    }

    void tick() {
        window_->domodal();
        world_->virtualClock->advance(16);
    }
    void enter(const char * scene) {
        episode()->_goto(CXString(scene));
        window_->domodal();
        if (episode()->getCurrentScene()->getName() != scene) std::abort();
    }
    void loadOnly() { delete CMElementsLoader::load(window_.get(), "ONE.cnv"); }
    int objects() { return episode()->getCurrentScene()->getElementsNo(); }

private:
    CMC_Scene * episode() { return application_->getMCApplicationIfc()->find("E"); }
    void put(const char * name, const std::string & text) { std::ofstream(folder_ / "Dane" / name) << text; }

    fs::path folder_;
    CCommandLine6 commandLine_;
    std::unique_ptr<platform::World> world_;
    std::unique_ptr<platform::Installed> installed_;
    std::unique_ptr<CLanguageOSVer> language_;
    std::unique_ptr<CWindow> window_;
    std::unique_ptr<CApplication> application_;
};

void report(const char * what, double found, const char * unit, double goal) {
    std::printf("  %-46s %10.1f %s (goal %.0f)%s\n", what, found, unit, goal, found > goal ? "  MISSED" : "");
}

// Of the processor: others that use the machine don't count.
double milliseconds(const std::function<void()> & run) {
    std::clock_t start = std::clock();
    run();
    return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

} // namespace

// With a number: only that many changes, for a profiler.
int main(int argc, char ** argv) {
    Game game;
    for (int i = argc > 1 ? std::atoi(argv[1]) : 0; i > 0; i--) game.enter(i % 2 ? "ONE" : "TWO");
    if (argc > 1) return 0;
    {
        bench::Table t("a scene of 1,000 objects and 300 behaviours");
        bool one = false;
        auto change = t.add("change, with all that leaves and comes", 1,
                            [&] { game.enter((one = !one) ? "TWO" : "ONE"); });
        auto reading = t.add("reading its definition", 1, [&] { game.loadOnly(); });
        t.sample(21, 30.0);
        t.ratio(change, reading, 0.05);
        std::printf("  %-46s %10d\n", "objects, with those of inline code", game.objects());
        std::vector<double> times;
        for (int i = 0; i < 41; i++)
            times.push_back(milliseconds([&] { game.enter((one = !one) ? "TWO" : "ONE"); }));
        std::sort(times.begin(), times.end());
        report("median of 41 changes", times[20], "ms", 25);
        report("slowest of 41 changes", times[40], "ms", 25);
    }
    std::printf("\nticks\n");
    game.enter("IDLE");
    constexpr int kTicks = 100'000;
    report("an empty tick with 100 idle timers",
           milliseconds([&] {
               for (int i = 0; i < kTicks; i++) game.tick();
           }) * 1000 /
               kTicks,
           "us", 20);
    game.enter("SMALL");
    report("100,000 ticks of a small scene", milliseconds([&] {
               for (int i = 0; i < kTicks; i++) game.tick();
           }),
           "ms", 5000);
}
