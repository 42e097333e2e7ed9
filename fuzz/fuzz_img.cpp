// Pictures in the engine's own format: loaded, looked at, drawn, written and read again.

#include "app/CWindow.h"
#include "files/CFile_Stream.h"
#include "graphics/CImage.h"
#include "graphics/ImgFile.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

constexpr int kLargest = 1 << 22; // bytes of a plane; larger ones take only time

void require(bool holds) {
    if (!holds) std::abort();
}

// A file that is written to memory.
class Memory : public CFile {
public:
    int Write(const void * from, int n) override {
        bytes.append(static_cast<const char *>(from), static_cast<std::size_t>(n));
        return n;
    }
    std::string bytes;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char *>(data), size);
    img::Head head;
    bool bad = img::read(bytes, head) != nullptr;
    if (!bad && head.rawSize > kLargest) return 0;
    CFile_Stream file(bytes.data(), static_cast<int>(size));
    CImage image(nullptr);
    int error = image.Load(&file);
    require(error != 0 || !bad);
    require(error == 0 || image.GetDataPtr() == nullptr);
    image.GetPixel(kChannelAlpha, {0, 0});
    image.GetPixel(1, 1);
    CGraphicsObject onto(nullptr, {40, 30}, 16);
    image.SetPosition(0, 0);
    image.redraw(&onto);
    image.DeCompressRLE2();
    image.redraw(&onto);
    image.FlipV();
    image.Convert(15);
    if (image.GetCompression() != kCompressionNone || error != 0) return 0;
    image.SetClippingRect({});
    Memory written;
    require(image.Save(&written, kCompressionNone) == 0);
    CFile_Stream again(written.bytes.data(), static_cast<int>(written.bytes.size()));
    CImage twin(nullptr);
    require(twin.Load(&again) == 0 && twin.Size() == image.Size());
    return 0;
}
