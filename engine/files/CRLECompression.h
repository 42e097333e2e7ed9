#pragma once

// Run-length coding of picture planes: colours in units of two bytes, alpha in single bytes. A stream is a
// row of groups and nothing else; the reader is told the size of the result.

#include "files/CCompression.h"

class CRLECompression : public CCompression {
public:
    CRLECompression(char * data, int size) : CCompression(data, size) {}

    // `bytes` is always the size of the uncompressed data. An odd last byte of words isn't coded. Null for
    // sizes below 0 or above kLargest.
    static char * __compress(const char * src, int bytes, int & outSize);
    static char * __compresschar(const char * src, int bytes, int & outSize);
    static char * __decompress(const char * src, int srcSize, int bytes);
    static char * __decompresschar(const char * src, int srcSize, int bytes);

    // The same into a block of the caller's.
    static void expand(const char * src, int srcSize, char * to, int bytes);
    static void expandchar(const char * src, int srcSize, char * to, int bytes);
};
