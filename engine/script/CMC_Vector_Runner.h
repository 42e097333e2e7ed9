#pragma once

// The methods of VECTOR.

#include "script/CMC_Runner.h"

class CMC_Vector_Runner : public CMC_Runner {
public:
    CMC_Vector_Runner();
};
