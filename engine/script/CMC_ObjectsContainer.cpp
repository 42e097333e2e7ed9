#include "script/CMC_ObjectsContainer.h"

#include "app/CWindow.h"
#include "core/CStringHashCode.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_Groupped.h"
#include "script/CMC_Variable.h"
#include "script/CMElement.h"
#include "script/CMElements.h"
#include "script/Names.h"
#include "script/TypeTable.h"

#include <memory>

namespace {

constexpr int kFirstSize = 1001;
constexpr int kHashSize = 10001;

CHashtable * newTable() { return new CHashtable(kHashSize, 1.0, true); }

bool ownedElsewhere(CMC_Object * object) {
    int type = object->getType();
    return type == types::kScene || type == types::kEpisode || type == types::kApplication;
}

} // namespace

CMC_ObjectsContainer::CMC_ObjectsContainer(CWindow * window, CMC_ObjectsContainer * parent,
                                           CMElement * element, int type)
    : CMC_Object(parent, element, type),
      tempKey_(new CStringHashCode("temp")),
      objects_(new CXVector(kFirstSize, 0.75F)),
      objectsHash_(newTable()),
      parent_(parent),
      window_(window) {}

CMC_ObjectsContainer::CMC_ObjectsContainer(CWindow * window, CMC_ObjectsContainer * parent,
                                           const CXString & name, int type)
    : CMC_ObjectsContainer(window, parent, static_cast<CMElement *>(nullptr), type) {
    setName(name);
}

CMC_ObjectsContainer::~CMC_ObjectsContainer() {
    std::vector<CMC_Object *> owned;
    for (CXObject * each : *objects_)
        if (auto * object = static_cast<CMC_Object *>(each); !ownedElsewhere(object)) owned.push_back(object);
    // All count as gone before the first is: a statement that goes must not delete a block that stands here.
    for (CMC_Object * each : owned) each->slot().free();
    for (CMC_Object * each : owned) delete each;
    delete objectsHash_;
    delete objects_;
    delete tempKey_;
}

CConfig * CMC_ObjectsContainer::getConfig() const { return window_ ? window_->getConfig() : nullptr; }

CMC_Object * CMC_ObjectsContainer::find(std::string_view name) {
    tempKey_->set(name);
    return static_cast<CMC_Object *>(objectsHash_->get(tempKey_));
}

CMC_Object * CMC_ObjectsContainer::getObject(std::string_view name) {
    if (name.ends_with("_0")) return getZeroth(name);
    for (CMC_ObjectsContainer * scope = this; scope; scope = scope->parent_)
        if (CMC_Object * object = scope->find(name)) return object;
    return nullptr;
}

CMC_Object * CMC_ObjectsContainer::getObject(const names::Record & name) {
    if (name.base) return getZeroth(name.key.view());
    for (CMC_ObjectsContainer * scope = this; scope; scope = scope->parent_)
        if (CXObject * object = scope->objectsHash_->get(&name.key)) return static_cast<CMC_Object *>(object);
    return nullptr;
}

// "X_0" is looked for here, then "X" here and outside, then "X_0" outside. "X" may end in "_0" as well, by
// the same order; each name is looked for once in each scope.
CMC_Object * CMC_ObjectsContainer::getZeroth(std::string_view name) {
    std::size_t shortest = name.size();
    while (name.substr(0, shortest).ends_with("_0")) shortest -= 2;
    for (std::size_t length = name.size() + 2; length > shortest;)
        if (CMC_Object * object = find(name.substr(0, length -= 2))) return object;
    for (std::size_t length = shortest; length <= name.size(); length += 2)
        for (CMC_ObjectsContainer * scope = parent_; scope; scope = scope->parent_)
            if (CMC_Object * object = scope->find(name.substr(0, length))) return object;
    return nullptr;
}

CMC_Variable * CMC_ObjectsContainer::getVariable(std::string_view name) {
    CMC_Object * object = getObject(name);
    return object && types::isValue(object->getType()) ? static_cast<CMC_Variable *>(object) : nullptr;
}

int CMC_ObjectsContainer::getObjectId(const CXString & name) {
    for (int i = 0; i < objects_->size; i++)
        if (getObject(i)->getName() == name) return i;
    return -1;
}

CXVector * CMC_ObjectsContainer::getObjectsOfType(int type) {
    auto * found = new CXVector(101, 0.75F);
    for (CXObject * each : *objectsHash_->getElements())
        if (static_cast<CMC_Object *>(each)->getType() == type) found->add(each);
    return found;
}

void CMC_ObjectsContainer::getObjects(const CXString & typeName, CMC_Groupped * group) {
    group->removeAll();
    int type = getTypeId(typeName);
    for (CXObject * each : *objects_)
        if (static_cast<CMC_Object *>(each)->getType() == type) group->add(static_cast<CMC_Object *>(each));
}

void CMC_ObjectsContainer::addObject(CMC_Object * object) {
    if (CMC_Object * old = find(object->getName().view()); old && old != object) {
        removeObject(old);
        if (!ownedElsewhere(old)) life::bury(old);
    } else if (old) {
        removeObject(old); // to its new place at the end
    }
    objectsHash_->put(new CStringHashCode(object->getName()), object);
    objects_->add(object);
    names::changed(object->getName().view());
}

bool CMC_ObjectsContainer::removeObject(CMC_Object * object) {
    // What was added last goes first, as local variables do.
    int i = objects_->size - 1;
    while (i >= 0 && objects_->at(i) != object) i--;
    if (i < 0) return false;
    objects_->removeAt(i);
    tempKey_->set(object->getName().view());
    if (!objectsHash_->remove(tempKey_, object)) objectsHash_->remove(object); // it was renamed since
    names::changed(object->getName().view());
    return true;
}

