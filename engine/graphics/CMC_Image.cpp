#include "graphics/CMC_Image.h"

#include "app/CWindow.h"
#include "graphics/CImage.h"
#include "graphics/CRefreshScreen.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"

const char * const CMC_Image::kSignals[9] = {
    "ONINIT",    "ONDONE",     "ONSIGNAL", "ONCOLLISION", "ONCOLLISIONFINISHED",
    "ONFOCUSON", "ONFOCUSOFF", "ONCLICK",  "ONRELEASE"};
const char * const CMC_Image::kKeys[9] = {"FILENAME",
                                          "TOCANVAS",
                                          "VISIBLE",
                                          "FLUSHAFTERPLAYED",
                                          "PRELOAD",
                                          "MONITORCOLLISION",
                                          "MONITORCOLLISIONALPHA",
                                          "PRIORITY",
                                          "ASBUTTON"};

CMC_Image::CMC_Image(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kImage),
      CollisionSignals(this, kOnCollision),
      window_(scope ? scope->getWindow() : nullptr),
      image_(std::make_unique<CImage>(window_)),
      priority_(element->getPropertyIntValue("PRIORITY")) {
    bool preload = !element->isPropertyAvailable("PRELOAD") || element->getPropertyBoolValue("PRELOAD");
    load(element->getPropertyValue("FILENAME"), preload);
    image_->toRelease(element->getPropertyBoolValue("FLUSHAFTERPLAYED"));
    bool byAlpha = element->getPropertyBoolValue("MONITORCOLLISIONALPHA");
    if (byAlpha || element->getPropertyBoolValue("MONITORCOLLISION")) monitorCollisions(byAlpha);
    if (element->getPropertyBoolValue("TOCANVAS") && canvas()) canvas()->put(image_.get(), priority_);
    image_->setVisibility(element->getPropertyBoolValue("VISIBLE"));
    if (element->getPropertyBoolValue("ASBUTTON")) setAsButton(true, false);
    initializeBehaviours(scope, element);
}

CMC_Image::CMC_Image(CMC_ObjectsContainer * scope, std::unique_ptr<CImage> image, const CMC_Image & source)
    : CMC_Object(CXString(), types::kImage),
      CollisionSignals(this, kOnCollision),
      window_(source.window_),
      image_(std::move(image)),
      priority_(source.priority_),
      resetPosition_(source.resetPosition_) {
    scene_ = scope;
}

CMC_Image::~CMC_Image() { leave(); }

CMC_Runner * CMC_Image::getRunner() { return CMC_RunnerFactory::getRunner(types::kImage); }

CRefreshScreen * CMC_Image::canvas() const { return window_ ? window_->getCanvas() : nullptr; }

CGraphicsObject * CMC_Image::watched() { return image_.get(); }

void CMC_Image::leave() {
    removeMonitorCollisions();
    if (window_) window_->removeMouseListener(this);
    if (!canvas() || canvas()->getIndex(image_.get()) < 0) return;
    image_->Invalidate(); // its place is drawn anew
    *canvas() >> image_.get();
}

bool CMC_Image::done(bool all) {
    bool ended = CMC_Object::done(all);
    leave();
    return ended;
}

CMC_Object * CMC_Image::clone() {
    // Planes of its own: the source may load another picture, or go.
    auto copy = std::make_unique<CImage>(window_);
    copy->takeAfter(*image_);
    copy->setFilename(image_->getFileName());
    copy->setAnchor(image_->getAnchor());
    copy->SetOpacity(image_->GetOpacity());
    copy->toRelease(image_->isToRelease());
    copy->setVisibility(image_->isVisible());
    copy->setMonitorCollisions(false);
    auto * made = new CMC_Image(scene_, std::move(copy), *this);
    CRefreshScreen * screen = canvas();
    if (screen && screen->getIndex(image_.get()) >= 0)
        screen->put(made->image_.get(), screen->GetPriority(image_.get()));
    if (isButton_) made->setAsButton(true, keeps_);
    if (image_->getMonitorCollisionsFlag()) made->monitorCollisions(isWatchedByAlpha());
    return made;
}

void CMC_Image::load(const CXString & file, bool now) {
    if (!file.IsString() || image_->getFileName().equalsIgnoreCase(file)) return;
    auto fresh = std::make_unique<CImage>(window_);
    fresh->setFilename(file);
    if (now) fresh->Load(file, true);
    bool isFirst = !image_->getFileName().IsString(), isWatched = image_->getMonitorCollisionsFlag();
    if (!isFirst) {
        fresh->setAnchor(image_->getAnchor());
        CXPoint place = image_->GetPosition(), anchor = image_->getAnchor();
        fresh->SetPosition(place.x + anchor.x, place.y + anchor.y);
        fresh->toRelease(image_->isToRelease());
    }
    bool isVisible = image_->isVisible();
    CRefreshScreen * screen = canvas();
    if (screen && screen->getIndex(image_.get()) >= 0) {
        int priority = screen->GetPriority(image_.get());
        image_->Visible(false);
        *screen >> image_.get();
        screen->put(fresh.get(), priority);
    }
    if (isWatched) removeMonitorCollisions();
    image_->handOver(fresh.get());
    image_ = std::move(fresh);
    if (isWatched) monitorCollisions(isWatchedByAlpha());
    if (!isFirst) image_->setVisibility(isVisible);
}

void CMC_Image::link(CMC_Image & other) {
    if (&other == this) return;
    CImage & source = *other.image_;
    image_->Invalidate();
    CXRect clip = image_->GetClippingRect();
    bool isVisible = image_->isVisible(), isWatched = image_->getMonitorCollisionsFlag();
    image_->takeAfter(source);
    image_->setMonitorCollisions(isWatched);
    image_->SetClippingRect(clip);
    image_->Visible(isVisible);
    image_->Invalidate();
}

// -------------------------------------------------------------------------------------------------- button

void CMC_Image::setAsButton(bool enabled, bool keep) {
    isButton_ = enabled;
    keeps_ = keep;
    mouseInside_ = pressed_ = false;
    if (!window_) return;
    if (enabled)
        window_->registerMouseListener(this, priority_);
    else
        window_->removeMouseListener(this);
}

void CMC_Image::raise(int signal) {
    if (isSignalBound(signal)) onSignal(kSignals[signal]);
}

bool CMC_Image::onMouseMove(CXPoint point) {
    bool inside = isButton_ && image_->isVisible() && image_->isAt(point, true);
    if (inside == mouseInside_) return inside;
    mouseInside_ = inside;
    if (inside)
        window_->BeginActiveCursor();
    else
        window_->EndWaitCursor();
    raise(inside ? kOnFocusOn : kOnFocusOff);
    return inside;
}

bool CMC_Image::onClick(CXPoint point) {
    if (!isButton_ || !image_->isVisible() || !image_->isAt(point, true)) return false;
    pressed_ = true;
    raise(kOnClick);
    return true;
}

bool CMC_Image::onRelease(CXPoint point) {
    bool inside = isButton_ && image_->isVisible() && image_->isAt(point, true);
    bool was = std::exchange(pressed_, false);
    if (!was && !inside) return false;
    raise(kOnRelease);
    return inside;
}
