#pragma once

// A world is one form chosen for each thing that the engine asks of the machine. The host makes one at
// start and installs it; the engine reaches it through world(). Nothing of a world is kept elsewhere, so
// that a program can run one after another.

#include "platform/audio/SoundDevice.h"
#include "platform/clock/Clock.h"
#include "platform/debug/DebugChannel.h"
#include "platform/dialogs/Dialogs.h"
#include "platform/display/Display.h"
#include "platform/files/FileSystem.h"
#include "platform/input/Joysticks.h"
#include "platform/input/Keyboard.h"
#include "platform/input/Mouse.h"
#include "platform/locale/Locale.h"
#include "platform/modules/Modules.h"
#include "platform/random/RandomSource.h"
#include "platform/timer/PeriodicTimers.h"
#include "platform/window/SystemWindow.h"

#include <memory>
#include <string>

namespace platform {

class ScriptedJoysticks;
class ScriptedKeyboard;
class ScriptedMouse;
class VirtualClock;

struct World {
    std::unique_ptr<Clock> clock;
    std::unique_ptr<PeriodicTimers> timers; // made after the clock that it follows, gone before it
    std::unique_ptr<RandomSource> random;
    std::unique_ptr<FileSystem> files;
    std::unique_ptr<Locale> locale;
    std::unique_ptr<Dialogs> dialogs;
    std::unique_ptr<Modules> modules;
    std::unique_ptr<DebugChannel> debugger;
    std::unique_ptr<Display> display;
    std::unique_ptr<Mouse> mouse;
    std::unique_ptr<Keyboard> keyboard;
    std::unique_ptr<Joysticks> joysticks;
    std::unique_ptr<SoundDevice> sound;    // follows the clock too
    std::unique_ptr<SystemWindow> window;  // of a desktop; null in a headless world
    VirtualClock * virtualClock = nullptr; // the clock of a headless world, which the host moves; else null
    // The hands at a headless world's devices; else null.
    ScriptedMouse * scriptedMouse = nullptr;
    ScriptedKeyboard * scriptedKeyboard = nullptr;
    ScriptedJoysticks * scriptedJoysticks = nullptr;

    // The forms taken, one "what: form" a line, for the log.
    std::string describe() const;
};

struct Options {
    unsigned seed = 1;            // of the random source; the desktop takes one from the clock when it is 0
    std::string disc;             // folder of the machine shown as drive D:, none when empty
    int depth = 16;               // of the display, 15 or 16
    std::string currentDirectory; // folder of the machine to start in, the process's own when empty
};

// Virtual time, message boxes on standard output, the machine's files.
std::unique_ptr<World> headless(const Options & options = {});
// The machine's clock, timers on a thread, a window on the machine's display, the machine's files. The window
// opens with the display's first mode.
std::unique_ptr<World> desktop(const Options & options = {});

// Makes a world the one that world() gives, for as long as this object lives. Installs nest.
class Installed {
public:
    explicit Installed(World & world);
    ~Installed();
    Installed(const Installed &) = delete;
    Installed & operator=(const Installed &) = delete;

private:
    World * before_;
};

// The installed world. Asking without one is a mistake of the program and ends it with a message.
World & world();

} // namespace platform
