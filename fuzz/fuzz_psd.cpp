// Layers of Photoshop files, and the picture that they make.

#include "app/CWindow.h"
#include "files/CFile_Stream.h"
#include "graphics/CPSD.h"
#include "graphics/PsdFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr long long kLargest = 1 << 20; // pixels; larger pictures take only time

void require(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char *>(data), size);
    psd::File read;
    bool bad = psd::read(bytes, read) != nullptr;
    if (bad) read = {};
    long long pixels = static_cast<long long>(read.width) * read.height;
    for (const psd::Layer & layer : read.layers) {
        pixels = std::max(pixels, static_cast<long long>(layer.rect.Width()) * layer.rect.Height());
        if (read.width > 0 && read.height > 0) continue;
        pixels = std::max(pixels, static_cast<long long>(layer.rect.right) * layer.rect.bottom);
    }
    if (!bad && pixels > kLargest) return 0;
    CFile_Stream file(bytes.data(), static_cast<int>(size));
    CPSD picture(nullptr);
    require((picture.Load(&file) != 0) == bad);
    require(bad ? picture.GetLayerNo() == 0 : picture.GetLayerNo() == static_cast<int>(read.layers.size()));
    for (int i = 0; i < picture.GetLayerNo(); i++) {
        picture.SelectLayer(picture.GetLayerName(i));
        picture.SelectLayer(i);
        picture.GetCurrentLayer()->GetPixel(kChannelAlpha, {0, 0});
        picture.SetPosition({i, -i});
    }
    CGraphicsObject onto(nullptr, {40, 30}, 16);
    picture.redraw(&onto);
    return 0;
}
