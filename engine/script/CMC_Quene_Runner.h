#pragma once

// The methods of FIFO and LIFO.

#include "script/CMC_Runner.h"

class CMC_Quene_Runner : public CMC_Runner {
public:
    CMC_Quene_Runner();
};
