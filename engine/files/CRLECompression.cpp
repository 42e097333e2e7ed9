#include "files/CRLECompression.h"

#include "files/PlainDecoders.h"

#include <cstring>
#include <vector>

namespace {

constexpr int kLongest = 127; // units of a group
constexpr int kShortRun = 4;  // a run below this is written as it is
constexpr unsigned char kRun = 0x80;

template <class Unit>
Unit unitAt(const char * src, int i) {
    Unit unit;
    std::memcpy(&unit, src + i * static_cast<std::ptrdiff_t>(sizeof unit), sizeof unit);
    return unit;
}

template <class Unit>
char * encode(const char * src, int bytes, int & outSize) {
    outSize = 0;
    if (bytes < 0 || bytes > CCompression::kLargest || (!src && bytes)) return nullptr;
    int count = bytes / static_cast<int>(sizeof(Unit));
    // The worst is one unit a group.
    std::vector<char> out(static_cast<std::size_t>(count) * (sizeof(Unit) + 1));
    std::size_t made = 0;
    auto group = [&](int control, int from, int units) {
        out[made++] = static_cast<char>(control);
        std::size_t size = static_cast<std::size_t>(units) * sizeof(Unit);
        std::memcpy(&out[made], src + static_cast<std::size_t>(from) * sizeof(Unit), size);
        made += size;
    };
    for (int i = 0, pending = 0; i < count || pending;) {
        if (i < count && pending < kLongest &&
            (i + 1 == count || unitAt<Unit>(src, i + 1) != unitAt<Unit>(src, i))) {
            pending++;
            i++;
            continue;
        }
        if (pending) group(pending, i - pending, pending);
        pending = 0;
        if (i == count) break;
        int run = 1;
        while (run < kLongest && i + run < count && unitAt<Unit>(src, i + run) == unitAt<Unit>(src, i)) run++;
        // A short run is a group of its own: it doesn't join the one before.
        if (run < kShortRun)
            group(run, i, run);
        else
            group(kRun | run, i, 1);
        i += run;
    }
    char * result = new char[made];
    if (made) std::memcpy(result, out.data(), made);
    outSize = static_cast<int>(made);
    return result;
}

// Whole 16-byte steps while both sides have room for the longest group, then the plain way, which cuts the
// last group too. A branch for the kind of group is guessed well; a form without would wait for each length
// before it could read the next control byte.
template <class Unit>
std::size_t decode(const unsigned char * from, std::size_t fromSize, unsigned char * to, std::size_t toSize) {
    constexpr std::size_t kStep = 16;
    constexpr std::ptrdiff_t kRoom = 1 + kLongest * sizeof(Unit) + 2 * kStep;
    const unsigned char *in = from, *inEnd = from + fromSize;
    unsigned char *out = to, *outEnd = to + toSize;
    while (inEnd - in >= kRoom && outEnd - out >= kRoom) {
        unsigned control = *in++;
        std::size_t length = (control & 0x7F) * sizeof(Unit);
        unsigned char * stop = out + length;
        if (control & kRun) {
            Unit unit;
            std::memcpy(&unit, in, sizeof unit);
            in += sizeof unit;
            std::uint64_t eight = unit * (~std::uint64_t{0} / static_cast<Unit>(~Unit{0}));
            const std::uint64_t step[2] = {eight, eight};
            do {
                std::memcpy(out, step, kStep);
                std::memcpy(out + kStep, step, kStep);
                out += 2 * kStep;
            } while (out < stop);
        } else {
            const unsigned char * units = in;
            in += length;
            do {
                std::memcpy(out, units, kStep);
                out += kStep;
                units += kStep;
            } while (out < stop);
        }
        out = stop;
    }
    auto made = static_cast<std::size_t>(out - to);
    return made + plain::runLengths<Unit>(in, static_cast<std::size_t>(inEnd - in), out, toSize - made);
}

template <class Unit>
void decodeInto(const char * src, int srcSize, char * to, int bytes) {
    if (bytes <= 0) return;
    auto room = static_cast<std::size_t>(bytes);
    std::size_t made = 0;
    if (src && srcSize > 0)
        made = decode<Unit>(reinterpret_cast<const unsigned char *>(src), static_cast<std::size_t>(srcSize),
                            reinterpret_cast<unsigned char *>(to), room);
    std::memset(to + made, 0, room - made);
}

template <class Unit>
char * decodeNew(const char * src, int srcSize, int bytes) {
    if (bytes < 0 || bytes > CCompression::kLargest) return nullptr;
    char * result = new char[static_cast<std::size_t>(bytes)];
    decodeInto<Unit>(src, srcSize, result, bytes);
    return result;
}

using Word = std::uint16_t;
using Byte = unsigned char;

} // namespace

char * CRLECompression::__compress(const char * src, int bytes, int & outSize) {
    return encode<Word>(src, bytes, outSize);
}

char * CRLECompression::__compresschar(const char * src, int bytes, int & outSize) {
    return encode<Byte>(src, bytes, outSize);
}

char * CRLECompression::__decompress(const char * src, int srcSize, int bytes) {
    return decodeNew<Word>(src, srcSize, bytes);
}

char * CRLECompression::__decompresschar(const char * src, int srcSize, int bytes) {
    return decodeNew<Byte>(src, srcSize, bytes);
}

void CRLECompression::expand(const char * src, int srcSize, char * to, int bytes) {
    decodeInto<Word>(src, srcSize, to, bytes);
}

void CRLECompression::expandchar(const char * src, int srcSize, char * to, int bytes) {
    decodeInto<Byte>(src, srcSize, to, bytes);
}
