#pragma once

// Methods of EPISODE.

#include "script/CMC_Runner.h"

class CMC_Episode_Runner : public CMC_Runner {
public:
    CMC_Episode_Runner();
};
