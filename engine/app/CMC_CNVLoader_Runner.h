#pragma once

// Methods of CNVLOADER.

#include "script/CMC_Runner.h"

class CMC_CNVLoader_Runner : public CMC_Runner {
public:
    CMC_CNVLoader_Runner();
};
