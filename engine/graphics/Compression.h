#pragma once

// How a picture's two planes are held, in memory and in the files of pictures and animations.

enum _compression : int {
    kCompressionNone = 0,   // raw
    kCompressionLzo = 2,    // both planes as LZO blocks
    kCompressionLzoRle = 3, // LZO blocks of run-length data
    kCompressionRle = 4,    // run-length data: the colours in words, the alpha in bytes
    kCompressionJpeg = 5,   // the colours a whole JPEG file, the alpha an LZO block
};
