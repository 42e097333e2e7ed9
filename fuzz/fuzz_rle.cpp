// Run-length streams and the rows of a PSD channel. The first three bytes tell the result's size.

#include "files/CRLECompression.h"
#include "files/CRLECompression2.h"
#include "files/PlainDecoders.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

template <class Unit>
void check(const std::vector<unsigned char> & stream, int bytes) {
    constexpr bool kWords = sizeof(Unit) == 2;
    auto room = static_cast<std::size_t>(bytes);
    std::vector<unsigned char> expected(room);
    plain::runLengths<Unit>(stream.data(), stream.size(), expected.data(), room);
    const char * from = reinterpret_cast<const char *>(stream.data());
    int size = static_cast<int>(stream.size());
    std::unique_ptr<char[]> made(kWords ? CRLECompression::__decompress(from, size, bytes)
                                        : CRLECompression::__decompresschar(from, size, bytes));
    require(made != nullptr);
    if (bytes) require(std::memcmp(made.get(), expected.data(), room) == 0);

    int whole = size & -static_cast<int>(sizeof(Unit)), coded = 0;
    std::unique_ptr<char[]> packed(kWords ? CRLECompression::__compress(from, whole, coded)
                                          : CRLECompression::__compresschar(from, whole, coded));
    made.reset(kWords ? CRLECompression::__decompress(packed.get(), coded, whole)
                      : CRLECompression::__decompresschar(packed.get(), coded, whole));
    if (whole) require(std::memcmp(made.get(), from, static_cast<std::size_t>(whole)) == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    if (size < 3) return 0;
    int bytes = data[0] | data[1] << 8 | (data[2] & 3) << 16, width = data[0], height = data[1];
    std::vector<unsigned char> stream(data + 3, data + size);
    check<std::uint16_t>(stream, bytes);
    check<unsigned char>(stream, bytes);

    // The table of the rows' lengths first, as in the file.
    if (stream.size() < static_cast<std::size_t>(height) * 2) return 0;
    auto * rows = new short[static_cast<std::size_t>(height)];
    for (int y = 0; y < height; y++)
        rows[y] = static_cast<short>(stream[static_cast<std::size_t>(y) * 2] << 8 |
                                     stream[static_cast<std::size_t>(y) * 2 + 1]);
    std::vector<char> coded(stream.begin() + static_cast<std::ptrdiff_t>(height) * 2, stream.end());
    CRLECompression2 coder({width, height}, rows, coded.data(), static_cast<int>(coded.size()));
    require(std::unique_ptr<char[]>(coder.Decompress()) != nullptr);
    return 0;
}
