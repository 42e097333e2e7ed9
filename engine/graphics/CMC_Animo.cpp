#include "graphics/CMC_Animo.h"

#include "app/CWindow.h"
#include "core/Text.h"
#include "graphics/CAnimo6.h"
#include "graphics/CRefreshScreen.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"

#include <utility>

const char * const CMC_Animo::kSignals[15] = {"ONINIT",
                                              "ONDONE",
                                              "ONSIGNAL",
                                              "ONSTARTED",
                                              "ONFINISHED",
                                              "ONPAUSED",
                                              "ONRESUMED",
                                              "ONFRAMECHANGED",
                                              "ONFRAMECHANGEDFRAME",
                                              "ONCOLLISION",
                                              "ONCOLLISIONFINISHED",
                                              "ONFOCUSON",
                                              "ONFOCUSOFF",
                                              "ONCLICK",
                                              "ONRELEASE"};
const char * const CMC_Animo::kKeys[11] = {"FILENAME",
                                           "TOCANVAS",
                                           "VISIBLE",
                                           "FLUSHAFTERPLAYED",
                                           "PRELOAD",
                                           "MONITORCOLLISION",
                                           "MONITORCOLLISIONALPHA",
                                           "PRIORITY",
                                           "ASBUTTON",
                                           "FPS",
                                           "ONFIRSTFRAME"};

namespace {

constexpr std::string_view kReversed = "_REVERSE";

int fpsOf(CMElement * element) {
    int fps = element->getPropertyIntValue("FPS");
    return fps == 0 ? CAnimo::kDefaultFps : std::max(fps, 1);
}

} // namespace

CMC_Animo::CMC_Animo(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kAnimo),
      CollisionSignals(this, kOnCollision),
      window_(scope ? scope->getWindow() : nullptr),
      animo_(std::make_shared<CAnimo6>(window_)),
      priority_(element->getPropertyIntValue("PRIORITY")) {
    bool preload = !element->isPropertyAvailable("PRELOAD") || element->getPropertyBoolValue("PRELOAD");
    load(element->getPropertyValue("FILENAME"), preload);
    animo_->toRelease(element->getPropertyBoolValue("FLUSHAFTERPLAYED"));
    bool byAlpha = element->getPropertyBoolValue("MONITORCOLLISIONALPHA");
    if (byAlpha || element->getPropertyBoolValue("MONITORCOLLISION")) monitorCollisions(byAlpha);
    if (element->getPropertyBoolValue("TOCANVAS") && canvas()) canvas()->put(animo_.get(), priority_);
    animo_->setVisibility(element->getPropertyBoolValue("VISIBLE"));
    animo_->SetFPS(fpsOf(element));
    animo_->addNotifier(this);
    if (element->getPropertyBoolValue("ASBUTTON")) setAsButton(true, false);
    onFirstFrame_ = element->getPropertyBoolValue("ONFIRSTFRAME");
    initializeBehaviours(scope, element);
}

CMC_Animo::CMC_Animo(const CMC_Animo & source)
    : CMC_Object(CXString(), types::kAnimo),
      CollisionSignals(this, kOnCollision),
      window_(source.window_),
      animo_(static_cast<CAnimo6 *>(source.animo_->clone())),
      lender_(std::make_shared<std::pair<std::shared_ptr<CAnimo6>, std::shared_ptr<void>>>(source.animo_,
                                                                                           source.lender_)),
      priority_(source.priority_),
      onFirstFrame_(source.onFirstFrame_) {
    scene_ = source.scene_;
    animo_->clearNotifiers();
    animo_->addNotifier(this);
    animo_->setVisibility(source.animo_->isVisible());
    animo_->setMonitorCollisions(false);
}

CMC_Animo::~CMC_Animo() {
    leave();
    animo_->removeNotifier(this);
}

CMC_Runner * CMC_Animo::getRunner() { return CMC_RunnerFactory::getRunner(types::kAnimo); }

CRefreshScreen * CMC_Animo::canvas() const { return window_ ? window_->getCanvas() : nullptr; }

bool CMC_Animo::isPlaying() { return animo_->isPlaying(); }

CGraphicsObject * CMC_Animo::watched() { return animo_.get(); }

void CMC_Animo::leave() {
    removeMonitorCollisions();
    if (window_) window_->removeMouseListener(this);
    if (!canvas() || canvas()->getIndex(animo_.get()) < 0) return;
    animo_->Invalidate(); // its place is drawn anew
    *canvas() >> animo_.get();
}

bool CMC_Animo::done(bool all) {
    animo_->stop(false);
    leave();
    return CMC_Object::done(all);
}

CMC_Object * CMC_Animo::clone() {
    auto * made = new CMC_Animo(*this);
    CRefreshScreen * screen = canvas();
    if (screen && screen->getIndex(animo_.get()) >= 0)
        screen->put(made->animo_.get(), screen->GetPriority(animo_.get()));
    if (isButton_) made->setAsButton(true, keeps_);
    if (animo_->getMonitorCollisionsFlag()) made->monitorCollisions(isWatchedByAlpha());
    return made;
}

// The new one takes the old one's place on the screen, its observer, and the watch for collisions.
void CMC_Animo::replace(std::shared_ptr<CAnimo6> fresh) {
    bool isWatched = animo_->getMonitorCollisionsFlag();
    if (isWatched) removeMonitorCollisions();
    fresh->setMonitorCollisions(false);
    animo_->removeNotifier(this);
    fresh->addNotifier(this);
    CRefreshScreen * screen = canvas();
    if (screen && screen->getIndex(animo_.get()) >= 0) {
        int priority = screen->GetPriority(animo_.get());
        animo_->Visible(false);
        *screen >> animo_.get();
        screen->put(fresh.get(), priority);
    }
    animo_->handOver(fresh.get());
    animo_ = std::move(fresh);
    if (isWatched) monitorCollisions(isWatchedByAlpha());
}

