#include "script/CMElementCreator.h"

#include "script/CMElement.h"

#include <map>
#include <string_view>

namespace {

template <class Maker>
using Table = std::map<std::string_view, Maker>;

// Made at the first call, since rooms may add their rows before main.
Table<CMElementCreator::ObjectMaker> & objects() {
    static Table<CMElementCreator::ObjectMaker> table;
    return table;
}

Table<CMElementCreator::PlayableMaker> & playables() {
    static Table<CMElementCreator::PlayableMaker> table;
    return table;
}

template <class Maker>
auto create(const Table<Maker> & table, CWindow * window, CMElement * element) {
    CXString type = element->getPropertyValue("TYPE");
    auto row = table.find(type.view());
    return row == table.end() ? nullptr : row->second(window, element);
}

} // namespace

CXObject * CMElementCreator::createObject(CWindow * window, CMElement * element) {
    return create(objects(), window, element);
}

CPlayable * CMElementCreator::createPlayable(CWindow * window, CMElement * element) {
    return create(playables(), window, element);
}

void CMElementCreator::addObject(const char * type, ObjectMaker make) { objects()[type] = make; }

void CMElementCreator::addPlayable(const char * type, PlayableMaker make) { playables()[type] = make; }
