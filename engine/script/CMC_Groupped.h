#pragma once

// GROUP: a list of objects that a script moves with one line. The objects aren't owned: what scripts remove
// meanwhile is no longer listed. Owned by its scope.

#include "script/CMC_Object.h"
#include "script/Marker.h"

#include <vector>

class CMC_Groupped : public CMC_Object {
public:
    static constexpr SignalList kSignals{};
    static constexpr SignalList kKeys{};

    CMC_Groupped(CMC_ObjectsContainer * scope, CMElement * element);
    CMC_Groupped(CMC_ObjectsContainer * scope, const CXString & name);

    CMC_Runner * getRunner() override;

    virtual CMC_Object * prev(int n); // null when the walk leads to no member
    virtual CMC_Object * next(int n);
    virtual void resetMarker() { marker_.reset(); }
    virtual int getMarkerPos() { return marker_.position(); }
    virtual void setMarkerPos(int i) { marker_.set(i, getSize()); }

    void add(CMC_Object * object); // at the end, again if it is there
    void remove(CMC_Object * object);
    void removeAll() { members_.clear(); }
    // The objects called NAME_from to NAME_to, as far as the scope finds them.
    void addClones(CMC_ObjectsContainer * scope, const CXString & name, int from, int to);
    int getSize() { return static_cast<int>(living().size()); }
    CMC_Object * get(int i); // null outside
    CMC_Object * getAtMarker() { return get(marker_.position()); }
    CXVector * getList();                       // this group's, as of now: changing it changes nothing
    const std::vector<life::Handle> & living(); // the same, for walks that run scripts: copy it

private:
    std::vector<life::Handle> members_;
    CXVector list_{101, 0.75F};
    Marker marker_;
};
