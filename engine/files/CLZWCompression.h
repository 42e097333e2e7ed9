#pragma once

// The dictionary coder of old pictures: codes of 9 to 16 bits, lowest bit first, and a dictionary that the
// encoder drops when it no longer serves. A block is a head of three numbers and the bit stream.

#include "files/CCompression.h"

class CLZWCompression : public CCompression {
public:
    static constexpr int kHead = 12; // original size, bytes of the bit stream, number of codes

    CLZWCompression(char * data, int size) : CCompression(data, size) {}

    // A new block of outSize bytes, the head included; null and 0 for data above kLargest.
    char * compress(int & outSize);

    // The data is a block. The object's size becomes the original size; the argument isn't used. Null (and
    // the size 0) without a sensible head.
    char * decompress(int = 0);
};
