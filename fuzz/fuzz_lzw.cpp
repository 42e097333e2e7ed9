// Blocks of the dictionary coder and of the LZO library: what the plain decoder gives, and back again.

#include "files/CLZWCompression.h"
#include "files/CLZWCompression2.h"
#include "files/LittleEndian.h"
#include "files/PlainDecoders.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    std::vector<char> block(data, data + size); // of its exact size
    CLZWCompression coder(block.data(), static_cast<int>(size));
    std::unique_ptr<char[]> made(coder.decompress());
    if (made) {
        auto room = static_cast<std::size_t>(coder.getSize());
        std::vector<unsigned char> expected(room);
        std::size_t stated = static_cast<std::size_t>(std::max(little::integer(&block[4]), 0));
        plain::dictionary(data + CLZWCompression::kHead, std::min(stated, size - CLZWCompression::kHead),
                          little::integer(&block[8]), expected.data(), room);
        require(room == 0 || std::memcmp(made.get(), expected.data(), room) == 0);
    }

    CLZWCompression2 library(block.data(), static_cast<int>(size));
    std::unique_ptr<char[]>(library.decompress());

    int length = 0;
    CLZWCompression source(block.data(), static_cast<int>(size));
    std::unique_ptr<char[]> packed(source.compress(length));
    CLZWCompression again(packed.get(), length);
    made.reset(again.decompress());
    require(made && again.getSize() == static_cast<int>(size));
    require(size == 0 || std::memcmp(made.get(), data, size) == 0);
    return 0;
}
