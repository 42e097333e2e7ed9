#pragma once

// The layers of a Photoshop file: names, places and channels of eight bits. The picture that such a file
// holds beside its layers isn't read.

#include "core/CXRect.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace psd {

struct Channel {
    int id = 0;                    // 0 red, 1 green, 2 blue, -1 alpha; others are masks
    int length = 0;                // bytes in the file, as its record tells
    std::unique_ptr<char[]> plane; // width x height bytes; null when it's coded in an unknown way
};

struct Layer {
    CXRect rect;
    std::string name;
    std::vector<Channel> channels;
};

struct File {
    int width = 0, height = 0; // of the whole picture, pixels
    int channels = 0, depth = 0, mode = 0;
    std::vector<Layer> layers; // the lowest first
};

// Null, or the reason why these bytes are no such file.
const char * read(std::string_view bytes, File & file);

} // namespace psd
