#include "graphics/PictureMethods.h"

#include "app/CWindow.h"
#include "graphics/CRefreshScreen.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/TypeTable.h"

namespace picture {

namespace {

CRefreshScreen * canvasOf(const Call & call) {
    CWindow * window = call.scope ? call.scope->getWindow() : nullptr;
    return window ? window->getCanvas() : nullptr;
}

CXRect rectAt(const Call & call, int i) {
    return {call.integer(i), call.integer(i + 1), call.integer(i + 2), call.integer(i + 3)};
}

// The place of an anchor in a box of that size, by its word: the left, middle or right of the width, the top,
// middle or bottom of the height.
struct Anchor {
    const char * word;
    int x, y; // halves of the size
};
constexpr Anchor kAnchors[] = {{"CENTER", 1, 1},    {"LEFTUPPER", 0, 0},  {"RIGHTUPPER", 2, 0},
                               {"LEFTLOWER", 0, 2}, {"RIGHTLOWER", 2, 2}, {"LEFT", 0, 1},
                               {"RIGHT", 2, 1},     {"TOP", 1, 0},        {"BOTTOM", 1, 2}};

} // namespace

CGraphicsObject * shown(const Call & call) {
    const TypeRow * row = typetable::find(call.object->getType());
    return row && row->graphics ? row->graphics(call.object, CXString()) : nullptr;
}

CGraphicsObject * named(const Call & call, int i) {
    return call.scope && call.has(i) ? call.scope->getGraphicsObject(call.text(i)) : nullptr;
}

CMC_Variable * setPosition(Call & call) {
    int x = call.integer(0), y = call.integer(1);
    CGraphicsObject * object = shown(call);
    if (!object) return nullptr;
    object->Invalidate();
    object->SetPosition(x, y);
    object->Invalidate();
    return nullptr;
}

CMC_Variable * move(Call & call) {
    int x = call.integer(0), y = call.integer(1);
    if (CGraphicsObject * object = shown(call)) object->Move(x, y);
    return nullptr;
}

CMC_Variable * clearClipping(Call & call) {
    CGraphicsObject * object = shown(call);
    if (!object) return nullptr;
    object->SetClippingRect(CXRect(0));
    object->Invalidate();
    return nullptr;
}

CMC_Variable * setClipping(Call & call) {
    CGraphicsObject * object = shown(call);
    if (!object) return nullptr;
    CXRect rect = rectAt(call, 0);
    if (call.count() < 4) {
        CGraphicsObject * other = named(call, 0);
        if (!other) return nullptr;
        rect = other->GetBoundingBox() - object->GetPosition();
    }
    object->Invalidate(); // what is cut off must go
    object->SetClippingRect(rect);
    object->Invalidate();
    return nullptr;
}

CMC_Variable * getPositionX(Call & call) {
    CGraphicsObject * object = shown(call);
    if (!object) return result(0);
    return result((call.count() > 0 ? object->getPosition() : object->GetPosition()).x);
}

CMC_Variable * getPositionY(Call & call) {
    CGraphicsObject * object = shown(call);
    if (!object) return result(0);
    return result((call.count() > 0 ? object->getPosition() : object->GetPosition()).y);
}

CMC_Variable * getWidth(Call & call) {
    CGraphicsObject * object = shown(call);
    return result(object ? object->getWidth() : 0);
}

CMC_Variable * getHeight(Call & call) {
    CGraphicsObject * object = shown(call);
    return result(object ? object->getHeight() : 0);
}

CMC_Variable * isNear(Call & call) {
    CGraphicsObject * object = shown(call);
    if (!object) return result(false);
    if (call.count() > 4) return result(object->isNear(rectAt(call, 0), call.integer(4)));
    CGraphicsObject * other = named(call, 0);
    return result(other && object->isNear(other, call.integer(1)));
}

CMC_Variable * isInside(Call & call) {
    CGraphicsObject * object = shown(call);
    return result(object && object->isInside(call.integer(0), call.integer(1), call.boolean(2)));
}

CMC_Variable * setPriority(Call & call) {
    CGraphicsObject * object = shown(call);
    CRefreshScreen * canvas = canvasOf(call);
    if (object && canvas) canvas->SetPriority(object, call.integer(0));
    return nullptr;
}

CMC_Variable * getPriority(Call & call) {
    CGraphicsObject * object = shown(call);
    CRefreshScreen * canvas = canvasOf(call);
    return result(object && canvas ? canvas->GetPriority(object) : 0);
}

CMC_Variable * mergeAlpha(Call & call) {
    CGraphicsObject * object = shown(call);
    CGraphicsObject * mask = named(call, 2);
    if (object && mask) object->mergeAlpha(CXPoint(call.integer(0), call.integer(1)), mask);
    return nullptr;
}

CMC_Variable * invalidate(Call & call) {
    if (CGraphicsObject * object = shown(call)) object->Invalidate();
    return nullptr;
}

CMC_Variable * getCenterX(Call & call) {
    CGraphicsObject * object = shown(call);
    return result(object ? object->GetPosition().x + object->getWidth() / 2 : 0);
}

CMC_Variable * getCenterY(Call & call) {
    CGraphicsObject * object = shown(call);
    return result(object ? object->GetPosition().y + object->getHeight() / 2 : 0);
}

CMC_Variable * setOpacity(Call & call) {
    if (CGraphicsObject * object = shown(call))
        object->SetOpacity(static_cast<unsigned char>(call.integer(0)));
    return nullptr;
}

CMC_Variable * getOpacity(Call & call) {
    CGraphicsObject * object = shown(call);
    return result(object ? static_cast<int>(object->GetOpacity()) : 0);
}

CMC_Variable * setAnchor(Call & call) {
    CGraphicsObject * object = shown(call);
    if (!object) return nullptr;
    if (call.count() > 1) {
        object->setAnchor(call.integer(0), call.integer(1));
        return nullptr;
    }
    CXString word = call.text(0);
    CXRect box = object->GetBoundingBox();
    for (const Anchor & each : kAnchors)
        if (word == each.word)
            object->setAnchor(each.x == 2 ? box.Width() : box.Width() / 2 * each.x,
                              each.y == 2 ? box.Height() : box.Height() / 2 * each.y);
    return nullptr;
}

CMC_Variable * flipH(Call & call) {
    if (CGraphicsObject * object = shown(call)) object->FlipH();
    return nullptr;
}

CMC_Variable * flipV(Call & call) {
    if (CGraphicsObject * object = shown(call)) object->FlipV();
    return nullptr;
}

CMC_Variable * resetFlips(Call & call) {
    if (CGraphicsObject * object = shown(call)) object->resetFlips();
    return nullptr;
}

CMC_Variable * drawOnto(Call & call) {
    CGraphicsObject * object = shown(call);
    CGraphicsObject * onto = named(call, 0);
    if (object && onto && object != onto) onto->addObject(object, call.integer(1));
    return nullptr;
}

CMC_Variable * isAt(Call & call) {
    CGraphicsObject * object = shown(call);
    return result(object && object->isAt(CXPoint(call.integer(0), call.integer(1)), call.boolean(2)));
}

short wordAt(const Call & call, int i, int depth) {
    int red = call.integer(i) >> 3 & 31, blue = call.integer(i + 2) >> 3 & 31;
    int green = depth == 15 ? call.integer(i + 1) >> 3 & 31 : call.integer(i + 1) >> 2 & 63;
    return static_cast<short>(depth == 15 ? red << 10 | green << 5 | blue : red << 11 | green << 5 | blue);
}

} // namespace picture
