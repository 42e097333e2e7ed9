#include "script/CMC_Groupped_Runner.h"

#include "script/CMC_Groupped.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/Notes.h"

namespace {

CMC_Groupped & group(const Call & call) { return *call.self<CMC_Groupped>(); }

CMC_Variable * nameOrNull(CMC_Object * member) { return member ? result(member->getName()) : result("NULL"); }

CMC_Variable * add(Call & call) {
    for (int i = 0; i < call.count(); i++) group(call).add(call.named(i));
    return nullptr;
}

CMC_Variable * remove(Call & call) {
    for (int i = 0; i < call.count(); i++)
        if (CMC_Object * object = call.named(i)) group(call).remove(object);
    return nullptr;
}

CMC_Variable * removeAll(Call & call) {
    group(call).removeAll();
    return nullptr;
}

CMC_Variable * getSize(Call & call) { return result(group(call).getSize()); }

CMC_Variable * getName(Call & call) {
    return call.has(0) ? nameOrNull(group(call).get(call.integer(0))) : result(call.object->getName());
}

CMC_Variable * prev(Call & call) { return nameOrNull(group(call).prev(call.integer(0))); }

CMC_Variable * next(Call & call) { return nameOrNull(group(call).next(call.integer(0))); }

CMC_Variable * addClones(Call & call) {
    group(call).addClones(call.scope, call.text(0), call.integer(1), call.integer(2));
    return nullptr;
}

CMC_Variable * resetMarker(Call & call) {
    group(call).resetMarker();
    return nullptr;
}

CMC_Variable * getMarkerPos(Call & call) { return result(group(call).getMarkerPos()); }

CMC_Variable * setMarkerPos(Call & call) {
    group(call).setMarkerPos(call.integer(0));
    return nullptr;
}

CMC_Variable * clone(Call & call) {
    call.object->clone(call.integer(0, 1));
    return nullptr;
}

CMC_Variable * getCloneIndex(Call & call) { return result(call.object->getCloneIdx()); }

CMC_Variable * getNameAtMarker(Call & call) { return nameOrNull(group(call).getAtMarker()); }

constexpr MethodRow kRows[] = {
    {1, "ADD", "object name ...", 1, add},
    {2, "REMOVE", "object name ...", 1, remove},
    {3, "REMOVEALL", "", 0, removeAll},
    {4, "GETSIZE", "", 0, getSize},
    {5, "GETNAME", "index = the group itself", 0, getName},
    {6, "PREV", "places", 1, prev},
    {7, "NEXT", "places", 1, next},
    {8, "ADDCLONES", "name, first number, last number", 3, addClones},
    {9, "RESETMARKER", "", 0, resetMarker},
    {10, "GETMARKERPOS", "", 0, getMarkerPos},
    {11, "SETMARKERPOS", "index", 1, setMarkerPos},
    {12, "CLONE", "count = 1", 0, clone},
    {13, "GETCLONEINDEX", "", 0, getCloneIndex},
    {14, "GETNAMEATMARKER", "", 0, getNameAtMarker},
};

// The groups that a call is on its way through.
struct Way {
    static constexpr int kLongest = 100;

    CMC_Groupped * group;
    const Way * before;
    int length;

    bool holds(const CMC_Object * wanted) const {
        return group == wanted || (before && before->holds(wanted));
    }
};

void forward(const CXString & name, const Way & way, CMC_ObjectsContainer * scope, CXVector * params) {
    // A member's behaviour may remove other members, or the group.
    life::Guard guard;
    const std::vector<life::Handle> members = way.group->living();
    for (const life::Handle & each : members) {
        CMC_Object * member = each.get();
        if (!member) continue;
        if (member->getType() == types::kGroup) {
            if (way.holds(member) || way.length == Way::kLongest)
                notes::add(notes::Kind::tooDeep, std::string(member->getName().view()) +
                                                     " is a member of itself, or of too many groups");
            else
                forward(name, {static_cast<CMC_Groupped *>(member), &way, way.length + 1}, scope, params);
            continue;
        }
        CMC_Runner * runner = CMC_RunnerFactory::getRunner(member->getType());
        if (!runner) runner = member->getRunner();
        if (runner) CMC_Object::flush(runner->run(name, member, scope, params));
    }
}

} // namespace

CMC_Groupped_Runner::CMC_Groupped_Runner() : CMC_Runner(kRows) {}

CMC_Variable * CMC_Groupped_Runner::run(const CXString & name, CMC_Object * object,
                                        CMC_ObjectsContainer * scope, CXVector * params) {
    if (int id = resolveMethod(name); id != kUnknown) return run(id, object, scope, params);
    forward(name, {static_cast<CMC_Groupped *>(object), nullptr, 1}, scope, params);
    return nullptr;
}
