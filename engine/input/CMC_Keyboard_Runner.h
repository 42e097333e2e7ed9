#pragma once

// Methods of KEYBOARD.

#include "script/CMC_Runner.h"

class CMC_Keyboard_Runner : public CMC_Runner {
public:
    CMC_Keyboard_Runner();
};
