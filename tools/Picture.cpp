#include "Picture.h"

#include "Files.h"

#include "files/CFile_Stream.h"
#include "graphics/AnnFile.h"
#include "graphics/CFrame.h"
#include "graphics/CImage.h"
#include "graphics/CPSD.h"
#include "graphics/ImgFile.h"
#include "graphics/JpegDecoder.h"
#include "graphics/PsdFile.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <png.h>

namespace tool {

namespace {

using namespace std::string_view_literals;

// A channel's top bits stand again below, so that white stays white.
std::uint8_t wide5(unsigned v) { return static_cast<std::uint8_t>(v << 3 | v >> 2); }
std::uint8_t wide6(unsigned v) { return static_cast<std::uint8_t>(v << 2 | v >> 4); }

void makeRoom(Picture & picture, int width, int height) {
    picture.width = width;
    picture.height = height;
    picture.rgba.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4, 255);
}

// An expanded pixel object.
Picture take(CGraphicsObject & object) {
    Picture picture;
    makeRoom(picture, object.Width(), object.Height());
    picture.x = object.GetPosition().x;
    picture.y = object.GetPosition().y;
    const auto * from = reinterpret_cast<const std::uint8_t *>(object.GetDataPtr());
    const auto * alpha = reinterpret_cast<const std::uint8_t *>(object.GetChannelAlpha());
    int size = object.GetPixelSize();
    for (std::size_t i = 0; i < picture.pixels(); i++, from += size) {
        std::uint8_t * to = &picture.rgba[i * 4];
        unsigned word = from[0] | from[1] << 8;
        if (object.GetBpp() == 15) {
            to[0] = wide5(word >> 10 & 31);
            to[1] = wide5(word >> 5 & 31);
            to[2] = wide5(word & 31);
        } else if (object.GetBpp() == 16) {
            to[0] = wide5(word >> 11);
            to[1] = wide6(word >> 5 & 63);
            to[2] = wide5(word & 31);
        } else {
            std::reverse_copy(from, from + 3, to);
        }
        if (alpha) to[3] = alpha[i];
    }
    return picture;
}

Picture decodeImg(const std::string & name, std::string_view bytes) {
    img::Head head;
    if (const char * bad = img::read(bytes, head)) throw Failure(name + ": " + bad);
    CFile_Stream file(bytes.data(), static_cast<int>(bytes.size()));
    CImage image(nullptr);
    if (image.Load(&file) != 0) throw Failure(name + ": its planes can't be unpacked");
    image.DeCompressRLE2();
    if (image.GetCompression() != 0)
        throw Failure(name + ": compression " + std::to_string(image.GetCompression()) + " isn't known");
    return take(image);
}

Picture decodeJpeg(const std::string & name, std::string_view bytes) {
    JpegDecoder decoder(bytes.data(), bytes.size());
    if (!decoder.isReady()) throw Failure(name + ": " + decoder.error());
    Picture picture;
    makeRoom(picture, decoder.getWidth(), decoder.getHeight());
    std::vector<std::uint8_t> row(static_cast<std::size_t>(picture.width) * 3);
    std::uint8_t * to = picture.rgba.data();
    for (int y = 0; y < picture.height; y++) {
        if (!decoder.readRow(row.data())) throw Failure(name + ": " + decoder.error());
        for (std::size_t i = 0; i < row.size(); i += 3, to += 4) std::copy_n(&row[i], 3, to);
    }
    return picture;
}

// The library's record of a picture, freed.
struct Png {
    Png() { image.version = PNG_IMAGE_VERSION; }
    Png(const Png &) = delete;
    Png & operator=(const Png &) = delete;
    ~Png() { png_image_free(&image); }
    png_image image{};
};

Picture decodePng(const std::string & name, std::string_view bytes) {
    Png png;
    if (!png_image_begin_read_from_memory(&png.image, bytes.data(), bytes.size()))
        throw Failure(name + ": " + png.image.message);
    png.image.format = PNG_FORMAT_RGBA;
    if (static_cast<long long>(png.image.width) * png.image.height > CGraphicsObject::kLargestPlane / 4)
        throw Failure(name + ": the picture is too large");
    Picture picture;
    makeRoom(picture, static_cast<int>(png.image.width), static_cast<int>(png.image.height));
    if (!png_image_finish_read(&png.image, nullptr, picture.rgba.data(), 0, nullptr))
        throw Failure(name + ": " + png.image.message);
    return picture;
}

void load(CPSD & psd, const std::string & name, std::string_view bytes) {
    psd::File file;
    if (const char * bad = psd::read(bytes, file)) throw Failure(name + ": " + bad);
    CFile_Stream stream(bytes.data(), static_cast<int>(bytes.size()));
    psd.Load(&stream);
    if (psd.GetLayerNo() == 0) throw Failure(name + ": has no layers");
}

std::string extensionOf(const std::string & name) {
    std::string extension = std::filesystem::path(name).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

} // namespace

bool Picture::opaque() const {
    for (std::size_t i = 0; i < pixels(); i++)
        if (rgba[i * 4 + 3] != 255) return false;
    return true;
}

Format formatOfName(const std::string & name) {
    std::string extension = extensionOf(name);
    if (extension == ".img") return Format::img;
    if (extension == ".png") return Format::png;
    if (extension == ".jpg" || extension == ".jpeg") return Format::jpeg;
    if (extension == ".psd") return Format::psd;
    throw Failure(name + ": pictures end in .img, .png, .jpg or .psd");
}

bool endsIn(const std::string & name, std::string_view extension) { return extensionOf(name) == extension; }

Format formatOf(const std::string & name, std::string_view bytes) {
    if (bytes.starts_with("\x89PNG\r\n\x1A\n"sv)) return Format::png;
    if (bytes.starts_with("\xFF\xD8\xFF"sv)) return Format::jpeg;
    if (bytes.starts_with("8BPS"sv)) return Format::psd;
    if (bytes.starts_with("TNK\0"sv) || bytes.starts_with("NVI\0"sv)) return Format::img;
    return formatOfName(name);
}

Picture decode(const std::string & name, std::string_view bytes, Format format) {
    switch (format) {
    case Format::img: return decodeImg(name, bytes);
    case Format::jpeg: return decodeJpeg(name, bytes);
    case Format::png: return decodePng(name, bytes);
    case Format::psd: break;
    }
    CPSD psd(nullptr);
    load(psd, name, bytes);
    if (!psd.GetDataPtr()) throw Failure(name + ": has no size");
    return take(psd);
}

std::vector<Layer> decodeLayers(const std::string & name, std::string_view bytes) {
    CPSD psd(nullptr);
    load(psd, name, bytes);
    std::vector<Layer> layers;
    for (int i = 0; i < psd.GetLayerNo(); i++) {
        psd.SelectLayer(i);
        CGraphicsObject * object = psd.GetCurrentLayer();
        layers.push_back({std::string(psd.GetLayerName(i).view()), {}});
        if (object->GetDataPtr()) layers.back().picture = take(*object);
    }
    return layers;
}

Picture decodeFrame(const std::string & name, const ann::Frame & frame, int depth) {
    CFrame object(nullptr);
    object.take(CXSize(frame.width, frame.height), CXPoint(frame.x, frame.y),
                frame.depth ? frame.depth : depth, static_cast<_compression>(frame.compression), frame.colour,
                frame.alpha);
    object.DeCompress();
    object.DeCompressRLE2();
    if (object.GetCompression() != 0 || !object.GetDataPtr())
        throw Failure(name + ": a frame can't be unpacked");
    return take(object);
}

std::string encodePng(const Picture & picture) {
    Png png;
    bool opaque = picture.opaque();
    png.image.width = static_cast<png_uint_32>(picture.width);
    png.image.height = static_cast<png_uint_32>(picture.height);
    png.image.format = opaque ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> rgb;
    for (std::size_t i = 0; opaque && i < picture.pixels(); i++)
        rgb.insert(rgb.end(), picture.pixel(i), picture.pixel(i) + 3);
    const void * from = opaque ? rgb.data() : picture.rgba.data();
    png_alloc_size_t size = 0;
    std::string out;
    if (png_image_write_to_memory(&png.image, nullptr, &size, 0, from, 0, nullptr)) {
        out.resize(size);
        if (png_image_write_to_memory(&png.image, out.data(), &size, 0, from, 0, nullptr)) {
            out.resize(size);
            return out;
        }
    }
    throw Failure(png.image.message);
}

} // namespace tool
