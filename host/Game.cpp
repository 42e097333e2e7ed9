#include "Game.h"

#include "GameWindow.h"
#include "InputScript.h"
#include "Screenshots.h"

#include "app/CApplication.h"
#include "app/CCommandLine6.h"
#include "files/CFile.h"
#include "files/CLanguageOSVer.h"
#include "platform/World.h"
#include "platform/clock/VirtualClock.h"
#include "platform/text/Windows1250.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace host {

namespace {

std::string programFolder() {
    std::error_code error;
    fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string("/") : program.parent_path().string();
}

void complain(const char * what, const std::string & name) {
    std::fprintf(stderr, "tarnook: %s%s\n", what, name.c_str());
}

// Between two ticks: virtual time moves by a step, a desktop waits until the next one is due.
class Pace {
public:
    Pace(const Options & options, platform::World & world)
        : options_(options), world_(world), due_(world.clock->counter()) {}
    void wait() {
        if (world_.virtualClock) {
            world_.virtualClock->advance(options_.step);
            return;
        }
        platform::Clock & clock = *world_.clock;
        std::int64_t frequency = clock.counterFrequency(), now = clock.counter();
        due_ = std::max(due_ + frequency / options_.rate, now); // a late tick isn't made up for
        clock.sleep(static_cast<std::uint32_t>(((due_ - now) * 1000 + frequency - 1) / frequency));
    }

private:
    const Options & options_;
    platform::World & world_;
    std::int64_t due_;
};

// The root of the game that couldn't be loaded, the first one or one that it handed over to.
int noGame(platform::World & world) {
    const CXString & folder = CWindow::getCDPath();
    complain("no game in ", world.files->toMachine(std::string(folder.view())) +
                                ": looked for Dane/application.def with an element of TYPE APPLICATION");
    return kNoApplication;
}

int play(const Options & options, platform::World & world, InputScript & input) {
    CCommandLine6 commandLine(platform::fromUtf8(options.engineText).c_str());
    CLanguageOSVer language;
    CXString exePath(world.files->fromMachine(programFolder()));
    GameWindow window(world.window.get(), &commandLine, &language, exePath, options.rawMouse);
    int error = commandLine.isWindowMode() ? window.CreateSurface(nullptr)
                                           : window.SetDisplayMode(0, 0, world.display->depth());
    if (error && world.window) {
        complain("no display: ", world.display->problem());
        return kNoDevice;
    }
    if (error) {
        window.setErrorCode(error);
        window.ShowError("Tarnook");
        return kNoDevice;
    }
    if (world.window) world.window->setFrame(!commandLine.isNoFrame());
    window.OnCreate();
    CApplication application(&window, CXString(platform::fromUtf8(options.config)),
                             CXString(platform::fromUtf8(options.archive)), &commandLine);
    application.preinitializeApplication(false);
    if (application.LastError()) return noGame(world);
    window.OnActivateApp(true);
    Pace pace(options, world);
    Screenshots screenshots(options.screenshots, *world.display);
    for (long tick = 1;; tick++) {
        bool over = window.pump() || input.play(tick, window) || window.domodal();
        if (world.window) world.window->present();
        if (!screenshots.take(tick)) return kNoDevice;
        if (over || tick == options.ticks) break;
        if (application.LastError()) break; // it handed over to a folder without a game
        pace.wait();
    }
    window.OnDestroy();
    return application.LastError() ? noGame(world) : kEnded;
}

} // namespace

int run(const Options & options) {
    std::error_code error;
    fs::path folder = fs::canonical(options.game, error);
    if (error || !fs::is_directory(folder)) {
        complain("no such folder: ", options.game);
        return kNoApplication;
    }
    InputScript input;
    if (!options.input.empty() && !input.load(options.input)) {
        complain("can't read the input file ", options.input);
        return kWrongOption;
    }

    platform::Options forms;
    forms.seed = options.seed ? options.seed : options.headless ? 1 : 0;
    forms.disc = options.disc;
    forms.depth = options.depth;
    forms.currentDirectory = folder.string();
    std::unique_ptr<platform::World> world =
        options.headless ? platform::headless(forms) : platform::desktop(forms);
    if (!options.audio.empty() && !world->sound->record(options.audio)) {
        complain("can't write the sound file ", options.audio);
        return kWrongOption;
    }
    platform::Installed installed(*world);
    return play(options, *world, input);
}

} // namespace host
