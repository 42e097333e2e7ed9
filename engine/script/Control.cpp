#include "script/Control.h"

#include "script/CMC_Integer.h"

#include <new>

namespace control {

alignas(CMC_Integer) char area[kArea];

namespace {

// Made at the first use and never deleted: their objects' places must outlive everything that looks at them.
CMC_Variable * signal(std::size_t i) {
    constexpr std::size_t kRoom = kArea / 3 / alignof(CMC_Integer) * alignof(CMC_Integer);
    static_assert(sizeof(CMC_Integer) <= kRoom);
    auto make = [](std::size_t at, int value) {
        // The area is aligned where it is defined. NOLINTNEXTLINE(clang-analyzer-cplusplus.PlacementNew)
        return new (area + at * kRoom) CMC_Integer(value);
    };
    // Their numbers show when a script uses one as a value.
    static CMC_Integer * const made[] = {make(0, -1), make(1, -2), make(2, -3)};
    return made[i];
}

} // namespace

CMC_Variable * breakSignal() { return signal(0); }
CMC_Variable * oneBreakSignal() { return signal(1); }
CMC_Variable * continueSignal() { return signal(2); }

} // namespace control
