#pragma once

// The methods of ARRAY.

#include "script/CMC_Runner.h"

class CMC_Array_Runner : public CMC_Runner {
public:
    CMC_Array_Runner();
};
