#pragma once

// What a statement gives besides a value or nothing: the wish to end the behaviours around it. Such a wish
// travels as one of three values that stand for it and for nothing else.

#include <cstddef>
#include <cstdint>

class CMC_Object;
class CMC_Variable;

namespace control {

CMC_Variable * breakSignal();    // ends this behaviour, and the caller ends too
CMC_Variable * oneBreakSignal(); // ends this behaviour
CMC_Variable * continueSignal(); // ends this behaviour

// Where the three objects stand.
inline constexpr std::size_t kArea = 1024;
extern char area[kArea];

inline bool isSignal(const CMC_Object * result) {
    return reinterpret_cast<std::uintptr_t>(result) - reinterpret_cast<std::uintptr_t>(area) < kArea;
}

} // namespace control
