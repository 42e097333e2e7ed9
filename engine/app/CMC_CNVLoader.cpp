#include "app/CMC_CNVLoader.h"

#include "app/CMC_Application.h"
#include "app/CUnit6.h"
#include "script/CMC_Groupped.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"
#include "script/Notes.h"

#include <memory>
#include <vector>

CMC_CNVLoader::CMC_CNVLoader(CWindow * window, CMC_Application * application)
    : CMC_Object("CNVLOADER", types::kCnvLoader), window_(window), application_(application) {
    setScene(application);
}

CMC_Runner * CMC_CNVLoader::getRunner() { return CMC_RunnerFactory::getRunner(types::kCnvLoader); }

CMC_ObjectsContainer * CMC_CNVLoader::target() const {
    CUnit6 * unit = CMC_Scene::getDefUnit();
    if (unit && unit->getScene()) return unit->getScene();
    return application_;
}

void CMC_CNVLoader::load(const CXString & file) {
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(window_, file));
    if (!elements) {
        notes::add(notes::Kind::other, "the definition file " + std::string(file.view()) + " isn't there");
        return;
    }
    CMC_ObjectsContainer * scope = target();
    if (scope->getObject(file) || elements->size == 0) return;
    auto * group = new CMC_Groupped(scope, file);
    scope->addObject(group);
    life::Guard guard;
    life::Handle wanted(group);
    for (int i = 0; i < elements->size; i++) {
        std::unique_ptr<CXVector> made(scope->resolve(elements->getAt(i), group));
        for (CXObject * each : *made) {
            auto * object = static_cast<CMC_Object *>(each);
            object->init();
            if (!wanted.get()) { // its script released the file, or left the scene
                life::bury(object);
                return;
            }
            scope->addObject(object);
            group->add(object);
            if (CXVector * inlined = object->getTmpBehList())
                for (CXObject * behaviour : *inlined) group->add(static_cast<CMC_Object *>(behaviour));
        }
    }
}

void CMC_CNVLoader::release(const CXString & file) {
    CMC_Object * found = target()->getObject(file);
    if (!found || found->getType() != types::kGroup) return;
    auto * group = static_cast<CMC_Groupped *>(found);
    CMC_ObjectsContainer * scope = group->getScene(); // an outer one, when it was loaded without a scene
    life::Guard guard;
    std::vector<life::Handle> objects;
    for (CXObject * each : *group->getList()) objects.emplace_back(static_cast<CMC_Object *>(each));
    for (const life::Handle & each : objects) {
        CMC_Object * object = each.get();
        if (!object) continue;
        for (int i = 1; i <= object->getClonesNo(); i++) {
            CXString name = object->getName() + "_";
            name += i;
            CMC_Object * clone = scope->getObject(name);
            if (clone && scope->removeObject(clone)) life::bury(clone);
        }
        group->remove(object);
        if (!scope->removeObject(object)) continue; // a script put another scope's object into the group
        object->done(true);
        if (each.get()) life::bury(object);
    }
    scope->removeObject(group);
    life::bury(group);
}
