#pragma once

// The tables of an animation: its events, and what each entry of an event's frame list says. In files they
// are the packed records whose sizes stand in AnnFile.h.

#include "core/CXString.h"
#include "graphics/FrameSound.h"

#include <cstdint>
#include <memory>
#include <vector>

// Bits of an animation's flags and of an event's.
enum _animoflags : int {
    kAnimoHideWhenStopped = 0x00000100, // the event's
    kAnimoPingPong = 0x00020000,        // the event's: at its loop end the direction turns round
    kAnimoExclusive = 0x00040000,       // while it plays, nothing else can be played
    kAnimoSoundOutlives = 0x00080000,   // the frame's sound goes on when the animation stops
    kAnimoLoopsWithSound = 0x00100000,  // the event's: it loops as long as its sound plays
    kAnimoNewLayout = 0x00200000,       // set when read from one of the newer layouts
    kAnimoStreamsSounds = 0x00400000,   // sounds are opened when their frame comes, not when loaded
    kAnimoRunsOn = 0x00800000,          // at the end of an event the next one follows
    kAnimoStoredFlags = 0x00FFFF00,     // what files keep of them
};

struct _anmFrameInfo3 {
    CXString name;                     // empty: none
    CXString text;                     // kept, not used
    std::int16_t x = 0, y = 0;         // added to the frame's position
    std::int32_t mark = -1;            // kept, not used
    CXString soundName;                // empty: none; with ";" a list of which one is picked
    std::shared_ptr<FrameSound> sound; // null without one, and for streamed sounds; copies share it
    unsigned char opacity = 255;       // 255: the event's counts
};

struct _annEventInfo3 {
    CXString name;                     // looked up without case; a file keeps kStoredName bytes of it
    std::vector<std::uint16_t> frames; // numbers of frames
    std::vector<_anmFrameInfo3> infos; // as many
    std::uint16_t loopStart = 0;
    std::uint16_t loopEnd = 0;     // 0: no loop
    std::uint16_t loopCount = 0;   // 0: for ever
    std::uint16_t loopCounter = 0; // turns done
    std::int32_t fps = kDefaultFps;
    std::int32_t flags = 0;
    unsigned char opacity = 255;

    static constexpr int kDefaultFps = 15;
    static constexpr int kStoredName = 31;

    int size() const { return static_cast<int>(frames.size()); }
    void add(std::uint16_t frame) {
        frames.push_back(frame);
        infos.emplace_back();
    }
};
