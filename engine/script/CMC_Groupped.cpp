#include "script/CMC_Groupped.h"

#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"
#include "script/Notes.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::int64_t kMostClones = 1 << 20; // looked up by one call

} // namespace

CMC_Groupped::CMC_Groupped(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kGroup) {
    initializeBehaviours(scope, element);
}

CMC_Groupped::CMC_Groupped(CMC_ObjectsContainer * scope, const CXString & name)
    : CMC_Object(name, types::kGroup) {
    scene_ = scope;
    initializeBehaviours(scope, nullptr);
}

CMC_Runner * CMC_Groupped::getRunner() { return CMC_RunnerFactory::getRunner(types::kGroup); }

const std::vector<life::Handle> & CMC_Groupped::living() {
    std::erase_if(members_, [](const life::Handle & member) { return !member.get(); });
    return members_;
}

void CMC_Groupped::add(CMC_Object * object) {
    if (object) members_.emplace_back(object);
}

void CMC_Groupped::remove(CMC_Object * object) {
    auto hit =
        std::ranges::find_if(members_, [&](const life::Handle & member) { return member.get() == object; });
    if (hit != members_.end()) members_.erase(hit);
}

void CMC_Groupped::addClones(CMC_ObjectsContainer * scope, const CXString & name, int from, int to) {
    if (std::int64_t{to} - from >= kMostClones) {
        notes::add(notes::Kind::other, "too many clones to look for");
        return;
    }
    CXString stem = name + "_";
    for (std::int64_t i = from; i <= to; i++)
        add(scope->getObject(stem + CXString::toString(static_cast<int>(i))));
}

CMC_Object * CMC_Groupped::get(int i) {
    return i >= 0 && i < getSize() ? members_[static_cast<std::size_t>(i)].get() : nullptr;
}

CMC_Object * CMC_Groupped::prev(int n) { return get(marker_.prev(n, getSize())); }

CMC_Object * CMC_Groupped::next(int n) { return get(marker_.next(n, getSize())); }

CXVector * CMC_Groupped::getList() {
    list_.removeAll();
    for (const life::Handle & member : living()) list_.add(member.get());
    return &list_;
}