CAnimo6 * CMC_Animo::getOwnAnimo() {
    if (animo_.use_count() == 1) return animo_.get();
    bool isVisible = animo_->isVisible();
    std::shared_ptr<CAnimo6> fresh(static_cast<CAnimo6 *>(animo_->clone()));
    fresh->clearNotifiers();
    lender_ = std::make_shared<std::pair<std::shared_ptr<CAnimo6>, std::shared_ptr<void>>>(animo_, lender_);
    replace(std::move(fresh));
    animo_->setVisibility(isVisible);
    return animo_.get();
}

void CMC_Animo::load(const CXString & file, bool now) {
    if (!file.IsString() || animo_->getFileName().equalsIgnoreCase(file)) return;
    bool isFirst = !animo_->getFileName().IsString(), isVisible = animo_->isVisible();
    auto fresh = std::make_shared<CAnimo6>(window_);
    fresh->setFilename(file);
    if (now) fresh->Load(file);
    if (!isFirst) {
        CXPoint place = animo_->GetGlobalPosition(), anchor = animo_->getAnchor();
        fresh->setAnchor(anchor);
        fresh->SetPosition(place.x + anchor.x, place.y + anchor.y);
        fresh->toRelease(animo_->isToRelease());
        fresh->SetFPS(animo_->GetFPS());
        animo_->stop(false);
    }
    replace(std::move(fresh));
    lender_.reset();
    if (!isFirst) animo_->setVisibility(isVisible);
}

void CMC_Animo::pause() {
    bool wasPlaying = animo_->isPlaying();
    animo_->pause();
    if (wasPlaying && animo_->isPaused()) raise(kOnPaused);
}

// ------------------------------------------------------------------------------------------------- signals

CXString CMC_Animo::getSignalEvent(const CXString & event) {
    CXString name(event);
    name.Upper();
    return name.view().ends_with(kReversed) ? name.Left(name.getLength() - static_cast<int>(kReversed.size()))
                                            : name;
}

void CMC_Animo::raise(int signal) {
    if (isSignalBound(signal)) onSignal(kSignals[signal]);
}

void CMC_Animo::raiseWithEvent(int signal) {
    if (isSignalBound(signal))
        onQualifiedSignal(kSignals[signal], [this] { return getSignalEvent(animo_->getCurrentEventName()); });
}

bool CMC_Animo::onPlayableStarted(CPlayable *) {
    raiseWithEvent(kOnStarted);
    return true;
}

bool CMC_Animo::onPlayableTick(CPlayable *) {
    life::Guard guard;
    life::Handle self(this);
    raiseWithEvent(kOnFrameChanged);
    if (!self.get() || !isSignalBound(kOnFrameChangedFrame)) return true;
    CXString signal = CXString(kSignals[kOnFrameChangedFrame]) + "^";
    int entry = animo_->getIndexInEvent();
    if (!onSignal(signal + CXString::toString(entry)) && self.get())
        onSignal(signal + animo_->getFrameName(animo_->GetCurrentEvent(), entry));
    return true;
}

bool CMC_Animo::onPlayableFinished(CPlayable *) {
    if (onFirstFrame_) animo_->SetEventFrame(animo_->GetCurrentEvent(), 0);
    raiseWithEvent(kOnFinished);
    return true;
}

bool CMC_Animo::onPlayableResumed(CPlayable *) {
    raise(kOnResumed);
    return true;
}

// -------------------------------------------------------------------------------------------------- button

void CMC_Animo::playIfThere(const char * event) {
    if (animo_->GetEventNo(event) >= 0) animo_->Play(CXString(event), 0, CPlayable::kWholeEvent);
}

void CMC_Animo::setAsButton(bool enabled, bool keep) {
    isButton_ = enabled;
    keeps_ = keep;
    mouseInside_ = pressed_ = false;
    playIfThere("ONNOEVENT"); // the resting look, also of a button no more
    if (!window_) return;
    if (enabled)
        window_->registerMouseListener(this, priority_);
    else
        window_->removeMouseListener(this);
}

bool CMC_Animo::isHit(CXPoint point) const {
    return isButton_ && animo_->isVisible() && animo_->isAt(point, true);
}

bool CMC_Animo::onMouseMove(CXPoint point) {
    bool inside = isHit(point);
    if (inside == mouseInside_) return inside;
    life::Guard guard;
    mouseInside_ = inside;
    if (!animo_->isPlaying("ONCLICK")) playIfThere(inside ? "ONFOCUSON" : "ONFOCUSOFF");
    if (inside)
        window_->BeginActiveCursor();
    else
        window_->EndWaitCursor();
    raise(inside ? kOnFocusOn : kOnFocusOff);
    return inside;
}

bool CMC_Animo::onClick(CXPoint point) {
    if (!isHit(point)) return false;
    life::Guard guard;
    pressed_ = true;
    playIfThere("ONCLICK");
    raise(kOnClick);
    return true;
}

bool CMC_Animo::onRelease(CXPoint point) {
    bool inside = isHit(point), was = std::exchange(pressed_, false);
    if (!was && !inside) return false;
    life::Guard guard;
    playIfThere("ONRELEASE");
    raise(kOnRelease);
    return inside;
}
