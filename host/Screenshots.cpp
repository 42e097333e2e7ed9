#include "Screenshots.h"

#include <algorithm>
#include <cstdio>
#include <png.h>

namespace host {

bool Screenshots::take(long tick) {
    return std::ranges::all_of(
        wanted_, [&](const Screenshot & each) { return each.tick != tick || write(each.file); });
}

bool Screenshots::write(const std::string & file) {
    const std::uint16_t * pixels = display_.pixels();
    if (!pixels) return true;
    int greenBits = display_.depth() == 15 ? 5 : 6, redShift = greenBits + 5;
    // The top bits are repeated below, so that white stays white.
    auto widened = [](int v, int bits) {
        v &= (1 << bits) - 1;
        return static_cast<png_byte>(v << (8 - bits) | v >> (2 * bits - 8));
    };
    std::vector<png_byte> bytes;
    auto count = static_cast<std::size_t>(display_.width()) * static_cast<std::size_t>(display_.height());
    bytes.reserve(count * 3);
    for (std::size_t i = 0; i < count; i++) {
        bytes.push_back(widened(pixels[i] >> redShift, 5));
        bytes.push_back(widened(pixels[i] >> 5, greenBits));
        bytes.push_back(widened(pixels[i], 5));
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(display_.width());
    image.height = static_cast<png_uint_32>(display_.height());
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, file.c_str(), 0, bytes.data(), 0, nullptr)) return true;
    std::fprintf(stderr, "tarnook: can't write the picture %s\n", file.c_str());
    return false;
}

} // namespace host
