#pragma once

// The base of the coders that work over a block lent to them.
//
// One rule holds for all decoders: they never read past the input's size nor write past the result, and where
// a stream ends early or stops making sense, the rest of the result is zero. A result is null only when its
// size makes no sense: negative, above kLargest, or more than a stream of that length could ever give.
// Results are new[]-ed and belong to the caller. Coders share no state: any thread may use its own.

#include "core/CXObject.h"

class CCompression : public CXObject {
public:
    static constexpr int kLargest = 1 << 28; // bytes of one result

    CCompression(char * data, int size) : size_(size), data_(data) {}

    virtual void setData(char * data) { data_ = data; }
    int getSize() const { return size_; }

protected:
    int size_;    // bytes of data
    char * data_; // the caller's
};
