#pragma once

#include "script/CMC_Runner.h"

class CMC_Sound_Runner : public CMC_Runner {
public:
    CMC_Sound_Runner();
};
