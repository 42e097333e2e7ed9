#include "sequence/CSequencedPlayable.h"

#include "graphics/CGraphicsObject.h"
#include "platform/World.h"
#include "script/CMElement.h"
#include "script/CMElementCreator.h"

#include <algorithm>

namespace {

CPlayable * create(CWindow * window, CMElement * element) { return new CSequencedPlayable(window, element); }

[[maybe_unused]] const bool added = (CMElementCreator::addPlayable("SEQUENCE", create), true);

int modeOf(const CXString & name) {
    if (name == "RANDOM") return CSequencedPlayable::kRandom;
    return name == "PARAMETER" ? CSequencedPlayable::kByParameter : CSequencedPlayable::kInOrder;
}

} // namespace

CSequencedPlayable::CSequencedPlayable(CWindow * window) : CPlayable(window) { setMode(kInOrder); }

CSequencedPlayable::CSequencedPlayable(CWindow * window, CMElement * element) : CSequencedPlayable(window) {
    setName(element->getName());
    setMode(modeOf(element->getPropertyValue("MODE")));
    for (CXObject * entry : *element->getChildren()) {
        auto * below = static_cast<CMElement *>(entry);
        std::unique_ptr<CPlayable> made(CMElementCreator::createPlayable(window, below));
        if (!made) continue;
        made->setName(below->getName());
        addChild(made.get());
        made_.push_back(std::move(made));
    }
}

CSequencedPlayable::~CSequencedPlayable() {
    for (CXObject * entry : children_) {
        auto * child = static_cast<CPlayable *>(entry);
        child->removeNotifier(this);
        child->subParent();
        if (child->getParent() == this) child->setParent(nullptr);
    }
}

CPlayable * CSequencedPlayable::child(int i) const {
    return i >= 0 && i < children_.size ? static_cast<CPlayable *>(children_[i]) : nullptr;
}

void CSequencedPlayable::addChild(CPlayable * child) {
    auto * nested = dynamic_cast<CSequencedPlayable *>(child);
    if (!child || child == this || (nested && nested->accure(this))) return;
    children_.add(child);
    child->setParent(this);
    child->addParent();
}

void CSequencedPlayable::forgetChild(CPlayable * child) {
    std::erase(played_, child);
    for (int i = children_.find(child); i >= 0; i = children_.find(child)) {
        children_.removeAt(i);
        if (index_ == i) index_ = -1;
        if (index_ > i) index_--;
    }
    if (index_ < 0) status_ = kStopped;
}

// ------------------------------------------------------------------------------------------------- the tree

CXVector * CSequencedPlayable::getAllOfType(int kind) {
    auto * found = new CXVector(11, 0.75F);
    for (CXObject * entry : children_) {
        auto * child = static_cast<CPlayable *>(entry);
        if (child->getKind() == kind) found->add(child);
        if (auto * nested = dynamic_cast<CSequencedPlayable *>(child)) {
            std::unique_ptr<CXVector> below(nested->getAllOfType(kind));
            found->add(below.get());
        }
    }
    return found;
}

CPlayable * CSequencedPlayable::get(const CXString & name) {
    for (CXObject * entry : children_) {
        auto * child = static_cast<CPlayable *>(entry);
        if (child->getName() == name) return child;
        auto * nested = dynamic_cast<CSequencedPlayable *>(child);
        if (CPlayable * found = nested ? nested->get(name) : nullptr) return found;
    }
    return nullptr;
}

bool CSequencedPlayable::accure(CPlayable * playable) {
    return std::any_of(children_.begin(), children_.end(), [playable](CXObject * entry) {
        auto * nested = dynamic_cast<CSequencedPlayable *>(entry);
        return entry == playable || (nested && nested->accure(playable));
    });
}

CXRect CSequencedPlayable::getBoundingBox(int i) {
    auto * picture = dynamic_cast<CGraphicsObject *>(child(i));
    return picture ? picture->GetBoundingBox() : CXRect();
}

CXPoint CSequencedPlayable::getPosition(int i) {
    auto * picture = dynamic_cast<CGraphicsObject *>(child(i));
    return picture ? picture->GetPosition() : CXPoint();
}

CXString CSequencedPlayable::getLastPlayedEvent(const CXString & name) {
    for (CXObject * entry : children_) {
        auto * child = static_cast<CPlayable *>(entry);
        if (child->getName() == name)
            return std::count(played_.begin(), played_.end(), child) ? child->getPlayedEvent() : CXString();
        auto * nested = dynamic_cast<CSequencedPlayable *>(child);
        if (nested && nested->get(name)) return nested->getLastPlayedEvent(name);
    }
    return {};
}

