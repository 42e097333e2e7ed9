#pragma once

// The value of a parameter that is a block of code: the name of the behaviour made from it. Owned by the
// statement.

#include "script/CMC_Behaviour.h"
#include "script/CMC_String.h"

class CMC_BlockName : public CMC_String {
public:
    CMC_BlockName(CMC_Behaviour * block, const CXString & name) : CMC_String(name, kMark), block_(block) {
        put(block->getName().view());
    }

    CMC_Behaviour * block() const {
        return static_cast<CMC_Behaviour *>(block_.get());
    } // null once it is gone

    // The parameter as one of these, or null.
    static CMC_BlockName * of(CXObject * parameter) {
        auto * object = static_cast<CMC_Object *>(parameter);
        bool isText = object && object->getType() == types::kString;
        return isText && static_cast<CMC_String *>(object)->getId() == kMark
                   ? static_cast<CMC_BlockName *>(object)
                   : nullptr;
    }

private:
    static constexpr int kMark = -2; // where a pool's value has its place

    life::Handle block_;
};
