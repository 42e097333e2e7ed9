#include "script/Control.h"

#include "script/CMC_Integer.h"

namespace control {

const CMC_Object * signals[3];

namespace {

// Made at the first use and never deleted: their objects' places must outlive everything that looks at them.
CMC_Variable * signal(int i) {
    // Their numbers show when a script uses one as a value.
    static CMC_Integer * const made[] = {new CMC_Integer(-1), new CMC_Integer(-2), new CMC_Integer(-3)};
    signals[i] = made[i];
    return made[i];
}

} // namespace

CMC_Variable * breakSignal() { return signal(0); }
CMC_Variable * oneBreakSignal() { return signal(1); }
CMC_Variable * continueSignal() { return signal(2); }

} // namespace control