void CMC_ObjectsContainer::setParent(CMC_ObjectsContainer * parent) {
    if (parent_) {
        removeObject(parent_);
        if (parent_->parent_) removeObject(parent_->parent_);
    }
    parent_ = parent;
    if (parent) {
        if (parent->parent_) addObject(parent->parent_);
        addObject(parent);
    }
    names::scopesChanged();
}

void CMC_ObjectsContainer::onSubSceneDone(CMC_ObjectsContainer * scope) {
    CXVector objects(std::max(objects_->size * 2, 1), 0.75F);
    objects.add(objects_);
    for (CXObject * each : objects) static_cast<CMC_Object *>(each)->onSceneDone(scope);
}

void CMC_ObjectsContainer::unload() {
    life::Guard guard;
    // Handlers may remove objects on the way; each is ended at most once, and only while it is there.
    auto end = [&](auto && chosen) {
        std::vector<life::Handle> objects;
        for (CXObject * each : *objects_)
            if (auto * object = static_cast<CMC_Object *>(each); !ownedElsewhere(object) && chosen(object))
                objects.emplace_back(object);
        for (const life::Handle & each : objects)
            if (CMC_Object * object = each.get()) object->done(true);
    };
    auto isClass = [](CMC_Object * object) { return object->getType() == types::kClass; };
    end(isClass);
    end([&](CMC_Object * object) { return !isClass(object) && object->doneFirst(); });
    end([&](CMC_Object * object) { return !isClass(object) && !object->doneFirst(); });

    CXVector * objects = objects_;
    objects_ = new CXVector(kFirstSize, 0.75F);
    delete objectsHash_;
    objectsHash_ = newTable();
    for (CXObject * each : *objects) {
        auto * object = static_cast<CMC_Object *>(each);
        if (!ownedElsewhere(object)) life::bury(object);
    }
    delete objects;
    names::scopesChanged();
    if (isSignalBound(kOnDone)) onSignal("ONDONE");
}

CXVector * CMC_ObjectsContainer::resolve(CMElement * element, CMC_Groupped * group) {
    auto * made = new CXVector(101, 0.75F);
    CMC_Object * object = nullptr;
    if (const TypeRow * row = typetable::find(element->getPropertyValue("TYPE").view()))
        object = row->make(this, element);
    else if (element->isPropertyAvailable("TYPE"))
        object = resolveEx(element);
    if (!object) return made;
    made->add(object);
    if (CXVector * inlined = group ? object->getTmpBehList() : nullptr)
        for (CXObject * each : *inlined)
            if (static_cast<CMC_Object *>(each)->getName().view().starts_with("beh_"))
                group->add(static_cast<CMC_Object *>(each));
    return made;
}

CXVector * CMC_ObjectsContainer::resolveObjects(CMElements * elements) {
    auto * rest = new CXVector(std::max(elements->size * 2, 101), 0.75F);
    rest->add(elements);
    for (int pass = typetable::kFirstPass; pass <= typetable::kLastPass; pass++) {
        // A first index of the rest: an element leaves it by position, without a search.
        int kept = 0;
        for (int i = 0; i < rest->size; i++) {
            auto * element = static_cast<CMElement *>(rest->at(i));
            const TypeRow * row = typetable::find(element->getPropertyValue("TYPE").view());
            CMC_Object * object = nullptr;
            if (row && row->pass == pass) {
                if (CMC_Object * existing = row->mergesWith ? row->mergesWith(this, element) : nullptr)
                    existing->initializeBehaviours(this, element);
                else
                    object = row->make(this, element);
            } else if (!row && pass == typetable::kLastPass && element->isPropertyAvailable("TYPE")) {
                object = resolveEx(element);
            }
            if (object)
                addObject(object);
            else
                rest->setAt(kept++, element);
        }
        rest->size = kept;
        if (pass == typetable::kConditionsPass)
            for (int i = 0; i < objects_->size; i++)
                if (getObject(i)->getType() == types::kBehaviour)
                    static_cast<CMC_Behaviour *>(getObject(i))->resolveCondition();
    }
    return rest;
}

CGraphicsObject * CMC_ObjectsContainer::getGraphicsObject(const CXString & text) {
    int mark = text.Find('!', 0);
    CMC_Object * object =
        getObject(mark < 0 ? text.view() : text.view().substr(0, static_cast<std::size_t>(mark)));
    if (!object) return nullptr;
    const TypeRow * row = typetable::find(object->getType());
    return row && row->graphics ? row->graphics(object, mark < 0 ? CXString() : text.Right(mark + 1))
                                : nullptr;
}

CXString CMC_ObjectsContainer::getGraphicsObjectName(CGraphicsObject * wanted, bool throughParents) {
    for (CXObject * each : *objects_) {
        auto * object = static_cast<CMC_Object *>(each);
        if (object->getType() == types::kClass) {
            CXString name = static_cast<CMC_ObjectsContainer *>(object)->getGraphicsObjectName(wanted, false);
            if (name != "UNKNOWN") return name;
            continue;
        }
        const TypeRow * row = typetable::find(object->getType());
        if (row && row->graphics && row->graphics(object, CXString()) == wanted) return object->getName();
    }
    if (throughParents && parent_) return parent_->getGraphicsObjectName(wanted, true);
    return "UNKNOWN";
}
