#pragma once

// The keyboard of a person's window: the window's events press its keys.

#include "platform/input/ScriptedKeyboard.h"

namespace platform {

class SdlKeyboard : public ScriptedKeyboard {
public:
    const char * name() const override { return "SDL"; }
    bool isCapsLockOn() override;

    // The code of a key from SDL's scan code; 0 for a key without one.
    static int codeOf(int scanCode);
};

} // namespace platform
