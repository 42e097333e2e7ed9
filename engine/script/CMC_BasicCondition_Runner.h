#pragma once

// The methods of CONDITION and COMPLEXCONDITION. Main thread.

#include "script/CMC_Runner.h"

class CMC_BasicCondition_Runner : public CMC_Runner {
public:
    CMC_BasicCondition_Runner();
};
