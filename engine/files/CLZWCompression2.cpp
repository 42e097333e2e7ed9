#include "files/CLZWCompression2.h"

#include "files/LittleEndian.h"

#include <algorithm>
#include <cstring>
#include <lzo/lzo1x.h>
#include <memory>

char * CLZWCompression2::compress(int & outSize) {
    outSize = 0;
    int size = data_ && size_ > 0 ? size_ : 0;
    if (size > kLargest) return nullptr;
    // A short input may grow to more than twice its size; this holds the worst case of any.
    auto room = static_cast<std::size_t>(size) + static_cast<std::size_t>(size) / 16 + 67;
    std::unique_ptr<unsigned char[]> stream(new unsigned char[room]);
    std::unique_ptr<unsigned char[]> work(new unsigned char[LZO1X_1_MEM_COMPRESS]);
    lzo_uint length = room;
    if (lzo1x_1_compress(reinterpret_cast<const unsigned char *>(data_), static_cast<lzo_uint>(size),
                         stream.get(), &length, work.get()) != LZO_E_OK)
        return nullptr;
    char * block = new char[kHead + length];
    little::putDword(block, static_cast<std::uint32_t>(size));
    little::putDword(block + 4, static_cast<std::uint32_t>(length));
    std::memcpy(block + kHead, stream.get(), length);
    outSize = static_cast<int>(length);
    return block;
}

int CLZWCompression2::getOriginalSize() const {
    if (!data_ || size_ < kHead) return 0;
    long long size = little::integer(data_);
    int length = std::clamp(little::integer(data_ + 4), 0, size_ - kHead);
    // A byte of a stream lengthens a match by 255 at most.
    return size < 0 || size > kLargest || size > length * 256LL ? 0 : static_cast<int>(size);
}

char * CLZWCompression2::decompress() {
    int size = getOriginalSize();
    if (!data_ || size_ < kHead || size != little::integer(data_)) return nullptr;
    int length = std::clamp(little::integer(data_ + 4), 0, size_ - kHead);
    auto room = static_cast<std::size_t>(size);
    char * result = new char[room];
    lzo_uint made = room;
    // The unsafe decoder is no faster, and writes past the result when a stream says so.
    lzo1x_decompress_safe(reinterpret_cast<const unsigned char *>(data_ + kHead),
                          static_cast<lzo_uint>(length), reinterpret_cast<unsigned char *>(result), &made,
                          nullptr);
    made = std::min<lzo_uint>(made, room);
    std::memset(result + made, 0, room - made);
    return result;
}
