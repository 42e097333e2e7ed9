#include "core/CXRect.h"

#include "core/CXArray.h"
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
CXArray * CXRect::sub(const CXRect & other) const {
    auto * pieces = new CXArray(5, 0.75F);
    CXRect c = Common(other);
    if (c.left >= c.right || c.top >= c.bottom) return pieces;
    bool cutsLeft = c.left == left, cutsTop = c.top == top, cutsRight = c.right == right,
         cutsBottom = c.bottom == bottom;
    if (cutsRight && !cutsLeft && cutsTop != cutsBottom) {
        addRect(pieces, left, top, c.left, bottom);
        addRect(pieces, c.left, top, right, c.top);
        addRect(pieces, c.left, c.bottom, right, bottom);
        return pieces;
    }
    bool bandBelow = cutsLeft && !cutsRight && cutsTop && !cutsBottom;
    if (bandBelow) addRect(pieces, left, c.bottom, right, bottom);
    addRect(pieces, left, top, right, c.top);
    addRect(pieces, left, c.top, c.left, c.bottom);
    addRect(pieces, c.right, c.top, right, c.bottom);
    if (!bandBelow) addRect(pieces, left, c.bottom, right, bottom);
    return pieces;
}
