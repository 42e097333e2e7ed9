#pragma once

// The properties of one element, which owns the list, in the order in which they were added. It owns them.

#include "script/CMList.h"
#include "script/CMProperty.h"

class CMProperties : public CMList<CMProperty> {
public:
    CMProperties() = default;
    ~CMProperties() override { release(); }
};
