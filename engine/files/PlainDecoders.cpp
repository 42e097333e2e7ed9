#include "files/PlainDecoders.h"

#include <cstdint>
#include <cstring>
#include <memory>

namespace plain {

template <class Unit>
std::size_t runLengths(const unsigned char * from, std::size_t fromSize, unsigned char * to,
                       std::size_t toSize) {
    std::size_t in = 0, out = 0;
    while (toSize - out >= sizeof(Unit) && in < fromSize) {
        unsigned control = from[in++], left = control & 0x7F;
        if (control & 0x80) {
            if (fromSize - in < sizeof(Unit)) break;
            for (; left && toSize - out >= sizeof(Unit); left--, out += sizeof(Unit))
                std::memcpy(to + out, from + in, sizeof(Unit));
            in += sizeof(Unit);
        } else {
            for (; left && toSize - out >= sizeof(Unit); left--, out += sizeof(Unit), in += sizeof(Unit)) {
                if (fromSize - in < sizeof(Unit)) return out;
                std::memcpy(to + out, from + in, sizeof(Unit));
            }
        }
    }
    return out;
}
template std::size_t runLengths<std::uint16_t>(const unsigned char *, std::size_t, unsigned char *,
                                               std::size_t);
template std::size_t runLengths<unsigned char>(const unsigned char *, std::size_t, unsigned char *,
                                               std::size_t);

namespace {

constexpr unsigned kClear = 256, kFirst = 257, kCodes = 65536;

class Bits {
public:
    Bits(const unsigned char * from, std::size_t size) : from_(from), end_(from + size) {}

    // False when there are fewer bits than that.
    bool take(unsigned width, unsigned & code) {
        for (; count_ < width; count_ += 8) {
            if (from_ == end_) return false;
            bits_ |= static_cast<unsigned>(*from_++) << count_;
        }
        code = bits_ & ((1u << width) - 1);
        bits_ >>= width;
        count_ -= width;
        return true;
    }

private:
    const unsigned char * from_;
    const unsigned char * end_;
    unsigned bits_ = 0, count_ = 0;
};

struct Entry {
    std::uint16_t prefix;
    unsigned char byte;
};

} // namespace

std::size_t dictionary(const unsigned char * bits, std::size_t bitsSize, int codes, unsigned char * to,
                       std::size_t toSize) {
    std::unique_ptr<Entry[]> entries(new Entry[kCodes]);
    std::unique_ptr<unsigned char[]> stack(new unsigned char[kCodes]);
    Bits in(bits, bitsSize);
    unsigned width = 9, next = kFirst, previous = 0, code;
    std::size_t out = 0;
    for (; codes > 0 && out < toSize && in.take(width, code); codes--) { // a damaged count may be below 0
        if (code == kClear) {
            width = 9;
            next = kFirst;
            if (--codes == 0 || !in.take(width, previous) || previous > 255) break;
            to[out++] = static_cast<unsigned char>(previous);
            continue;
        }
        if (code > next) break;
        // The string from its end: each entry is a shorter string and one byte more.
        std::size_t length = code == next ? 1 : 0; // of the string being defined, the last byte comes later
        unsigned walk = code == next ? previous : code;
        for (; walk > 255; walk = entries[walk].prefix) stack[length++] = entries[walk].byte;
        auto first = static_cast<unsigned char>(walk);
        stack[length++] = first;
        if (code == next) stack[0] = first;
        while (length && out < toSize) to[out++] = stack[--length];
        if (next < kCodes) entries[next++] = {static_cast<std::uint16_t>(previous), first};
        previous = code;
        if (width < 16 && next >> width) width++;
    }
    return out;
}

} // namespace plain
