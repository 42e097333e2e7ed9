#pragma once

// The methods of SYSTEM. Dates and times are UTC.

#include "script/CMC_Runner.h"

class CMC_System_Runner : public CMC_Runner {
public:
    CMC_System_Runner();
};
