#pragma once

// Plain records that pixel objects hand around.

#include "core/CXRect.h"

#include <cstdint>

enum _channel : int { kChannelAlpha = -1, kChannelRed = 0, kChannelGreen = 1, kChannelBlue = 2 };

// A source or a destination of a blit; nothing of it is owned.
struct _canvas {
    char * data = nullptr;  // width x height pixels, row by row
    char * alpha = nullptr; // width x height bytes, or null
    int spare = 0;
    int bpp = 16;     // depth: 15, 16, 24 or 32
    int x = 0, y = 0; // of a source: where its left top corner comes to stand
    int width = 0, height = 0;
    CXRect rect; // of a source the part to draw; of a destination the viewport inside the source; empty: none
};

// One row's piece of a flood fill.
struct _floodfill {
    std::int16_t x, y, length;
};