// -------------------------------------------------------------------------------------------------- playing

void CSequencedPlayable::play() {
    stopped_ = false;
    index_ = -1;
    status_ = children_.size > 0 ? kPlaying : kStopped;
    notify(kStarted);
    if (stopped_ || !isPlaying()) return; // nothing to play, or whoever was told has stopped it
    if (getMode() == kInOrder) return startFrom(0);
    if (getMode() == kRandom) return start(platform::world().random->next() % children_.size);
    for (int i = 0; i < children_.size; i++)
        if (child(i)->getName() == getParam()) return start(i);
    status_ = kStopped;
}

void CSequencedPlayable::start(int i) {
    index_ = i;
    CPlayable & started = *child(i);
    if (!std::count(played_.begin(), played_.end(), &started)) played_.push_back(&started);
    started.addNotifier(this);
    started.play(getParam());
    tune(started);
}

void CSequencedPlayable::startFrom(int i) {
    for (; i < children_.size; i++) {
        start(i);
        // A child that ended at once has taken the sequence on already, or to its end.
        if (index_ != i || !isPlaying() || child(i)->getWaitMode()) return;
    }
}

void CSequencedPlayable::tune(CPlayable & child) const {
    child.setVolume(volume_);
    child.setPanning(panning_);
    if (frequency_ > 0) child.setFrequency(frequency_);
}

void CSequencedPlayable::next() {
    CPlayable * present = current();
    if (getMode() == kInOrder) {
        if (present && present->isPlaying()) return;
        if (index_ + 1 < children_.size) return startFrom(index_ + 1);
    }
    stop(false);
}

bool CSequencedPlayable::onPlayableFinished(CPlayable *) {
    if (stopped_) return true;
    bool inOrder = getMode() == kInOrder;
    int ends = ends_;
    if (isPlaying()) {
        if (inOrder)
            next();
        else
            stop(false);
        if (inOrder && isPlaying()) return true;
    }
    if (ends != ends_) return true; // children that ended at once have brought it to its end already
    ends_++;
    return notify(kFinished);
}

// With a report it's the child's end, which comes from its own stop, that is told on.
void CSequencedPlayable::stop(bool report) {
    status_ = kStopped;
    stopped_ = !report;
    CPlayable * present = current();
    if (present) present->stop(report);
    if (!isPlaying()) stopped_ = true; // children that weren't waited for may end later
}

void CSequencedPlayable::pause() {
    if (current()) current()->pause();
}

void CSequencedPlayable::resume() {
    if (current()) current()->resume();
}

CPlayable * CSequencedPlayable::getPlaying() {
    return isPlaying() && current() ? current()->getPlaying() : nullptr;
}

// --------------------------------------------------------------------------------------------- all children

namespace {

template <class Act>
void each(CXVector & children, const Act & act) {
    for (CXObject * entry : children) act(*static_cast<CPlayable *>(entry));
}

} // namespace

void CSequencedPlayable::alwaysOnTop() {
    each(children_, [](CPlayable & child) { child.alwaysOnTop(); });
}

void CSequencedPlayable::move(int dx, int dy) {
    each(children_, [=](CPlayable & child) { child.move(dx, dy); });
}

void CSequencedPlayable::setPosition(int x, int y) {
    CPlayable::setPosition(x, y);
    each(children_, [=](CPlayable & child) { child.setPosition(x, y); });
}

void CSequencedPlayable::setVisibility(bool visible) {
    CPlayable::setVisibility(visible);
    each(children_, [=](CPlayable & child) { child.setVisibility(visible); });
}

void CSequencedPlayable::show() {
    CPlayable::setVisibility(true);
    each(children_, [](CPlayable & child) { child.show(); });
}

void CSequencedPlayable::hide() {
    CPlayable::setVisibility(false);
    each(children_, [](CPlayable & child) { child.hide(); });
}

void CSequencedPlayable::setVolume(int volume) {
    CPlayable::setVolume(volume);
    each(children_, [=](CPlayable & child) { child.setVolume(volume); });
}

void CSequencedPlayable::setPanning(int panning) {
    CPlayable::setPanning(panning);
    each(children_, [=](CPlayable & child) { child.setPanning(panning); });
}

void CSequencedPlayable::setFrequency(int frequency) {
    CPlayable::setFrequency(frequency);
    each(children_, [=](CPlayable & child) { child.setFrequency(frequency); });
}
