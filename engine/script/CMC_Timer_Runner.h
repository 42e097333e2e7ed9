#pragma once

// The methods of TIMER.

#include "script/CMC_Runner.h"

class CMC_Timer_Runner : public CMC_Runner {
public:
    CMC_Timer_Runner();
};
