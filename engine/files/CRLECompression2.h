#pragma once

// The rows of a PSD file's channel: signed control bytes, and a table of the rows' coded lengths. It fails
// as the decoders of CCompression do.

#include "core/CXObject.h"
#include "core/CXSize.h"

#include <memory>

class CRLECompression2 : public CXObject {
public:
    // rows: one number for each row of the size, new[]-ed, taken over. The data stays the caller's.
    CRLECompression2(CXSize size, short * rows, char * data, int dataSize)
        : size_(dataSize), data_(data), picture_(size), rows_(rows) {}
    CRLECompression2(const CRLECompression2 &) = delete;
    CRLECompression2 & operator=(const CRLECompression2 &) = delete;

    // width x height bytes, rows without padding; the argument isn't used.
    char * Decompress(int = 0);

private:
    int size_;
    char * data_;
    CXSize picture_;
    std::unique_ptr<short[]> rows_;
};
