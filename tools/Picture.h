#pragma once

// Pictures of any format as bytes of red, green, blue and alpha.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ann {
struct Frame;
}

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

// An IMG file's planes, or a frame's, packed.
struct Planes {
    std::string colour, alpha; // no alpha: all is solid
};

struct ImgForm {
    int depth = 16;      // 15 or 16
    int compression = 2; // of _compression
    int quality = 90;    // of a JPEG plane
};

// By the contents; a name that ends in .img decides for files without a sign of their own. Throws.
Format formatOf(const std::string & name, std::string_view bytes);
Format formatOfName(const std::string & name);
bool endsIn(const std::string & name, std::string_view extension); // in any case

Picture decode(const std::string & name, std::string_view bytes, Format format); // PSD: the layers flattened
std::vector<Layer> decodeLayers(const std::string & name, std::string_view bytes);

// Spreads what 15 or 16 bits a pixel can't tell over neighbours, so that soft shades don't end in bands.
void dither(Picture & picture, int depth);

Picture decodeFrame(const std::string & name, const ann::Frame & frame,
                    int depth); // of an animation of that depth

// The words for the compressions of planes, and their numbers.
const std::map<std::string, int> & compressions();
// keepsAlpha: an alpha plane even where all is solid.
Planes planesOf(const Picture & picture, const ImgForm & form, bool keepsAlpha);

std::string encodePng(const Picture & picture);
std::string encodeJpeg(const Picture & picture, int quality); // alpha is left away
std::string encodeImg(const Picture & picture, const ImgForm & form);

} // namespace tool
