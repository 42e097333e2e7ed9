#pragma once

// The value of a parameter that is a block of code: the name of the behaviour made from it. Owned by the
// statement.

#include "script/CMC_Behaviour.h"
#include "script/CMC_String.h"

#include <typeinfo>

class CMC_BlockName : public CMC_String {
public:
    CMC_BlockName(CMC_Behaviour * block, const CXString & name)
        : CMC_String(block->getName(), name), block_(block) {}

    CMC_Behaviour * block() const {
        return static_cast<CMC_Behaviour *>(block_.get());
    } // null once it is gone

    // The parameter as one of these, or null.
    static CMC_BlockName * of(CXObject * parameter) {
        return parameter && typeid(*parameter) == typeid(CMC_BlockName)
                   ? static_cast<CMC_BlockName *>(parameter)
                   : nullptr;
    }

private:
    life::Handle block_;
};
