#pragma once

// Ids for the timers of script objects: addresses are too long for them.

namespace timerids {

inline int next() {
    static int last = 0;
    return ++last;
}

} // namespace timerids
