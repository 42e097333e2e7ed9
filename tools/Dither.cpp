#include "Picture.h"

namespace tool {

namespace {

// The 8 by 8 matrix of ordered dithering (Bayer, 1973): 0 to 63, neighbours far apart.
constexpr std::uint8_t kOrder[8][8] = {
    {0, 32, 8, 40, 2, 34, 10, 42},    {48, 16, 56, 24, 50, 18, 58, 26}, {12, 44, 4, 36, 14, 46, 6, 38},
    {60, 28, 52, 20, 62, 30, 54, 22}, {3, 35, 11, 43, 1, 33, 9, 41},    {51, 19, 59, 27, 49, 17, 57, 25},
    {15, 47, 7, 39, 13, 45, 5, 37},   {63, 31, 55, 23, 61, 29, 53, 21},
};

// A channel's byte, replaced by the lower or the upper one of its neighbours among those that so many bits
// can tell.
std::uint8_t spread(int value, int bits, int order) {
    int top = (1 << bits) - 1;
    int scaled = value * top * 64 / 255; // in 64ths of a step
    int level = scaled / 64 + (scaled % 64 > order ? 1 : 0);
    return static_cast<std::uint8_t>(level << (8 - bits));
}

} // namespace

void dither(Picture & picture, int depth) {
    const int bits[3] = {5, depth == 16 ? 6 : 5, 5};
    auto width = static_cast<std::size_t>(picture.width);
    for (std::size_t i = 0; i < picture.pixels(); i++)
        for (std::size_t channel = 0; channel < 3; channel++) {
            std::uint8_t & byte = picture.rgba[i * 4 + channel];
            byte = spread(byte, bits[channel], kOrder[i / width % 8][i % width % 8]);
        }
}

} // namespace tool
