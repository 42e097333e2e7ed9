#include "sound/WaveFile.h"

#include "files/LittleEndian.h"

#include <algorithm>
#include <cstring>

namespace wave {

namespace {

long long left(CFile & file) { return static_cast<long long>(file.Length()) - file.Tell(); }

bool skip(CFile & file, std::uint32_t bytes) {
    if (bytes > left(file)) return false;
    file.Seek(static_cast<int>(bytes), 1);
    return true;
}

} // namespace

bool readHead(CFile & file) {
    char head[kRiffHead];
    return file.Read(head, kRiffHead) == kRiffHead && std::memcmp(head, "RIFF", 4) == 0 &&
           std::memcmp(head + 8, "WAVE", 4) == 0;
}

bool findChunk(CFile & file, const char * id, std::uint32_t & size) {
    char head[kChunkHead];
    while (file.Read(head, kChunkHead) == kChunkHead) {
        size = little::dword(head + 4);
        if (std::memcmp(head, id, 4) == 0) return true;
        if (!skip(file, size)) break;
    }
    return false;
}

bool readFormat(CFile & file, WAVEFORMATEX & format) {
    std::uint32_t size = 0;
    if (!readHead(file) || !findChunk(file, "fmt ", size)) return false;
    char record[kFormat] = {};
    int taken = static_cast<int>(std::min<std::uint32_t>(size, kFormat));
    if (file.Read(record, taken) != taken) return false;
    format = {little::word(record),      little::word(record + 2),  little::dword(record + 4),
              little::dword(record + 8), little::word(record + 12), little::word(record + 14),
              little::word(record + 16)};
    return skip(file, size - static_cast<std::uint32_t>(taken));
}

} // namespace wave
