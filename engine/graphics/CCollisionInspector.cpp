#include "graphics/CCollisionInspector.h"

#include "graphics/CGraphicsObject.h"

#include <algorithm>

namespace {

bool contains(const std::vector<CGraphicsObject *> & list, const CGraphicsObject * object) {
    return std::find(list.begin(), list.end(), object) != list.end();
}

} // namespace

void CCollisionInspector::addMonitoredObject(CGraphicsObject * object, bool alpha) {
    if (auto found = known_.find(object); found != known_.end()) {
        found->second->active = true;
        return;
    }
    auto record = std::make_unique<CMonitoredObject>();
    record->object = object;
    record->useAlpha = alpha;
    known_[object] = record.get();
    monitored_.push_back(std::move(record));
}

void CCollisionInspector::removeMonitoredObject(CGraphicsObject * object) {
    if (auto found = known_.find(object); found != known_.end()) {
        found->second->active = false;
        anyInactive_ = true;
    }
}

void CCollisionInspector::forget(CGraphicsObject * object) {
    auto found = known_.find(object);
    if (found == known_.end()) return;
    found->second->active = false;
    found->second->object = nullptr;
    known_.erase(found);
    anyInactive_ = true;
    // Another object may come to stand at this address.
    for (auto & each : monitored_) std::erase(each->partners, object);
}

void CCollisionInspector::addNotifier(CCollisionObserver * observer) {
    if (std::find(observers_.begin(), observers_.end(), observer) == observers_.end())
        observers_.push_back(observer);
}

void CCollisionInspector::removeNotifier(CCollisionObserver * observer) { std::erase(observers_, observer); }

void CCollisionInspector::onPositionChanged(CGraphicsObject * object) {
    auto found = known_.find(object);
    if (found == known_.end() || found->second->isMoved) return;
    found->second->isMoved = true;
    moved_.push_back(found->second);
}

void CCollisionInspector::tick() {
    // Observers append. Objects whose scripts chase each other go on in the next tick.
    const std::size_t most = moved_.size() + kMostFollowing;
    std::size_t done = 0;
    for (; done < moved_.size() && done < most; done++) {
        CMonitoredObject & each = *moved_[done];
        if (each.active) test(each);
        each.isMoved = false;
    }
    moved_.erase(moved_.begin(), moved_.begin() + static_cast<std::ptrdiff_t>(done));
    if (anyInactive_) deleteInactive();
}

void CCollisionInspector::test(CMonitoredObject & moved) {
    CXRect box = moved.object->GetBoundingBox();
    for (std::size_t i = 0; i < monitored_.size() && moved.active; i++) {
        CMonitoredObject & other = *monitored_[i];
        if (!other.active || other.object == moved.object) continue;
        CXRect common = box.Common(other.object->GetBoundingBox());
        bool collide =
            !common.IsEmpty() && (!moved.useAlpha || checkAlphaCollision(moved.object, other.object, common));
        bool was = contains(moved.partners, other.object);
        if (collide && !was) {
            moved.partners.push_back(other.object);
            if (!contains(other.partners, moved.object)) other.partners.push_back(moved.object);
            notify(Event::begins, moved.object, other.object);
        } else if (was && !collide) {
            std::erase(moved.partners, other.object);
            std::erase(other.partners, moved.object);
            notify(Event::ends, moved.object, other.object);
        }
    }
}

void CCollisionInspector::notify(Event event, CGraphicsObject * a, CGraphicsObject * b) {
    std::vector<CCollisionObserver *> all = observers_;
    for (CCollisionObserver * each : all) {
        if (std::find(observers_.begin(), observers_.end(), each) == observers_.end()) continue;
        if (event == Event::begins)
            each->onCollision(a, b);
        else
            each->onCollisionFinished(a, b);
    }
}

void CCollisionInspector::deleteInactive() {
    anyInactive_ = false;
    for (auto & each : monitored_)
        if (!each->active && each->object) {
            known_.erase(each->object);
            for (auto & other : monitored_) std::erase(other->partners, each->object);
        }
    std::erase_if(moved_, [](const CMonitoredObject * each) { return !each->active; });
    std::erase_if(monitored_, [](const auto & each) { return !each->active; });
}

// Eight points of the common rectangle, corners and middles of the edges, stand for the whole of it.
bool CCollisionInspector::checkAlphaCollision(CGraphicsObject * a, CGraphicsObject * b,
                                              const CXRect & common) {
    if (!a->GetChannelAlpha() || !b->GetChannelAlpha()) return false;
    const int right = common.right - 1, bottom = common.bottom - 1;
    const int middle = common.left + common.Width() / 2, centre = common.top + common.Height() / 2;
    const CXPoint probes[] = {{common.left, common.top}, {middle, common.top}, {right, common.top},
                              {right, centre},           {right, bottom},      {middle, bottom},
                              {common.left, bottom},     {common.left, centre}};
    return std::any_of(std::begin(probes), std::end(probes), [&](CXPoint p) { return b->testHit(p, false); });
}
