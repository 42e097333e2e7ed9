#include "script/CMC_VariableFactory.h"

#include "files/CXArchive.h"
#include "script/Notes.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

template <class Value>
void ValuePool<Value>::make() {
    if (items_.empty()) grow();
    clear();
}

template <class Value>
Value * ValuePool<Value>::search() {
    std::size_t size = items_.size();
    for (std::size_t tries = 0; tries < size; tries++) {
        if (++cursor_ >= size) cursor_ = 0;
        if (!items_[cursor_]->isTaken()) return take();
    }
    notes::add(notes::Kind::poolGrown,
               "all " + std::to_string(size) + " temporary values of a type are in use; there are more now");
    grow();
    cursor_ = size;
    return take();
}

template <class Value>
void ValuePool<Value>::grow() {
    for (int i = 0; i < CMC_VariableFactory::kPoolSize; i++)
        items_.push_back(std::make_unique<Value>(CXString("f"), static_cast<int>(items_.size())));
}

template <class Value>
void ValuePool<Value>::clear() {
    if (!std::exchange(used_, false)) return;
    for (auto & each : items_) each->setTaken(false);
}

template <class Value>
int ValuePool<Value>::takenNo() const {
    return static_cast<int>(std::ranges::count_if(items_, [](auto & each) { return each->isTaken(); }));
}

template class ValuePool<CMC_Bool>;
template class ValuePool<CMC_Double>;
template class ValuePool<CMC_Integer>;
template class ValuePool<CMC_String>;

unsigned CMC_VariableFactory::clearings_ = 0;
ValuePool<CMC_Bool> CMC_VariableFactory::bools;
ValuePool<CMC_Double> CMC_VariableFactory::doubles;
ValuePool<CMC_Integer> CMC_VariableFactory::integers;
ValuePool<CMC_String> CMC_VariableFactory::strings;

CMC_Variable * CMC_VariableFactory::alloc(int type) {
    switch (type) {
    case types::kInteger: return integers.alloc();
    case types::kString: return strings.alloc();
    case types::kBool: return bools.alloc();
    case types::kDouble: return doubles.alloc();
    default: return nullptr;
    }
}

void CMC_VariableFactory::initialize() {
    bools.make();
    doubles.make();
    integers.make();
    strings.make();
}

void CMC_VariableFactory::done() {
    bools.drop();
    doubles.drop();
    integers.drop();
    strings.drop();
}

CMC_Variable * CMC_VariableFactory::copyVariable(CMC_Variable * value) {
    if (!value) return nullptr;
    switch (value->getType()) {
    case types::kInteger: return integer(value->asInteger());
    case types::kString: return string(value->asString());
    case types::kBool: return boolean(value->asBool());
    case types::kDouble: return real(value->asDouble());
    default: return nullptr;
    }
}

CMC_Variable * CMC_VariableFactory::restore(CXArchive * archive) {
    int type = 0;
    *archive >> type;
    CMC_Variable * entry = alloc(type);
    if (!entry) return nullptr;
    entry->restore(archive);
    if (!archive->failed()) return entry;
    free(entry);
    return nullptr;
}

CMC_Variable * CMC_VariableFactory::netrestore(const void * buffer, int size) {
    int type = 0;
    if (size < static_cast<int>(sizeof type)) return nullptr;
    std::memcpy(&type, buffer, sizeof type);
    CMC_Variable * entry = alloc(type);
    if (!entry) return nullptr;
    if (entry->netrestore(buffer, size)) return entry;
    free(entry);
    return nullptr;
}

void CMC_VariableFactory::clearPool() {
    clearings_++;
    bools.clear();
    doubles.clear();
    integers.clear();
    strings.clear();
}

int CMC_VariableFactory::takenNo() {
    return bools.takenNo() + doubles.takenNo() + integers.takenNo() + strings.takenNo();
}
