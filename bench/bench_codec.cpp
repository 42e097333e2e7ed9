// The picture coders against their plain forms and against zlib over the same pictures.

#include "Ratio.h"

#include "files/CLZWCompression.h"
#include "files/CLZWCompression2.h"
#include "files/CRLECompression.h"
#include "files/LittleEndian.h"
#include "files/PlainDecoders.h"

#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <zlib.h>

namespace {

using Bytes = std::vector<unsigned char>;

constexpr int kWide = 800, kHigh = 600;

Bytes planeOf(const std::vector<std::uint16_t> & pixels) {
    Bytes out(pixels.size() * 2);
    std::memcpy(out.data(), pixels.data(), out.size());
    return out;
}

// Flat discs with outlines, some of them shaded, and a share of pixels with a texture.
Bytes drawn(unsigned texturePercent) {
    std::mt19937 random(5);
    std::vector<std::uint16_t> pixels(kWide * kHigh, 0x5AEB);
    for (int disc = 0; disc < 200; disc++) {
        int cx = static_cast<int>(random() % kWide), cy = static_cast<int>(random() % kHigh);
        int radius = 6 + static_cast<int>(random() % 60), inner = (radius - 2) * (radius - 2);
        unsigned colour = random(), shaded = random() % 4 == 0;
        for (int y = std::max(0, cy - radius); y < std::min(kHigh, cy + radius); y++)
            for (int x = std::max(0, cx - radius); x < std::min(kWide, cx + radius); x++) {
                int distance = (x - cx) * (x - cx) + (y - cy) * (y - cy);
                if (distance > radius * radius) continue;
                unsigned shade = shaded * ((y / 3 & 7) ^ (x / 5 & 3) << 5);
                pixels[static_cast<std::size_t>(y * kWide + x)] =
                    static_cast<std::uint16_t>(distance > inner ? 0 : colour ^ shade);
            }
    }
    for (std::uint16_t & pixel : pixels)
        if (random() % 100 < texturePercent) pixel = static_cast<std::uint16_t>(pixel ^ 1u << random() % 3);
    return planeOf(pixels);
}

Bytes photo() {
    std::mt19937 random(6);
    std::vector<std::uint16_t> pixels;
    for (int y = 0; y < kHigh; y++)
        for (int x = 0; x < kWide; x++) {
            double wave = std::sin(x * 0.013) + std::sin(y * 0.021 + x * 0.004);
            unsigned grey = static_cast<unsigned>(32 + 14 * wave) + random() % 3;
            pixels.push_back(static_cast<std::uint16_t>(grey | grey << 5 | grey / 2 << 11));
        }
    return planeOf(pixels);
}

// Soft discs of 64 x 64.
Bytes softAlpha() {
    Bytes out;
    for (int y = 0; y < kHigh; y++)
        for (int x = 0; x < kWide; x++) {
            double from = std::hypot(x % 64 - 31.5, y % 64 - 31.5);
            out.push_back(static_cast<unsigned char>(from < 19.8   ? 255
                                                     : from > 22.8 ? 0
                                                                   : (22.8 - from) * 85));
        }
    return out;
}

char * raw(Bytes & bytes) { return reinterpret_cast<char *>(bytes.data()); }

void runLengths(const char * name, Bytes plane, std::size_t unit, double goal) {
    int size = static_cast<int>(plane.size()), coded = 0;
    std::unique_ptr<char[]> stream(unit == 2 ? CRLECompression::__compress(raw(plane), size, coded)
                                             : CRLECompression::__compresschar(raw(plane), size, coded));
    Bytes result(plane.size());
    const auto * from = reinterpret_cast<const unsigned char *>(stream.get());
    bench::Table t(std::string("run lengths, ") + name + ", a byte of the result");
    auto fast = t.add("in steps of 16 bytes", size, [&] {
        if (unit == 2)
            CRLECompression::expand(stream.get(), coded, raw(result), size);
        else
            CRLECompression::expandchar(stream.get(), coded, raw(result), size);
        bench::keep(result[0]);
    });
    auto slow = t.add("unit by unit", size, [&] {
        if (unit == 2)
            plain::runLengths<std::uint16_t>(from, static_cast<std::size_t>(coded), result.data(),
                                             result.size());
        else
            plain::runLengths<unsigned char>(from, static_cast<std::size_t>(coded), result.data(),
                                             result.size());
        bench::keep(result[0]);
    });
    t.sample();
    t.ratio(fast, slow, goal);
    if (result != plane) std::printf("  WRONG RESULT\n");
}

void dictionary(const char * name, Bytes plane) {
    int size = static_cast<int>(plane.size()), coded = 0;
    CLZWCompression coder(raw(plane), size);
    std::unique_ptr<char[]> block(coder.compress(coded));
    Bytes deflated(compressBound(plane.size())), result(plane.size());
    uLongf deflatedSize = deflated.size();
    compress2(deflated.data(), &deflatedSize, plane.data(), plane.size(), 9);
    int length = 0;
    CLZWCompression2 library(raw(plane), size);
    std::unique_ptr<char[]> lzo(library.compress(length));
    const auto * bits = reinterpret_cast<const unsigned char *>(block.get()) + CLZWCompression::kHead;

    std::unique_ptr<char[]> unpacked;
    bench::Table t(std::string("dictionary coders, ") + name + ", a byte of the result");
    auto ours = t.add("CLZWCompression::decompress", size,
                      [&] { unpacked.reset(CLZWCompression(block.get(), coded).decompress()); });
    auto walk = t.add("prefix walk", size, [&] {
        plain::dictionary(bits, static_cast<std::size_t>(coded - CLZWCompression::kHead),
                          little::integer(block.get() + 8), result.data(), result.size());
        bench::keep(result[0]);
    });
    auto zlib = t.add("zlib's uncompress", size, [&] {
        uLongf made = result.size();
        uncompress(result.data(), &made, deflated.data(), deflatedSize);
        bench::keep(result[0]);
    });
    t.add("CLZWCompression2::decompress", size,
          [&] { delete[] CLZWCompression2(lzo.get(), length + CLZWCompression2::kHead).decompress(); });
    t.add("CLZWCompression::compress", size, [&] {
        int made;
        delete[] CLZWCompression(raw(plane), size).compress(made);
    });
    t.sample();
    t.ratio(ours, zlib, 1.1);
    t.ratio(ours, walk, 3.5);
    if (std::memcmp(unpacked.get(), plane.data(), plane.size()) != 0) std::printf("  WRONG RESULT\n");
}

} // namespace

int main() {
    runLengths("drawn", drawn(0), 2, 2);
    runLengths("drawn with a texture", drawn(10), 2, 2);
    runLengths("photo", photo(), 2, 2);
    runLengths("soft alpha", softAlpha(), 1, 5);
    dictionary("drawn", drawn(0));
    dictionary("drawn with a texture", drawn(10));
    dictionary("photo", photo());
    dictionary("soft alpha", softAlpha());
}
