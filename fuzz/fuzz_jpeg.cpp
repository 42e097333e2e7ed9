// JPEG files.

#include "graphics/JPEG.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    JPEG jpeg(reinterpret_cast<const char *>(data), static_cast<long>(size));
    if (jpeg.getWidth() > 2000 || jpeg.getHeight() > 2000) return 0;
    std::unique_ptr<char[]> pixels(jpeg.decompress(15));
    if (pixels && !jpeg.isReady()) std::abort();
    return 0;
}
