#pragma once

// The methods of RANDOM, the object that scripts draw random numbers from.

#include "script/CMC_Runner.h"

class CMC_Rand_Runner : public CMC_Runner {
public:
    CMC_Rand_Runner();
};
