#pragma once

// Pictures of any format as bytes of red, green, blue and alpha.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

enum class Format { img, png, jpeg, psd };

struct Picture {
    int width = 0, height = 0;
    int x = 0, y = 0;               // the place that it is to have on the screen
    std::vector<std::uint8_t> rgba; // straight, row by row
    bool opaque() const;            // no alpha is below 255
    const std::uint8_t * pixel(std::size_t i) const { return &rgba[i * 4]; }
    std::size_t pixels() const { return rgba.size() / 4; }
};

struct Layer {
    std::string name; // Windows-1250
    Picture picture;
};

struct ImgForm {
    int depth = 16;      // 15 or 16
    int compression = 2; // of _compression
    int quality = 90;    // of a JPEG plane
};

// By the contents; a name that ends in .img decides for files without a sign of their own. Throws.
Format formatOf(const std::string & name, std::string_view bytes);
Format formatOfName(const std::string & name);
bool isImg(const std::string & name); // by its end

Picture decode(const std::string & name, std::string_view bytes, Format format); // PSD: the layers flattened
std::vector<Layer> decodeLayers(const std::string & name, std::string_view bytes);

// Spreads what 15 or 16 bits a pixel can't tell over neighbours, so that soft shades don't end in bands.
void dither(Picture & picture, int depth);

std::string encodePng(const Picture & picture);
std::string encodeJpeg(const Picture & picture, int quality); // alpha is left away
std::string encodeImg(const Picture & picture, const ImgForm & form);

} // namespace tool
