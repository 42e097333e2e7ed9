#pragma once

// Methods of JOYSTICK.

#include "script/CMC_Runner.h"

class CMC_Joystick_Runner : public CMC_Runner {
public:
    CMC_Joystick_Runner();
};
