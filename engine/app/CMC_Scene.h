#pragma once

// A scene: a scope with a life cycle. Its object lasts as long as the game, its contents from initialize to
// unload. Episodes and the application are scenes too. Owned by the application. Main thread.

#include "script/CMC_ObjectsContainer.h"

#include <memory>
#include <utility>
#include <vector>

class CCollisionObserver;
class CGraphicsObject;
class CMC_Application;
class CMC_Array;
class CUnit6;

class CMC_Scene : public CMC_ObjectsContainer {
public:
    static const char * const kKeys[10];
    static const char * const kSignals[8];
    static constexpr int kOnRestart = 4; // in kSignals

    CMC_Scene(CWindow * window, CMC_ObjectsContainer * parent, CMElement * element, int type);
    ~CMC_Scene() override;

    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;
    // What isn't bound goes to the object "__SIGNAL__", if there is one.
    bool onSignal(const CXString & signal) override;
    using CMC_ObjectsContainer::onSignal;
    void unload() override { CMC_ObjectsContainer::unload(); }

    virtual void resolveDLLs(const CXString & list); // loads the modules that the definition asks for
    virtual void doneDLLs() {}
    virtual void saveStats() {} // no statistics are kept
    virtual bool isBinary() { return false; }
    using CMC_ObjectsContainer::getScene;
    virtual CMC_Scene * getScene(const CXString & name); // in the subtree of this one, itself included
    virtual CMC_Scene * getCurrentScene() { return current_; }
    virtual bool initialize(CMC_Scene * previous); // enters the scene
    virtual bool domodal();                        // carries out a pending change, goes down the tree
    virtual void startMusic(const char * file, bool force);
    virtual void stopMusic();
    virtual CXString getMusicFilename(); // its own, or the nearest outer scene's
    virtual bool shouldMusicBeStarted() { return startMusicFlag_; }
    virtual bool loadCnv(); // reads NAME.cnv of the current folder; false when it isn't there
    virtual CMC_Application * getMCApplication();
    virtual void restart();
    virtual void unload(CMC_Scene * next); // next: the scene that follows, null at the end
    virtual void leave() {} // this one is left for another at the same level: what lived for it goes
    virtual CMC_Scene * find(const CXString & name); // among the direct children
    virtual void _goto(CMC_Scene * target, CMC_Scene * from);
    virtual void _goto(const CXString & name); // in the next domodal; an unknown name clears what was pending
    virtual void getPlayingSeq(CMC_Array * names);
    virtual void getPlayingAnimo(CMC_Groupped * group);
    virtual void resumeExcept(CMC_Array * names);
    virtual void getRunningTimers(CMC_Groupped * group);
    virtual void createObject(const CXString & type, const CXString & name);
    // The window's inspector watches the object for the observer, until the scene is left. Nothing for one
    // that is watched already. Both must be taken off before they go.
    virtual void monitorCollisions(CGraphicsObject * object, bool alpha, CCollisionObserver * observer);
    virtual void removeMonitorCollisions(CGraphicsObject * object, CCollisionObserver * observer);
    virtual const CXString & getPath() { return path_; }
    virtual bool isDeamon() { return deamon_; }
    virtual void onInit(); // init() on each object, in order of creation

    const CXString & getDesc() const { return description_; }
    CUnit6 * getUnit() const { return unit_; }
    void setUnit(CUnit6 * unit) { unit_ = unit; }
    CXVector * getSubScenes() { return &subScenes_; }
    const CXString & getDraggedName() const { return draggedName_; }
    void setDraggedName(const CXString & name) { draggedName_ = name; }
    // Takes scenes, episodes and applications out of the scope, before any of them is deleted.
    void forgetScenes();

    static CUnit6 * getDefUnit() { return defUnit.get(); }
    static void doneDefUnit();
    static bool isScene(const CMC_Object * object);
    // The scope itself, or the nearest one around it that is a scene; null without one.
    static CMC_Scene * around(CMC_ObjectsContainer * scope);

protected:
    void runInit(); // "__INIT__", when there is one
    // Ends and deletes the objects, as unload does, with no ONDONE of its own; outer scopes forget what was
    // bound from here.
    void endScope();
    CMC_Scene * subScene(int i) { return static_cast<CMC_Scene *>(subScenes_.at(i)); }
    // A child by name from a list of the definition: set as parent of it, in the scope.
    void adopt(CMC_Scene * child);
    // The folder of this one's definition below a root, step by step: where a folder is missing the search
    // stays above it.
    void enterFolders(const CXString & root) const;

    CXString path_;
    CUnit6 * unit_ = nullptr; // the default unit while running
    CXVector subScenes_{101, 0.75F};
    CMC_Scene * current_ = nullptr;
    CMC_Scene * pending_ = nullptr;
    CXVector history_{101, 0.75F}; // children entered, in order

private:
    static std::unique_ptr<CUnit6> defUnit;

    CXString dlls_, description_, creationTime_, lastModifyTime_, author_, coAuthors_;
    CXString background_, music_;
    std::vector<std::pair<CGraphicsObject *, CCollisionObserver *>> monitored_; // not owned
    CXString draggedName_;
    CXString previousUnitName_; // the unit's before this scene took it
    bool startMusicFlag_ = false;
    bool deamon_ = false;
};
