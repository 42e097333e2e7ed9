#include "graphics/CBackgroundManager.h"

#include "graphics/CRefreshRegion.h"

#include <algorithm>
#include <utility>

void CBackgroundManager::SetBackground(std::unique_ptr<CDirectDrawSurface> picture) {
    background_ = std::move(picture);
    checkScrollMode();
}

void CBackgroundManager::SetBackground(CGraphicsObject * picture) {
    if (!picture) {
        SetBackground(std::unique_ptr<CDirectDrawSurface>());
        return;
    }
    auto surface = std::make_unique<CDirectDrawSurface>(window_, picture->Size(), screen_->GetBpp());
    picture->DeCompressRLE2();
    CGraphicsObject copy(window_, *picture); // the picture's own place doesn't count
    copy.setAnchor(0, 0);
    copy.SetPosition(0, 0);
    copy.SetClippingRect(CXRect(0));
    copy.redraw(surface.get());
    picture->bringBackCompressed();
    SetBackground(std::move(surface));
}

void CBackgroundManager::SetBackground(CColor * colour) {
    auto surface = std::make_unique<CDirectDrawSurface>(window_, screen_->Size(), screen_->GetBpp());
    surface->Fill(colour);
    SetBackground(std::move(surface));
}

void CBackgroundManager::checkScrollMode() {
    scrollMode_ = kBoth;
    if (!background_) return;
    bool wider = background_->getWidth() > screen_->getWidth();
    bool higher = background_->getHeight() > screen_->getHeight();
    scrollMode_ = (wider ? kWider : kNoScroll) | (higher ? kHigher : kNoScroll);
}

void CBackgroundManager::Redraw(CDirectDrawSurface * onto, const CRefreshRegion & region) {
    int width = background_ ? background_->getWidth() : 0,
        height = background_ ? background_->getHeight() : 0;
    if (width < 1 || height < 1) return;
    auto wrapped = [](int v, int size) { return v % size < 0 ? v % size + size : v % size; };
    CXPoint place = background_->GetPosition();
    CXPoint offset(wrapped(place.x, width), wrapped(place.y, height));
    if (offset.x != 0) scrollMode_ |= kWider;
    if (offset.y != 0) scrollMode_ |= kHigher;
    if (region.isWhole()) paint(onto, CXRect(0, 0, onto->getWidth(), onto->getHeight()), offset);
    for (const CXRect & rect : region.rects()) paint(onto, rect, offset);
}

void CBackgroundManager::paint(CDirectDrawSurface * onto, CXRect rect, CXPoint offset) const {
    int width = background_->getWidth(), height = background_->getHeight();
    for (int y = rect.top; y < rect.bottom;) {
        int top = (y + offset.y) % height, rows = std::min(height - top, rect.bottom - y);
        for (int x = rect.left; x < rect.right;) {
            int left = (x + offset.x) % width, columns = std::min(width - left, rect.right - x);
            background_->Blt(onto, x, y, CXRect(left, top, left + columns, top + rows));
            x += columns;
        }
        y += rows;
    }
}
