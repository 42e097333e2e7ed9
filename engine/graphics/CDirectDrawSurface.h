#pragma once

// An off-screen picture of the display's depth, without alpha: what a frame is painted onto, and backgrounds.

#include "graphics/CGraphicsObject.h"

class CDirectDrawSurface : public CGraphicsObject {
public:
    CDirectDrawSurface(CWindow * window, CXSize size, int depth); // black

    // A part of this picture onto another of the same depth, pixel by pixel, cut to both.
    void Blt(CDirectDrawSurface * onto, int x, int y, CXRect part);
};
