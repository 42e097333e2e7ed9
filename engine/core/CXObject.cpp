#include "core/CXObject.h"

#include "app/CWindow.h"
#include "platform/World.h"

#include <cstdio>
#include <optional>
#include <string>

int CXObject::getHashcode() { return static_cast<int>(reinterpret_cast<std::uintptr_t>(this)); }

short CXObject::swap_word(short value) {
    auto bits = static_cast<std::uint16_t>(value);
    return static_cast<short>(static_cast<std::uint16_t>(bits >> 8 | bits << 8));
}

int CXObject::swap_dword(int value) {
    auto bits = static_cast<std::uint32_t>(value);
    return static_cast<int>(bits >> 24 | (bits >> 8 & 0xFF00U) | (bits << 8 & 0xFF0000U) | bits << 24);
}

void CXObject::log(const char * text, bool toDebugger) { CWindow::toLog(text, toDebugger); }

void CXObject::profile(const char * name, bool toLog) {
    struct Stretch {
        std::string name;
        std::uint32_t start;
    };
    static std::optional<Stretch> stretch;

    std::uint32_t now = platform::world().clock->tickCount();
    if (name) {
        stretch = Stretch{name, now};
        return;
    }
    if (!stretch) return;
    std::string line = "Time spend in " + stretch->name + ": " +
                       std::to_string(static_cast<std::int32_t>(now - stretch->start)) + " ms.\n";
    stretch.reset();
    platform::world().debugger->write(line);
    if (toLog) CWindow::toLog(line.c_str(), false);
}
