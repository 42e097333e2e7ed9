#pragma once

// What lies behind all objects of the screen: a picture that repeats in both directions, or a colour.

#include "graphics/CDirectDrawSurface.h"

#include <memory>

class CRefreshRegion;

class CBackgroundManager : public CXObject {
public:
    // scrollMode: whether the picture is larger than the screen.
    enum ScrollMode { kNoScroll = 0, kWider = 1, kHigher = 2, kBoth = 3 };

    CBackgroundManager(CWindow * window, CGraphicsObject * screen) : window_(window), screen_(screen) {}

    void SetBackground(CGraphicsObject * picture); // a copy is kept; null for nothing
    void SetBackground(CColor * colour);
    void SetBackground(std::unique_ptr<CDirectDrawSurface> picture);
    CDirectDrawSurface * getBackground() const { return background_.get(); } // null for nothing
    int getScrollMode() const { return scrollMode_; }

    // Paints the region. The picture's position is what of it stands at the screen's corner.
    void Redraw(CDirectDrawSurface * onto, const CRefreshRegion & region);

private:
    void checkScrollMode();
    void paint(CDirectDrawSurface * onto, CXRect rect, CXPoint offset) const;

    CWindow * window_;
    CGraphicsObject * screen_; // for its size
    std::unique_ptr<CDirectDrawSurface> background_;
    int scrollMode_ = kBoth;
};
