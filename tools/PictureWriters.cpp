// Pictures as JPEG files and in the engine's own format.

#include "Files.h"
#include "Picture.h"

#include "files/CLZWCompression2.h"
#include "files/CRLECompression.h"
#include "files/LittleEndian.h"
#include "graphics/Compression.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <jpeglib.h>

namespace tool {

namespace {

constexpr int kLargestJpeg = 65500; // pixels of a side, by the library

std::string lzo(std::string bytes) {
    int size = 0;
    CLZWCompression2 coder(bytes.data(), static_cast<int>(bytes.size()));
    std::unique_ptr<char[]> block(coder.compress(size));
    if (!block) throw Failure("the picture is too large");
    return {block.get(), static_cast<std::size_t>(size) + CLZWCompression2::kHead};
}

std::string runs(const std::string & bytes, bool words) {
    int size = 0, length = static_cast<int>(bytes.size());
    std::unique_ptr<char[]> coded(words ? CRLECompression::__compress(bytes.data(), length, size)
                                        : CRLECompression::__compresschar(bytes.data(), length, size));
    if (!coded) throw Failure("the picture is too large");
    return {coded.get(), static_cast<std::size_t>(size)};
}

std::string packed(const std::string & plane, bool colours, int compression) {
    switch (compression) {
    case kCompressionLzo: return lzo(plane);
    case kCompressionLzoRle: return lzo(runs(plane, colours));
    case kCompressionRle: return runs(plane, colours);
    default: return plane;
    }
}

} // namespace

std::string encodeJpeg(const Picture & picture, int quality) {
    if (picture.width > kLargestJpeg || picture.height > kLargestJpeg)
        throw Failure("a JPEG file holds " + std::to_string(kLargestJpeg) + " pixels a side at most");
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors); // ends the program with a message; memory is all that may lack
    jpeg_create_compress(&info);
    unsigned char * made = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &made, &size);
    info.image_width = static_cast<JDIMENSION>(picture.width);
    info.image_height = static_cast<JDIMENSION>(picture.height);
    info.input_components = 4;
    info.in_color_space = JCS_EXT_RGBX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        std::size_t row = static_cast<std::size_t>(info.next_scanline) * info.image_width;
        auto * samples = const_cast<JSAMPLE *>(picture.pixel(row));
        jpeg_write_scanlines(&info, &samples, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string out(reinterpret_cast<char *>(made), size);
    std::free(made);
    return out;
}

const std::map<std::string, int> & compressions() {
    static const std::map<std::string, int> words = {{"raw", kCompressionNone},
                                                     {"lzo", kCompressionLzo},
                                                     {"lzo-rle", kCompressionLzoRle},
                                                     {"rle", kCompressionRle},
                                                     {"jpeg", kCompressionJpeg}};
    return words;
}

Planes planesOf(const Picture & picture, const ImgForm & form, bool keepsAlpha) {
    Planes planes;
    std::string & colour = planes.colour;
    std::string & alpha = planes.alpha;
    for (std::size_t i = 0; i < picture.pixels(); i++) {
        const std::uint8_t * p = picture.pixel(i);
        int word = form.depth == 15 ? p[0] >> 3 << 10 | p[1] >> 3 << 5 | p[2] >> 3
                                    : p[0] >> 3 << 11 | p[1] >> 2 << 5 | p[2] >> 3;
        colour += static_cast<char>(word);
        colour += static_cast<char>(word >> 8);
        alpha += static_cast<char>(p[3]);
    }
    bool jpeg = form.compression == kCompressionJpeg;
    colour = jpeg ? encodeJpeg(picture, form.quality) : packed(colour, true, form.compression);
    if (picture.opaque() && !keepsAlpha)
        alpha.clear();
    else
        alpha = packed(alpha, false, jpeg ? int{kCompressionLzo} : form.compression);
    return planes;
}

std::string encodeImg(const Picture & picture, const ImgForm & form) {
    auto [colour, alpha] = planesOf(picture, form, false);
    bool jpeg = form.compression == kCompressionJpeg;
    std::size_t rawSize = picture.pixels() * 2;
    std::string out("TNK\0", 4);
    for (std::size_t value :
         {static_cast<std::size_t>(picture.width), static_cast<std::size_t>(picture.height),
          static_cast<std::size_t>(form.depth), jpeg ? colour.size() : rawSize, std::size_t{0},
          static_cast<std::size_t>(form.compression), alpha.size(), static_cast<std::size_t>(picture.x),
          static_cast<std::size_t>(picture.y)}) {
        char number[4];
        little::putDword(number, static_cast<std::uint32_t>(value));
        out.append(number, sizeof number);
    }
    return out + colour + alpha;
}

} // namespace tool
