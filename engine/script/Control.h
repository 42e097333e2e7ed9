#pragma once

// What a statement gives besides a value or nothing: the wish to end the behaviours around it. Such a wish
// travels as one of three values that stand for it and for nothing else.

class CMC_Object;
class CMC_Variable;

namespace control {

CMC_Variable * breakSignal();    // ends this behaviour, and the caller ends too
CMC_Variable * oneBreakSignal(); // ends this behaviour
CMC_Variable * continueSignal(); // ends this behaviour

// The three as objects; null until the first is asked for.
extern const CMC_Object * signals[3];

inline bool isSignal(const CMC_Object * result) {
    return result && (result == signals[0] || result == signals[1] || result == signals[2]);
}

} // namespace control
