// Where an object stands and what it covers.

#include "app/CWindow.h"
#include "graphics/CCanvasIfc.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>

void CGraphicsObject::onMoved() {
    if (monitorCollisions_ && window_) window_->onPositionChanged(this);
}

void CGraphicsObject::tellCanvas(CXRect rect) {
    if (canvas_) canvas_->Invalidate(&rect);
}

void CGraphicsObject::SetPosition(int x, int y) {
    x_ = place(std::int64_t{x} - anchor_.x);
    y_ = place(std::int64_t{y} - anchor_.y);
    onMoved();
}

void CGraphicsObject::SetPosition(CXPoint p) { SetPosition(p.x, p.y); }
void CGraphicsObject::setPosition(int x, int y) { SetPosition(x, y); }
void CGraphicsObject::setPosition(CXPoint p) { SetPosition(p.x, p.y); }

void CGraphicsObject::Move(int dx, int dy) {
    CXRect box = GetBoundingBox();
    x_ = place(std::int64_t{x_} + dx);
    y_ = place(std::int64_t{y_} + dy);
    tellCanvas(box.Sum(GetBoundingBox()));
    invalidated_ = true;
    onMoved();
}

void CGraphicsObject::Move(CXPoint d) { Move(d.x, d.y); }

void CGraphicsObject::setAnchor(int x, int y) { anchor_ = {place(x), place(y)}; }
void CGraphicsObject::setAnchor(CXPoint p) { setAnchor(p.x, p.y); }

void CGraphicsObject::SetClippingRect(CXRect rect) {
    clippingRect_ = {place(rect.left), place(rect.top), place(rect.right), place(rect.bottom)};
}

CXRect CGraphicsObject::GetBoundingBox() {
    CXRect box = getRect();
    CXPoint at = box.LeftTop();
    box.left = std::max(box.left, 0);
    box.top = std::max(box.top, 0);
    if (destiny_) {
        box.right = std::min(box.right, destiny_->Width());
        box.bottom = std::min(box.bottom, destiny_->Height());
    }
    return clippingRect_.IsEmpty() ? box : box.Common(clippingRect_ + at);
}

CXRect CGraphicsObject::GetAbsoluteBoundingBox() {
    CXRect box = getRect();
    return clippingRect_.IsEmpty() ? box : box.Common(clippingRect_ + box.LeftTop());
}

CXPoint CGraphicsObject::ClientCoords(CXPoint p) { return p - getRect().LeftTop(); }

void CGraphicsObject::FitRect(CXRect r) {
    SetPosition(r.left + (r.right - width_ - r.left) / 2 + anchor_.x,
                r.top + (r.bottom - height_ - r.top) / 2 + anchor_.y);
}

void CGraphicsObject::FitObject(CGraphicsObject * object) { FitRect(object->GetBoundingBox()); }

bool CGraphicsObject::isNear(CXRect rect, int percent) {
    auto area = [](const CXRect & r) { return static_cast<double>(r.Width()) * r.Height(); };
    CXRect box = GetBoundingBox();
    return area(box.Common(rect)) * 100.0 / area(box) >= percent; // false for a box without an area
}

bool CGraphicsObject::isNear(CGraphicsObject * other, int percent) {
    return isNear(other->GetBoundingBox(), percent);
}

namespace {

// Of an object's pixels, unlike of a plain rectangle, the right and the bottom edge are not part.
bool covers(const CXRect & box, CXPoint p) {
    return p.x >= box.left && p.x < box.right && p.y >= box.top && p.y < box.bottom;
}

} // namespace

bool CGraphicsObject::testHit(CXPoint p, bool ignoreAlpha) {
    if (!covers(GetBoundingBox(), p)) return false;
    if (ignoreAlpha || !channels_[3]) return true;
    return GetPixel(kChannelAlpha, ClientCoords(p)) != 0;
}

bool CGraphicsObject::isAt(CXPoint p, bool useAlpha) { return testHit(p, !useAlpha); }

bool CGraphicsObject::isInside(int x, int y, bool useAlpha) {
    CXRect box = GetBoundingBox();
    if (!covers(box, {x, y})) return false;
    if (!useAlpha || !channels_[3]) return true;
    return GetPixel(kChannelAlpha, {x - box.left, y - box.top}) != 0;
}

void CGraphicsObject::AddOpacity(short delta) {
    SetOpacity(static_cast<unsigned char>(limited(opacity_ + delta, 0, 255)));
}
