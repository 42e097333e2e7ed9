#include "files/CLZWCompression.h"

#include "files/LittleEndian.h"
#include "files/PlainDecoders.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr unsigned kClear = 256, kFirst = 257, kCodes = 65536;
constexpr unsigned kNarrow = 9, kWide = 16; // bits of a code

// --- decoder ---

class BitReader {
public:
    BitReader(const unsigned char * from, std::size_t size) : at_(from), end_(from + size) {}

    // False when there are fewer bits than that.
    bool take(unsigned width, std::uint32_t & code) {
        if (count_ < width) {
            fill();
            if (count_ < width) return false;
        }
        code = static_cast<std::uint32_t>(bits_ & ((1u << width) - 1));
        bits_ >>= width;
        count_ -= width;
        return true;
    }

private:
    void fill() {
        if (end_ - at_ >= 8) {
            // Bits above the counted ones may go in twice; they are the same bits.
            bits_ |= (std::uint64_t{little::dword(at_)} | std::uint64_t{little::dword(at_ + 4)} << 32)
                     << count_;
            at_ += (63 - count_) >> 3;
            count_ |= 56;
        } else {
            for (; count_ <= 56 && at_ < end_; count_ += 8) bits_ |= std::uint64_t{*at_++} << count_;
        }
    }

    const unsigned char * at_;
    const unsigned char * end_;
    std::uint64_t bits_ = 0;
    unsigned count_ = 0;
};

// A string of the dictionary, as it stands in the output already.
struct Place {
    std::uint32_t at, length;
};

// The last 16 bytes may be written in one step when there's room, whatever the length.
inline void copy(unsigned char * to, const unsigned char * from, std::size_t length, std::size_t room) {
    constexpr std::size_t kStep = 16;
    if (to - from >= static_cast<std::ptrdiff_t>(kStep) && room >= length + kStep) {
        std::size_t done = 0;
        do {
            std::memcpy(to + done, from + done, kStep);
            done += kStep;
        } while (done < length);
    } else {
        for (std::size_t i = 0; i < length; i++) to[i] = from[i];
    }
}

// plain::dictionary for streams that open with the clear code, as all do. The byte that a new entry adds to
// the string before is the first one of the string behind it: so an entry's string stands in the output, and
// decoding a code is one copy.
std::size_t decode(const unsigned char * bits, std::size_t bitsSize, int codes, unsigned char * to,
                   std::size_t toSize) {
    std::unique_ptr<Place[]> places(new Place[kCodes]);
    BitReader in(bits, bitsSize);
    unsigned width = kNarrow, next = kFirst;
    std::uint32_t code, literal;
    Place previous{0, 0};
    std::size_t out = 0;
    for (; codes > 0 && out < toSize && in.take(width, code); codes--) { // a damaged count may be below 0
        if (code == kClear) {
            width = kNarrow;
            next = kFirst;
            if (--codes == 0 || !in.take(width, literal) || literal > 255) break;
            previous = {static_cast<std::uint32_t>(out), 1};
            to[out++] = static_cast<unsigned char>(literal);
            continue;
        }
        std::size_t room = toSize - out, length = 1;
        if (code < kClear) {
            to[out] = static_cast<unsigned char>(code);
        } else {
            if (code > next) break;
            Place string = code == next ? Place{previous.at, previous.length + 1} : places[code];
            length = std::min<std::size_t>(string.length, room);
            copy(to + out, to + string.at, length, room);
        }
        if (next < kCodes) places[next++] = {previous.at, previous.length + 1};
        previous = {static_cast<std::uint32_t>(out), static_cast<std::uint32_t>(length)};
        out += length;
        if (width < kWide && next >> width) width++;
    }
    return out;
}

// --- encoder ---

class BitWriter {
public:
    explicit BitWriter(std::vector<char> & to) : to_(to) {}
    void put(unsigned code, unsigned width) {
        bits_ |= code << count_;
        for (count_ += width; count_ >= 8; count_ -= 8, bits_ >>= 8) to_.push_back(static_cast<char>(bits_));
    }
    void finish() {
        if (count_) to_.push_back(static_cast<char>(bits_));
    }

private:
    std::vector<char> & to_;
    std::uint32_t bits_ = 0;
    unsigned count_ = 0;
};

// The strings met so far, as a tree: a string's children are one byte longer.
class Tree {
public:
    Tree() : nodes_(kCodes) {}

