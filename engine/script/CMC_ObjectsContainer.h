#pragma once

// A scope: the objects of a scene, an episode or an application by their names, and the scope to ask when a
// name isn't found. Owns its objects, but for scenes, episodes and applications. Main thread.

#include "script/CMC_Object.h"

class CConfig;
class CGraphicsObject;
class CMC_Groupped;
class CMElements;
class CStringHashCode;
class CWindow;

namespace names {
struct Record;
}

class CMC_ObjectsContainer : public CMC_Object {
public:
    static constexpr int kMostObjects = 500'000; // up to which a scope takes clones

    CMC_ObjectsContainer(CWindow * window, CMC_ObjectsContainer * parent, CMElement * element, int type);
    CMC_ObjectsContainer(CWindow * window, CMC_ObjectsContainer * parent, const CXString & name, int type);
    ~CMC_ObjectsContainer() override;

    // Out of the scope, not deleted; whether it was there.
    virtual bool removeObject(CMC_Object * object);
    // Into the scope, which owns it now. An object of the same name goes.
    virtual void addObject(CMC_Object * object);
    // Empties the group and fills it with all objects of a type, by the type's word.
    virtual void getObjects(const CXString & typeName, CMC_Groupped * group);
    virtual void onSubSceneDone(CMC_ObjectsContainer * scope); // tells every object, see onSceneDone
    virtual void unload();
    // The type that an add-on module makes from a definition word that the engine doesn't know; or null.
    virtual CMC_Object * resolveEx(CMElement *) { return nullptr; }

    int getElementsNo() const { return objects_->size; }
    CMC_Object * getObject(int i) { return static_cast<CMC_Object *>(objects_->at(i)); }
    // By name, through the scopes; "X_0" finds X too. Null when there is none.
    CMC_Object * getObject(const char * name) { return getObject(std::string_view(name)); }
    CMC_Object * getObject(const CXString & name) { return getObject(name.view()); }
    CMC_Object * getObject(std::string_view name);
    CMC_Object * getObject(const names::Record & name);
    CMC_Object * getOwnObject(std::string_view name) { return find(name); } // of this scope alone
    CMC_Variable * getVariable(const char * name) { return getVariable(std::string_view(name)); }
    CMC_Variable * getVariable(const CXString & name) { return getVariable(name.view()); }
    CMC_Variable * getVariable(std::string_view name); // only of the four value types
    int getObjectId(const CXString & name);            // position by name in this scope alone, -1 if absent
    CXVector * getObjectsOfType(int type);             // new vector, in the hash table's order
    CXVector * getObjects() { return objects_; }       // in order of creation
    CHashtable * getObjectsHash() { return objectsHash_; }
    // What an object shows, by "NAME" or "NAME!FRAME"; and the name that shows it, "UNKNOWN" for none.
    CGraphicsObject * getGraphicsObject(const CXString & text);
    CXString getGraphicsObjectName(CGraphicsObject * object, bool throughParents);

    // One object from an element, in a new vector, not in the scope; inline behaviours join the group.
    CXVector * resolve(CMElement * element, CMC_Groupped * group);
    // All objects of a file, in passes. The result, new and the caller's, holds the elements that became
    // none; the elements stay the list's.
    CXVector * resolveObjects(CMElements * elements);
    void setParent(CMC_ObjectsContainer * parent);
    CMC_ObjectsContainer * getParent() const { return parent_; }
    CWindow * getWindow() const { return window_; }
    CConfig * getConfig() const; // the application's settings file, or null

private:
    CMC_Object * find(std::string_view name);
    CMC_Object * getZeroth(std::string_view name);

    CStringHashCode * tempKey_; // one reused key for lookups
    CXVector * objects_;        // in order of creation
    CHashtable * objectsHash_;  // name to object
    CMC_ObjectsContainer * parent_;
    CWindow * window_;
};
