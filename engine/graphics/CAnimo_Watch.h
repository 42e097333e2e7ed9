#pragma once

// For CAnimo's own sources: whether the animation went while it told somebody. Watches nest.

#include "graphics/CAnimo.h"

class CAnimo::Watch {
public:
    explicit Watch(CAnimo & animo) : animo_(animo), outer_(animo.gone_) { animo.gone_ = &gone_; }
    Watch(const Watch &) = delete;
    Watch & operator=(const Watch &) = delete;
    ~Watch() {
        if (!gone_)
            animo_.gone_ = outer_;
        else if (outer_)
            *outer_ = true;
    }
    bool gone() const { return gone_; }

private:
    CAnimo & animo_;
    bool * outer_;
    bool gone_ = false;
};
