#include "graphics/CollisionSignals.h"

#include "app/CMC_Scene.h"
#include "app/CUnit6.h"
#include "graphics/CGraphicsObject.h"
#include "script/CMC_Object.h"

void CollisionSignals::monitorCollisions(bool alpha) {
    CMC_Scene * scene = CMC_Scene::around(self_->getScene());
    if (!scene || watched()->getMonitorCollisionsFlag()) return;
    alpha_ = alpha;
    scene->monitorCollisions(watched(), alpha, this);
}

void CollisionSignals::removeMonitorCollisions() {
    if (!watched()->getMonitorCollisionsFlag()) return;
    if (CMC_Scene * scene = CMC_Scene::around(self_->getScene()))
        scene->removeMonitorCollisions(watched(), this);
}

void CollisionSignals::monitorFor(const CXString & signal) {
    if (signal.view().starts_with("ONCOLLISION")) monitorCollisions(false);
}

void CollisionSignals::onCollision(CGraphicsObject * a, CGraphicsObject * b) {
    raise(index_, "ONCOLLISION", a, b);
}

void CollisionSignals::onCollisionFinished(CGraphicsObject * a, CGraphicsObject * b) {
    raise(index_ + 1, "ONCOLLISIONFINISHED", a, b);
}

// An object of an outer scope meets those of the running scene.
CXString CollisionSignals::nameOf(CGraphicsObject * object) const {
    CXString name = self_->getScene()->getGraphicsObjectName(object, true);
    CUnit6 * unit = CMC_Scene::getDefUnit();
    if (name == "UNKNOWN" && unit && unit->getScene())
        name = unit->getScene()->getGraphicsObjectName(object, true);
    return name;
}

void CollisionSignals::raise(int index, const char * signal, CGraphicsObject * a, CGraphicsObject * b) {
    CGraphicsObject * own = watched();
    if ((a != own && b != own) || !self_->isSignalBound(index) || !life::Handle(self_).get()) return;
    self_->onQualifiedSignal(signal, [&] { return nameOf(a == own ? b : a); });
}
