#pragma once

// The animation that scripts put on the screen. The thread of the tick.

#include "graphics/CAnimo.h"

class CMElement;

class CAnimo6 : public CAnimo {
public:
    explicit CAnimo6(CWindow * window) : CAnimo(window) {}
    CAnimo6(CWindow * window, const CXString & name) : CAnimo(window, name) {}
    CAnimo6(CWindow * window, CMElement * element); // RELEASEAFTERUSE, FILENAME, PRELOAD, VISIBLE
    CAnimo6(CAnimo6 & shared) = default;
    CGraphicsObject * clone() override { return new CAnimo6(*this); }

    int getGfxType() override { return kGfxAnimation; }
    int GetMaxWidth() const; // over all frames
    int GetMaxHeight() const;
    using CAnimo::isPlaying;
    bool isPlaying(const char * eventName); // that event, in any case
};
