// The forms that a headless and a desktop world take.

#include "platform/World.h"
#include "platform/audio/ClockedSound.h"
#include "platform/audio/SdlSound.h"
#include "platform/clock/SystemClock.h"
#include "platform/clock/VirtualClock.h"
#include "platform/debug/StderrDebugChannel.h"
#include "platform/dialogs/SdlDialogs.h"
#include "platform/dialogs/StdoutDialogs.h"
#include "platform/display/MemoryDisplay.h"
#include "platform/display/SdlDisplay.h"
#include "platform/files/MachineFileSystem.h"
#include "platform/input/ScriptedJoysticks.h"
#include "platform/input/ScriptedKeyboard.h"
#include "platform/input/ScriptedMouse.h"
#include "platform/input/SdlJoysticks.h"
#include "platform/input/SdlKeyboard.h"
#include "platform/input/SdlMouse.h"
#include "platform/locale/FixedLocale.h"
#include "platform/locale/SystemLocale.h"
#include "platform/modules/SystemModules.h"
#include "platform/timer/ThreadPeriodicTimers.h"
#include "platform/timer/VirtualPeriodicTimers.h"
#include "platform/window/SdlWindow.h"

namespace platform {

namespace {

template <class Device>
std::unique_ptr<Device> scripted(Device *& hands) {
    auto device = std::make_unique<Device>();
    hands = device.get();
    return device;
}

} // namespace

std::unique_ptr<World> headless(const Options & options) {
    auto world = std::make_unique<World>();
    auto clock = std::make_unique<VirtualClock>();
    world->virtualClock = clock.get();
    world->timers = std::make_unique<VirtualPeriodicTimers>(*clock);
    world->clock = std::move(clock);
    world->random = std::make_unique<RandomSource>(options.seed);
    world->files = std::make_unique<MachineFileSystem>(options.currentDirectory, options.disc);
    world->locale = std::make_unique<FixedLocale>("0409");
    world->dialogs = std::make_unique<StdoutDialogs>();
    world->modules = std::make_unique<SystemModules>();
    world->debugger = std::make_unique<StderrDebugChannel>();
    world->display = std::make_unique<MemoryDisplay>(options.depth);
    world->mouse = scripted(world->scriptedMouse);
    world->keyboard = scripted(world->scriptedKeyboard);
    world->joysticks = scripted(world->scriptedJoysticks);
    world->sound = std::make_unique<ClockedSound>(*world->clock, "memory");
    return world;
}

std::unique_ptr<World> desktop(const Options & options) {
    auto world = std::make_unique<World>();
    world->clock = std::make_unique<SystemClock>();
    world->timers = std::make_unique<ThreadPeriodicTimers>();
    auto seed = options.seed;
    if (seed == 0)
        seed = static_cast<unsigned>(world->clock->counter()) | 2U; // 1 would leave seeds as they are
    world->random = std::make_unique<RandomSource>(seed);
    world->files = std::make_unique<MachineFileSystem>(options.currentDirectory, options.disc);
    world->locale = std::make_unique<SystemLocale>();
    world->modules = std::make_unique<SystemModules>();
    world->debugger = std::make_unique<StderrDebugChannel>();
    auto display = std::make_unique<SdlDisplay>(options.depth);
    auto mouse = std::make_unique<SdlMouse>(*display);
    auto keyboard = std::make_unique<SdlKeyboard>();
    auto joysticks = std::make_unique<SdlJoysticks>();
    world->dialogs = std::make_unique<SdlDialogs>(*display);
    world->window = std::make_unique<SdlWindow>(*display, *mouse, *keyboard, *joysticks);
    world->display = std::move(display);
    world->mouse = std::move(mouse);
    world->keyboard = std::move(keyboard);
    world->joysticks = std::move(joysticks);
    std::string reason;
    world->sound = SdlSound::open(reason);
    if (!world->sound) {
        world->debugger->write("no sound, the game plays silently: " + reason + "\n");
        world->sound = std::make_unique<ClockedSound>(*world->clock, "silent");
    }
    return world;
}

std::string World::describe() const {
    std::string text;
    auto line = [&text](const char * what, const std::string & form) {
        text += std::string(what) + ": " + form + "\n";
    };
    line("clock", clock->name());
    line("timers", timers->name());
    line("random", "seed " + std::to_string(random->hostSeed()));
    line("files", files->name());
    line("locale", locale->name());
    line("dialogs", dialogs->name());
    line("modules", modules->name());
    line("debugger", debugger->name());
    line("display", display->name());
    line("mouse", mouse->name());
    line("keyboard", keyboard->name());
    line("joysticks", joysticks->name());
    line("sound", sound->name());
    return text;
}

} // namespace platform
