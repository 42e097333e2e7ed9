#pragma once

// Methods of ANIMO.

#include "script/CMC_Runner.h"

class CMC_Animo_Runner : public CMC_Runner {
public:
    CMC_Animo_Runner();
};
