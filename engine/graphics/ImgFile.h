#pragma once

// Picture files of the engine's own format, IMG, in their three layouts: what a file's head tells and where
// its planes lie. Nothing here is trusted further than it was checked.

#include "graphics/Compression.h"

#include <cstddef>
#include <string_view>

namespace img {

enum class Layout { tnk, nvi, legacy };

constexpr std::size_t kTnkHead = 40, kNviHead = 37, kLegacyHead = 92;

struct Head {
    Layout layout = Layout::legacy;
    int width = 0, height = 0; // pixels, above 0
    int depth = 0;             // 15, 16, 24 or 32
    int compression = 0;       // as the file tells; may be none of _compression
    int x = 0, y = 0;
    int rawSize = 0, rawAlphaSize = 0; // bytes of the planes when expanded
    std::string_view colour, alpha;    // the planes as the file holds them; no alpha is empty
    int jpegSize = 0;                  // of a colour plane that is a JPEG file; within colour
};

// Null, or the reason why these bytes are no picture.
const char * read(std::string_view bytes, Head & head);

} // namespace img
