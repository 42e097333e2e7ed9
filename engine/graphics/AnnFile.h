#pragma once

// Animation files (ANN) in all their layouts, as functions over a block of bytes. Nothing of a file is
// trusted further than it was checked.

#include "graphics/AnnRecords.h"

#include <string>
#include <string_view>

namespace ann {

// What a file keeps of a frame. The planes are views into the block that was read, or into planes to write.
struct Frame {
    int version = 3;           // of the old layouts 1 to 3
    int width = 0, height = 0; // pixels, 0 or above
    int x = 0, y = 0;
    int depth = 0;       // 0: the animation's
    int compression = 0; // may be none of _compression
    std::string_view colour, alpha;
};

struct File {
    int depth = 16;
    int fps = 0;   // 0: not told
    int flags = 0; // of the pixel object in the low byte, of the animation above
    unsigned char opacity = 255;
    int randomFrames = 0;
    std::string author, description;
    std::vector<_annEventInfo3> events;
    std::vector<Frame> frames;
};

constexpr std::size_t kMagic = 12;                   // bytes by which the layout is told
constexpr std::size_t kHead = 44, kPackedHead = 407; // NVP and its like; PAK
constexpr std::size_t kEvent = 67, kPackedEvent = 40;
constexpr std::size_t kEntry = 30, kPackedEntry = 10, kOldEntry = 33;
constexpr std::size_t kFrame = 52, kShortFrame = 32, kOldFrame = 20;

// Null, or the reason why these bytes are no animation.
const char * read(std::string_view bytes, File & file);

// The layout "NVP". The frame lists' infos must be as many as their frames.
std::string write(const File & file);

// The events of a file that has none: three of one name, with all frames; the third one runs backwards.
std::vector<_annEventInfo3> defaultEvents(int frames);

} // namespace ann
