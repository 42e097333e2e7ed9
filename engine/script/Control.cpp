#include "script/Control.h"

#include "script/CMC_Integer.h"

namespace control {

namespace {

// Made at the first use and never deleted: their objects' places must outlive everything that looks at them.
CMC_Variable * signal(int i) {
    // Their numbers show when a script uses one as a value.
    static CMC_Integer * const signals[] = {new CMC_Integer(-1), new CMC_Integer(-2), new CMC_Integer(-3)};
    return signals[i];
}

} // namespace

CMC_Variable * breakSignal() { return signal(0); }
CMC_Variable * oneBreakSignal() { return signal(1); }
CMC_Variable * continueSignal() { return signal(2); }

bool isSignal(const CMC_Object * result) {
    return result && (result == signal(0) || result == signal(1) || result == signal(2));
}

} // namespace control
