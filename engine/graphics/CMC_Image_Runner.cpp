#include "graphics/CMC_Image_Runner.h"

#include "graphics/CImage.h"
#include "graphics/CMC_Image.h"
#include "graphics/PictureMethods.h"
#include "script/CMC_ObjectsContainer.h"

#include <cmath>

namespace {

CImage & image(const Call & call) { return *call.self<CMC_Image>()->getImage(); }

CXPoint point(const Call & call, int i = 0) { return {call.integer(i), call.integer(i + 1)}; }

CMC_Variable * show(Call & call) {
    image(call).show();
    return nullptr;
}

CMC_Variable * hide(Call & call) {
    image(call).hide();
    return nullptr;
}

CMC_Variable * load(Call & call) {
    call.self<CMC_Image>()->load(call.text(0), true);
    return nullptr;
}

CMC_Variable * monitorCollision(Call & call) {
    call.self<CMC_Image>()->monitorCollisions(call.boolean(0));
    return nullptr;
}

CMC_Variable * removeMonitorCollision(Call & call) {
    call.self<CMC_Image>()->removeMonitorCollisions();
    return nullptr;
}

CMC_Variable * getAlpha(Call & call) {
    CXPoint p = point(call);
    CImage & self = image(call);
    bool inside = p.x >= 0 && p.y >= 0 && p.x < self.Width() && p.y < self.Height();
    return result(inside && self.GetChannelAlpha()
                      ? static_cast<int>(self.CGraphicsObject::GetPixel(kChannelAlpha, p))
                      : 0);
}

CMC_Variable * getPixel(Call & call) {
    CXPoint p = point(call);
    CImage & self = image(call);
    bool inside = p.x >= 0 && p.y >= 0 && p.x < self.Width() && p.y < self.Height();
    const auto * words = reinterpret_cast<const std::uint16_t *>(self.GetDataPtr());
    if (!inside || !words || self.GetCompression() != kCompressionNone) return result(0);
    return result(static_cast<int>(words[static_cast<std::ptrdiff_t>(p.y) * self.Width() + p.x]));
}

CMC_Variable * isVisible(Call & call) { return result(image(call).isVisible()); }

CMC_Variable * setAsButton(Call & call) {
    call.self<CMC_Image>()->setAsButton(call.boolean(0), call.boolean(1));
    return nullptr;
}

CMC_Variable * replaceColor(Call & call) {
    int depth = image(call).GetBpp();
    image(call).replace_color(picture::wordAt(call, 0, depth), picture::wordAt(call, 3, depth));
    return nullptr;
}

CMC_Variable * resetPosition(Call & call) {
    CXPoint p = call.self<CMC_Image>()->GetStartingPosition();
    image(call).Invalidate();
    image(call).SetPosition(p.x, p.y);
    image(call).Invalidate();
    return nullptr;
}

CMC_Variable * setResetPosition(Call & call) {
    call.self<CMC_Image>()->SetStartingPosition(point(call));
    return nullptr;
}

CMC_Variable * setScaleFactor(Call &) { return nullptr; } // scripts may say it; it never did anything

CMC_Variable * mergeAlpha2(Call & call) {
    if (CGraphicsObject * mask = picture::named(call, 2))
        image(call).mergeAlpha2(point(call), mask, call.boolean(3));
    return nullptr;
}

CMC_Variable * link(Call & call) {
    if (auto * other = call.named<CMC_Image>(0, types::kImage)) call.self<CMC_Image>()->link(*other);
    return nullptr;
}

CMC_Variable * save(Call & call) {
    image(call).CGraphicsObject::Save(call.text(0), kCompressionNone);
    return nullptr;
}

// Turns the move away from its direction, to both sides in steps and shorter by a sixth each time, until its
// end no longer lies on the picture: the variable takes the length that is left along the picture's edge.
CMC_Variable * getSlideComps(Call & call) {
    constexpr double kStep = 15.0 / 57.29577951308232, kShrink = 5.0 / 6.0;
    constexpr int kSteps = 12; // half a turn
    double dx = call.number(0), dy = call.number(1);
    CXPoint from = point(call, 2);
    CMC_Object * target = call.named(4);
    if (!target || !types::isValue(target->getType())) return nullptr;
    double left = 0.0, shrunk = 1.0;
    for (int i = 0; i <= kSteps && left == 0.0; i++, shrunk *= kShrink)
        for (double angle : {kStep * i, -kStep * i}) {
            double x = (dx * std::cos(angle) - dy * std::sin(angle)) * shrunk;
            double y = (dx * std::sin(angle) + dy * std::cos(angle)) * shrunk;
            CXPoint end(from.x + static_cast<int>(x), from.y + static_cast<int>(y));
            if (!image(call).isAt(end, true)) left = std::hypot(x, y);
        }
    CMC_Variable * length = result(left);
    static_cast<CMC_Variable *>(target)->set(length);
    CMC_VariableFactory::free(length);
    return nullptr;
}

CMC_Variable * getColorAt(Call & call) {
    CGraphicsObject * object = picture::named(call, 2);
    if (!object) return nullptr;
    _pixel p = object->GetPixel(call.integer(0), call.integer(1)).getPixel();
    return result(p.byte.red << 16 | p.byte.green << 8 | p.byte.blue);
}

template <std::uint8_t Pick(const _pixel &)>
CMC_Variable * channelAt(Call & call) {
    return result(static_cast<int>(Pick(image(call).GetPixel(call.integer(0), call.integer(1)).getPixel())));
}

std::uint8_t red(const _pixel & p) { return p.byte.red; }
std::uint8_t green(const _pixel & p) { return p.byte.green; }
std::uint8_t blue(const _pixel & p) { return p.byte.blue; }

constexpr MethodRow kRows[] = {
    {1, "SHOW", "", 0, show},
    {2, "HIDE", "", 0, hide},
    {3, "SETPOSITION", "x, y", 2, picture::setPosition},
    {4, "MOVE", "dx, dy", 2, picture::move},
    {5, "LOAD", "file", 1, load},
    {6, "CLEARCLIPPING", "", 0, picture::clearClipping},
    {7, "SETCLIPPING", "left, top, right, bottom | object name", 1, picture::setClipping},
    {8, "GETPOSITIONX", "own = none", 0, picture::getPositionX},
    {9, "GETPOSITIONY", "own = none", 0, picture::getPositionY},
    {10, "GETWIDTH", "", 0, picture::getWidth},
    {11, "GETHEIGHT", "", 0, picture::getHeight},
    {12, "ISNEAR", "object name, percent | left, top, right, bottom, percent", 1, picture::isNear},
    {13, "ISINSIDE", "x, y, by alpha", 2, picture::isInside},
    {14, "MONITORCOLLISION", "by alpha", 0, monitorCollision},
    {15, "REMOVEMONITORCOLLISION", "", 0, removeMonitorCollision},
    {16, "SETPRIORITY", "priority", 1, picture::setPriority},
    {17, "GETALPHA", "x, y", 2, getAlpha},
    {18, "GETPIXEL", "x, y", 2, getPixel},
    {19, "MERGEALPHA", "x, y, object name", 3, picture::mergeAlpha},
    {20, "INVALIDATE", "", 0, picture::invalidate},
    {21, "GETCENTERX", "", 0, picture::getCenterX},
    {22, "GETCENTERY", "", 0, picture::getCenterY},
    {23, "ISVISIBLE", "", 0, isVisible},
    {24, "SETASBUTTON", "on, keep", 1, setAsButton},
    {25, "SETOPACITY", "opacity", 1, picture::setOpacity},
    {26, "GETOPACITY", "", 0, picture::getOpacity},
    {27, "SETANCHOR", "x, y | place", 1, picture::setAnchor},
    {28, "FLIPH", "", 0, picture::flipH},
    {29, "FLIPV", "", 0, picture::flipV},
    {30, "RESETFLIPS", "", 0, picture::resetFlips},
    {31, "DRAWONTO", "object name, priority", 1, picture::drawOnto},
    {32, "ISAT", "x, y, by alpha", 2, picture::isAt},
    {33, "REPLACECOLOR", "red, green, blue, red, green, blue", 6, replaceColor},
    {34, "RESETPOSITION", "", 0, resetPosition},
    {35, "SETRESETPOSITION", "x, y", 2, setResetPosition},
    {36, "SETSCALEFACTOR", "factor", 0, setScaleFactor},
    {37, "MERGEALPHA2", "x, y, object name, reset", 3, mergeAlpha2},
    {38, "LINK", "image name", 1, link},
    {39, "SAVE", "file", 1, save},
    {40, "GETSLIDECOMPS", "dx, dy, x, y, variable name", 5, getSlideComps},
    {41, "GETCOLORAT", "x, y, object name", 3, getColorAt},
    {42, "GETCOLORRAT", "x, y", 2, channelAt<red>},
    {43, "GETCOLORGAT", "x, y", 2, channelAt<green>},
    {44, "GETCOLORBAT", "x, y", 2, channelAt<blue>},
};

} // namespace

CMC_Image_Runner::CMC_Image_Runner() : CMC_Runner(kRows) {}
