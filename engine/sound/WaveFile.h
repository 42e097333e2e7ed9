#pragma once

// WAVE files: the format record, and the walk from chunk to chunk.

#include "files/CFile.h"

#include <cstdint>

// As the file holds it, lowest byte first.
struct WAVEFORMATEX {
    std::uint16_t wFormatTag = 0;
    std::uint16_t nChannels = 0;
    std::uint32_t nSamplesPerSec = 0;
    std::uint32_t nAvgBytesPerSec = 0;
    std::uint16_t nBlockAlign = 0; // bytes of a frame
    std::uint16_t wBitsPerSample = 0;
    std::uint16_t cbSize = 0; // bytes behind this record
};

namespace wave {

constexpr int kRiffHead = 12, kChunkHead = 8; // bytes
constexpr int kFormat = 18;                   // of the format record in a file; the last field may be missing

// The head of the file, at its position; false when it is another kind of file.
bool readHead(CFile & file);

// On to the first chunk of that name from here; its size as it is stated. Chunks lie back to back, without
// a byte between them after one of an odd size. False at the end of the file.
bool findChunk(CFile & file, const char * id, std::uint32_t & size);

// The head and the chunk "fmt ", of which `format` takes what it has room for. The file's position is behind
// the chunk.
bool readFormat(CFile & file, WAVEFORMATEX & format);

} // namespace wave
