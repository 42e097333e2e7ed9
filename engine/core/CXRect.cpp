#include "core/CXRect.h"

#include "core/CXArray.h"
#include "core/RectPieces.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>

CXRect & CXRect::Sum(const CXRect & other) {
    return *this = {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                    std::max(bottom, other.bottom)};
}

CXRect CXRect::Common(const CXRect & other) const {
    CXRect common(std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                  std::min(bottom, other.bottom));
    return common.left > common.right || common.top > common.bottom ? CXRect(0) : common;
}

CXPoint CXRect::GetCenteredPosition(CGraphicsObject * object) const {
    return {wrap::add(left, wrap::sub(Width(), object->Width()) / 2),
            wrap::add(top, wrap::sub(Height(), object->Height()) / 2)};
}

void CXRect::addRect(CXArray * list, int l, int t, int r, int b) {
    if (l < r && t < b) list->add(new CXRect(l, t, r, b));
}

// Above and below take the whole width, and what lies beside the common part comes between them. Where a
// corner is cut off there is one band and one piece: the band comes first, and a cut corner on the right
// leaves a band of the whole height.
RectPieces::RectPieces(const CXRect & rect, const CXRect & other) {
    auto [left, top, right, bottom] = rect;
    CXRect c = rect.Common(other);
    if (c.left >= c.right || c.top >= c.bottom) return;
    bool cutsLeft = c.left == left, cutsTop = c.top == top, cutsRight = c.right == right,
         cutsBottom = c.bottom == bottom;
    if (cutsRight && !cutsLeft && cutsTop != cutsBottom) {
        add(left, top, c.left, bottom);
        add(c.left, top, right, c.top);
        add(c.left, c.bottom, right, bottom);
        return;
    }
    bool bandBelow = cutsLeft && !cutsRight && cutsTop && !cutsBottom;
    if (bandBelow) add(left, c.bottom, right, bottom);
    add(left, top, right, c.top);
    add(left, c.top, c.left, c.bottom);
    add(c.right, c.top, right, c.bottom);
    if (!bandBelow) add(left, c.bottom, right, bottom);
}

CXArray * CXRect::sub(const CXRect & other) const {
    auto * list = new CXArray(5, 0.75F);
    for (const CXRect & piece : RectPieces(*this, other)) list->add(new CXRect(piece));
    return list;
}
