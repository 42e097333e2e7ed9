#pragma once

// The methods of MULTIARRAY.

#include "script/CMC_Runner.h"

class CMC_MultiArray_Runner : public CMC_Runner {
public:
    CMC_MultiArray_Runner();
};
