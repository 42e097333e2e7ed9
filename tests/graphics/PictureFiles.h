#pragma once

// Picture files made in memory: numbers in a row, and JPEG files of the library's encoder.

#include "graphics/CGraphicsObject.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include <jpeglib.h>

namespace test {

// Lowest byte first; big: highest first.
inline std::string number(long long value, int bytes, bool big = false) {
    std::string out;
    for (int i = 0; i < bytes; i++) out += static_cast<char>(value >> 8 * (big ? bytes - 1 - i : i));
    return out;
}

inline std::string plane(const std::vector<std::uint16_t> & words) {
    std::string out;
    for (std::uint16_t word : words) out += number(word, 2);
    return out;
}

struct Tnk {
    int width = 2, height = 2, depth = 16, colourSize = 0, compression = 0, x = 0, y = 0;
    std::string colour = {}, alpha = {};

    std::string bytes() const {
        std::string out("TNK", 4);
        for (int v : {width, height, depth, colourSize, 0, compression, static_cast<int>(alpha.size()), x, y})
            out += number(v, 4);
        return out + colour + alpha;
    }
};

// rows x columns samples; components: 1 grey, 3 colours, 4 for print.
inline std::string jpeg(int width, int height, const std::vector<unsigned char> & samples, int components = 3,
                        bool progressive = false, int quality = 100) {
    jpeg_compress_struct info;
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char * made = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &made, &size);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = components;
    info.in_color_space = components == 1 ? JCS_GRAYSCALE : components == 3 ? JCS_RGB : JCS_CMYK;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    for (int i = 0; i < info.num_components; i++)
        info.comp_info[i].h_samp_factor = info.comp_info[i].v_samp_factor = 1;
    if (progressive) jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        auto * row = const_cast<unsigned char *>(
            &samples[info.next_scanline * info.image_width * static_cast<unsigned>(components)]);
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string out(reinterpret_cast<char *>(made), size);
    std::free(made);
    return out;
}

} // namespace test
