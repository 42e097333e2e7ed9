#pragma once

// The text beside an animation's frames: a line for each frame, event and entry. docs/authors.md tells how it
// is written; `anim` makes it from a file and makes a file from it, without loss.

#include "graphics/AnnFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct FrameLine {
    std::string file; // of the picture, beside the text
    int x = 0, y = 0;
    bool keepsAlpha = false;      // an alpha plane even where all of the picture is solid
    bool isEmpty = false;         // of no size: there is no file
    std::string compression = {}; // empty: what the command line says
};

struct AnimText {
    ann::File file; // without frames; an event's frames are numbers of frames below
    std::vector<FrameLine> frames;
};

// pictures: the names of the folder's PNG files, in order. What the text leaves out comes from their names:
// all of them are frames, and NAME_1.png, NAME_2.png are the entries of the event NAME. Throws.
AnimText parseAnimText(const std::string & name, std::string_view text,
                       const std::vector<std::string> & pictures);
std::string writeAnimText(const AnimText & anim);

} // namespace tool
