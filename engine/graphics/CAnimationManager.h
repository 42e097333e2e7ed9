#pragma once

// The clock of the animations: each tick it decides which are due for their next frame. Owned by the
// application; animations join and leave by themselves. The thread of the tick.

#include "core/CXObject.h"

#include <cstdint>
#include <vector>

class CMC_Groupped;
class CPlayable;
class CRefreshScreen;

class CAnimationManager : public CXObject {
public:
    void add(CPlayable * playable, CRefreshScreen * canvas);
    void remove(CPlayable * playable);
    void pause();                      // all that play
    void resume(CMC_Groupped * group); // all that are paused; with a group those of its animations
    void domodal();                    // the tick

private:
    struct Entry {
        CPlayable * playable;
        CRefreshScreen * canvas;
        bool due;
        std::uint32_t last; // milliseconds
    };
    Entry * find(CPlayable * playable);
    std::vector<CPlayable *> playables() const;

    std::vector<Entry> entries_;
};