    // The child's code, or 0.
    unsigned child(unsigned parent, unsigned char byte) const {
        unsigned code = nodes_[parent].first;
        while (code && nodes_[code].byte != byte) code = nodes_[code].sibling;
        return code;
    }
    void add(unsigned parent, unsigned char byte, unsigned code) {
        nodes_[code] = {0, 0, 0, byte};
        Node & node = nodes_[parent];
        (node.first ? nodes_[node.last].sibling : node.first) = static_cast<std::uint16_t>(code);
        node.last = static_cast<std::uint16_t>(code);
    }
    void clear() { nodes_.assign(kCodes, Node{}); }

private:
    struct Node {
        std::uint16_t first = 0, last = 0, sibling = 0; // codes; no child is 0
        unsigned char byte = 0;
    };
    std::vector<Node> nodes_;
};

class Encoder {
public:
    explicit Encoder(std::vector<char> & block) : bits_(block) {}

    int run(const unsigned char * from, const unsigned char * end) {
        if (from == end) return 0;
        write(kClear);
        prefix_ = *from++;
        while (from < end) {
            unsigned char byte = *from++;
            periodBytes_++;
            if (unsigned longer = tree_.child(prefix_, byte)) {
                prefix_ = longer;
                continue;
            }
            if (last_ < kCodes - 1) tree_.add(prefix_, byte, ++last_);
            write(prefix_);
            periodCodes_++;
            prefix_ = byte;
            countdown_--;
            if (countdown_ == 2) {
                if (worse() && from < end) {
                    write(byte);
                    write(kClear);
                    restart(*from++);
                }
            } else if (countdown_ == 0) {
                countdown_ = width_ < kWide ? 1 << width_++ : kFurther;
                periodBytes_ = periodCodes_ = 0;
            }
        }
        write(prefix_);
        bits_.finish();
        return codes_;
    }

private:
    static constexpr int kPeriod = 256, kFurther = 2048; // codes at the first width, and once at the last

    void write(unsigned code) {
        bits_.put(code, width_);
        codes_++;
    }

    // Whether this period was coded worse than the stretch since the dictionary's start.
    bool worse() {
        long long periodBits = static_cast<long long>(width_) * periodCodes_;
        inBits_ += periodBytes_ * 8;
        outBits_ += periodBits;
        long long period = periodBytes_ * 800 / periodBits, running = inBits_ * 100 / outBits_;
        periodBytes_ = periodCodes_ = 0;
        return running > period && width_ >= 12;
    }

    void restart(unsigned char byte) {
        tree_.clear();
        prefix_ = byte;
        width_ = kNarrow;
        last_ = kClear;
        countdown_ = kPeriod;
        inBits_ = outBits_ = 0;
        periodBytes_ = periodCodes_ = 1;
    }

    BitWriter bits_;
    Tree tree_;
    unsigned prefix_ = 0, width_ = kNarrow, last_ = kClear;
    int countdown_ = kPeriod, codes_ = 0;
    long long periodBytes_ = 0, periodCodes_ = 0, inBits_ = 0, outBits_ = 0;
};

} // namespace

char * CLZWCompression::compress(int & outSize) {
    const auto * from = reinterpret_cast<const unsigned char *>(data_);
    int size = data_ && size_ > 0 ? size_ : 0;
    outSize = 0;
    if (size > kLargest) return nullptr;
    std::vector<char> block(kHead);
    int codes = Encoder(block).run(from, from + size);
    little::putDword(&block[0], static_cast<std::uint32_t>(size));
    little::putDword(&block[4], static_cast<std::uint32_t>(block.size() - kHead));
    little::putDword(&block[8], static_cast<std::uint32_t>(codes));
    outSize = static_cast<int>(block.size());
    char * result = new char[block.size()];
    std::memcpy(result, block.data(), block.size());
    return result;
}

char * CLZWCompression::decompress(int) {
    int available = data_ ? size_ - kHead : -1;
    size_ = 0;
    if (available < 0) return nullptr;
    long long size = little::integer(data_);
    int stated = little::integer(data_ + 4), codes = little::integer(data_ + 8);
    auto length = static_cast<std::size_t>(std::clamp(stated, 0, available));
    // A code's string is at most one byte longer than the one before, so that many codes give at most:
    auto most = std::clamp<long long>(codes, 0, static_cast<long long>(length) * 8 / kNarrow);
    if (size < 0 || size > kLargest || size > most * (most + 1) / 2) return nullptr;

    const auto * bits = reinterpret_cast<const unsigned char *>(data_ + kHead);
    size_ = static_cast<int>(size);
    auto room = static_cast<std::size_t>(size);
    char * result = new char[room];
    auto * to = reinterpret_cast<unsigned char *>(result);
    bool opened = length >= 2 && (little::word(bits) & 0x1FF) == kClear;
    std::size_t made = (opened ? decode : plain::dictionary)(bits, length, codes, to, room);
    std::memset(result + made, 0, room - made);
    return result;
}
