#pragma once

// A rectangle in pixels; right and bottom lie one step behind the last covered pixel.

#include "core/CXPoint.h"
#include "core/CXSize.h"

class CGraphicsObject;
class CXArray;

class CXRect {
public:
    CXRect() = default;
    explicit CXRect(int v) : left(v), top(v), right(v), bottom(v) {}
    CXRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
    CXRect(CXPoint leftTop, CXPoint bottomRight)
        : CXRect(leftTop.x, leftTop.y, bottomRight.x, bottomRight.y) {}

    int Width() const { return wrap::sub(right, left); }
    int Height() const { return wrap::sub(bottom, top); }
    bool IsEmpty() const { return left == right || top == bottom; }
    void Set(int l, int t, int r, int b) { *this = {l, t, r, b}; }
    void Empty() { *this = CXRect(0); }
    CXPoint LeftTop() const { return {left, top}; }
    CXPoint RightTop() const { return {right, top}; }
    CXPoint LeftBottom() const { return {left, bottom}; }
    CXPoint BottomRight() const { return {right, bottom}; }
    CXPoint CenterPoint() const { return {wrap::add(left, Width() / 2), wrap::add(top, Height() / 2)}; }

    CXRect & operator+=(CXPoint p) { return *this = *this + p; }
    CXRect & operator-=(CXPoint p) { return *this = *this - p; }
    CXRect operator+(CXPoint p) const { return {LeftTop() + p, BottomRight() + p}; }
    CXRect operator-(CXPoint p) const { return {LeftTop() - p, BottomRight() - p}; }
    CXRect operator-(CXSize s) const { return {LeftTop(), BottomRight() - CXPoint(s.cx, s.cy)}; }
    CXRect operator-(CXRect r) const { return {LeftTop() - r.LeftTop(), BottomRight() - r.BottomRight()}; }
    bool operator==(const CXRect &) const = default;

    // All four edges belong to it here, unlike in the widths.
    bool IsInRect(int x, int y) const { return x >= left && x <= right && y >= top && y <= bottom; }
    bool IsInRect(CXPoint p) const { return IsInRect(p.x, p.y); }

    // Grows on all sides.
    void Explode(int dx, int dy) { *this = {LeftTop() - CXPoint(dx, dy), BottomRight() + CXPoint(dx, dy)}; }
    void Explode(int d) { Explode(d, d); }
    void Explode(CXSize s) { Explode(s.cx, s.cy); }
    CXRect & Sum(const CXRect & other); // the box round both, in place
    bool IsPartOf(const CXRect & other) const { return isInside(other); }
    bool isInside(const CXRect & other) const {
        return other.left <= left && other.top <= top && other.right >= right && other.bottom >= bottom;
    }
    // The common part: all zeros when left would pass right or top bottom, else perhaps without an area.
    CXRect Common(const CXRect & other) const;
    void Common(const CXRect & other, CXRect * out) const { *out = Common(other); }
    // Where the object stands centred in this rectangle.
    CXPoint GetCenteredPosition(CGraphicsObject * object) const;

    // This rectangle without its common part with the other: a new CXArray (5, 0.75) of at most four new
    // CXRect that don't overlap, owned by the caller. Nothing when the two don't overlap.
    CXArray * sub(const CXRect & other) const;
    // Appends a new CXRect if it has an area.
    static void addRect(CXArray * list, int l, int t, int r, int b);

    int left = 0, top = 0, right = 0, bottom = 0;
};
