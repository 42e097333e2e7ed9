#pragma once

// What a script can name: a name, a type, the scope it lives in, and the behaviours bound to its signals.
// Owned by its scope (or by a pool, or by the statement that made it). Main thread.

#include "core/CHashtable.h"
#include "core/CXArray.h"
#include "core/CXTriple.h"
#include "core/CXVector.h"
#include "script/Lifetime.h"
#include "script/Types.h"

#include <cstdint>
#include <span>

class CMC_Behaviour;
class CMC_Class;
class CMC_ObjectsContainer;
class CMC_Runner;
class CMC_Variable;
class CMElement;

class CMC_Object : public CXObject {
public:
    // The signals that a type knows: "ONINIT" and "ONDONE" first, since flags 0 and 1 are theirs.
    using SignalList = std::span<const char * const>;
    static constexpr int kOnInit = 0, kOnDone = 1;

    CMC_Object(const CXString & name, int type);
    CMC_Object(CMC_ObjectsContainer * scope, CMElement * element, int type);
    CMC_Object(const CMC_Object &) = delete;
    CMC_Object & operator=(const CMC_Object &) = delete;
    ~CMC_Object() override;

    CXString toString() override { return name_; }
    CMC_Object * clone() override { return nullptr; } // a new object of the type, or null; not in any scope

    virtual void init();
    virtual bool doneFirst() { return false; } // ended before the others of its scope
    virtual bool done(bool all);
    virtual void setScene(CMC_ObjectsContainer * scene) { scene_ = scene; }
    virtual CMC_ObjectsContainer * getScene() { return scene_; }
    CMC_ObjectsContainer * scene() const { return scene_; } // the same, in place
    virtual int getClonesNo() { return clonesNo_; }
    virtual int getCloneIdx();       // the number behind the last underscore of the name, or 0
    virtual CXString getCloneName(); // the next clone's: NAME_1, NAME_2, ...
    // Makes target, a new object of this type, a clone of this one in the same scope: it takes the next
    // name and all bindings but that of ONINIT. Null is passed over.
    virtual void clone(CMC_Object * target);
    virtual void clone(int count);
    virtual void resetClones() { clonesNo_ = 0; }
    virtual void flush() {}
    virtual int getBehaviourIndex(const CXString & text); // first signal that the text starts with, or -1
    virtual void initializeBehaviours(CMC_ObjectsContainer * scope, CMElement * element);
    virtual SignalList getBehavioursList() { return {}; } // static data of the type
    virtual CMC_Runner * getRunner() { return nullptr; }
    virtual bool verifyBehaviour(const CXString &) { return true; } // false refuses a binding
    // params: new list of new CXString or null; this object's from here on.
    virtual void addBehaviour(const CXString & signal, CMC_Behaviour * behaviour, CXArray * params,
                              CMC_ObjectsContainer * scope);
    virtual void removeBehaviour(const CXString & signal, CMC_ObjectsContainer * scope);
    virtual void removeBehaviourForce(const CXString & signal);
    virtual void removeAllBehaviours();
    virtual CXVector * getBehaviour(const CXString & signal); // of CXTriple, or null; stays this object's
    virtual CXTriple * getSingleBehaviour(const CXString & signal, int index);
    virtual CXVector * getTmpBehList() { return tmpBehList_; } // behaviours made from inline code, not owned
    virtual CMC_Class * getClass() { return classObject_; }
    virtual void setClass(CMC_Class * object) { classObject_ = object; }
    // Runs what is bound to exactly this text; whether anything was. Signals are synchronous: scripts run,
    // and objects may be gone afterwards.
    virtual bool onSignal(const CXString & signal, CXArray * args);
    virtual bool onSignal(const CXString & signal);
    virtual int _sizeof() { return static_cast<int>(sizeof(CMC_Object)); }
    virtual void onSceneDone(CMC_ObjectsContainer * scope); // forgets what that scope bound

    // Ours, for what later types add: a structure's field, a peer that takes a changed variable.
    virtual CMC_Variable * getField(const CXString &) { return nullptr; }
    virtual bool netSend(CMC_Variable *) { return false; }
    virtual bool isPlaying() { return false; } // of what plays

    const CXString & getName() const { return name_; }
    void setName(const CXString & name) { name_ = name; }
    int getType() const { return type_; }
    bool isClone() const { return isClone_; }
    bool isTemporary() const { return isTemporary_; }
    void setAsTemporary() { isTemporary_ = true; }
    void overideSignals(bool on) { overrideSignals_ = on; }
    int getSignalIndex(const CXString & signal) const; // without its qualifier, exactly; or -1
    bool isSignalBound(int index) const { return index >= 0 && (boundSignals_ & signalBit(index)) != 0; }
    bool isAnyBound(std::uint64_t bits) const { return (boundSignals_ & bits) != 0; }
    static constexpr std::uint64_t signalBit(int index) { return std::uint64_t{1} << index; }
    // Raises "SIGNAL^QUALIFIER", and when nothing is bound to that, "SIGNAL". The qualifier's text is only
    // made when some binding of this object has one.
    template <class Qualifier>
    bool onQualifiedSignal(const CXString & signal, Qualifier && qualifier) {
        if (qualified_ && onSignal(signal + "^" + qualifier())) return true;
        return onSignal(signal);
    }

    life::Slot & slot() { return slot_; }

    static CXString typeToString(int id) { return types::wordOf(id); }
    static int getTypeId(const CXString & word) { return types::idOf(word); }
    // Hands a pooled value back; null and named values are fine. Defined in CMC_VariableFactory.h.
    static inline void flush(CMC_Object * value, bool = false);

protected:
    void flushBehList(); // forgets signal names and flags
    // Runs what was bound first to exactly this text, and no other binding of it.
    void runFirstBinding(const CXString & signal);

    CXString name_;
    CMC_ObjectsContainer * scene_ = nullptr;

private:
    void drop(CXVector * bindings, CMC_ObjectsContainer * onlyOf);
    static void releaseBinding(CXTriple * binding);
    void releaseBindings();

    life::Slot slot_;
    bool isClone_ = false;
    bool isTemporary_ = false;
    bool overrideSignals_ = true;
    bool qualified_ = false; // some binding's text has a qualifier
    SignalList signalNames_;
    std::uint64_t boundSignals_ = 0; // a bit for each signal's place: something is bound
    std::uint32_t bindingChanges_ = 0;
    CHashtable * behaviours_ =
        nullptr;                      // signal text to CXVector of CXTriple (behaviour, params, scope); owned
    CXVector * tmpBehList_ = nullptr; // owned
    CMC_Class * classObject_ = nullptr;
    int clonesNo_ = 0;

protected:
    int type_; // last, beside what a value adds: of a pool's value nothing else is looked at
};
