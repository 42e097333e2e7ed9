#pragma once

// Pictures and animation frames packed by the LZO library (LZO1X-1), behind a head of two numbers.

#include "files/CCompression.h"

class CLZWCompression2 : public CCompression {
public:
    static constexpr int kHead = 8; // original size, bytes of the stream

    CLZWCompression2(char * data, int size) : CCompression(data, size) {}

    // A new block. outSize is the stream's length, without the head's bytes; null and 0 when the library
    // reports an error.
    char * compress(int & outSize);

    // The data is a block; the result has the size that the head states, which getOriginalSize tells. Null
    // without a sensible head.
    char * decompress();
    int getOriginalSize() const;
};
