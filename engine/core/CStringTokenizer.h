#pragma once

// Cuts a text at the bytes of a separator set, one token ahead. Runs of separators count as one; no empty
// token comes out.

#include "core/CXObject.h"

class CStringTokenizer : public CXObject {
public:
    CStringTokenizer(const CXString & text, const CXString & separators);

    virtual bool hasMoreTokens() { return next_.IsString(); }
    // The next token; empty behind the last one.
    virtual CXString nextToken();

private:
    CXString getToken();

    CXString text_;
    CXString separators_;
    CXString next_;
    int position_ = 0;
};
