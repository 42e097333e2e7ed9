#include "script/CMC_VariableFactory.h"

#include "files/CXArchive.h"
#include "script/Notes.h"

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

template <class Value>
class Pool {
public:
    void make() {
        if (items_.empty()) grow();
        clear();
    }
    void drop() {
        items_.clear();
        taken_.clear();
    }
    Value * alloc() {
        std::size_t size = items_.size();
        for (std::size_t tries = 0; tries < size; tries++) {
            if (++cursor_ >= size) cursor_ = 0;
            if (!taken_[cursor_]) return take(cursor_);
        }
        notes::add(notes::Kind::poolGrown, "all " + std::to_string(size) +
                                               " temporary values of a type are in use; there are more now");
        grow();
        return take(cursor_ = size);
    }
    void free(int i) {
        if (i >= 0 && static_cast<std::size_t>(i) < taken_.size()) taken_[static_cast<std::size_t>(i)] = 0;
    }
    void clear() { std::fill(taken_.begin(), taken_.end(), 0); }
    int takenNo() const { return static_cast<int>(std::count(taken_.begin(), taken_.end(), 1)); }

private:
    Value * take(std::size_t i) {
        taken_[i] = 1;
        return items_[i].get();
    }
    void grow() {
        for (int i = 0; i < CMC_VariableFactory::kPoolSize; i++)
            items_.push_back(std::make_unique<Value>(CXString("f"), static_cast<int>(items_.size())));
        taken_.resize(items_.size());
    }

    std::vector<std::unique_ptr<Value>> items_;
    std::vector<char> taken_;
    std::size_t cursor_ = 0;
};

Pool<CMC_Bool> bools;
Pool<CMC_Double> doubles;
Pool<CMC_Integer> integers;
Pool<CMC_String> strings;

// An entry by its type's number; null for a type that is no value's.
CMC_Variable * alloc(int type) {
    switch (type) {
    case types::kInteger: return integers.alloc();
    case types::kString: return strings.alloc();
    case types::kBool: return bools.alloc();
    case types::kDouble: return doubles.alloc();
    default: return nullptr;
    }
}

} // namespace

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

CMC_Bool * CMC_VariableFactory::allocBool() { return bools.alloc(); }
CMC_Double * CMC_VariableFactory::allocDouble() { return doubles.alloc(); }
CMC_Integer * CMC_VariableFactory::allocInteger() { return integers.alloc(); }
CMC_String * CMC_VariableFactory::allocString() { return strings.alloc(); }

CMC_Bool * CMC_VariableFactory::boolean(bool value) {
    CMC_Bool * entry = bools.alloc();
    entry->put(value);
    return entry;
}

CMC_Double * CMC_VariableFactory::real(double value) {
    CMC_Double * entry = doubles.alloc();
    entry->put(value);
    return entry;
}

CMC_Integer * CMC_VariableFactory::integer(int value) {
    CMC_Integer * entry = integers.alloc();
    entry->put(value);
    return entry;
}

CMC_String * CMC_VariableFactory::string(std::string_view value) {
    CMC_String * entry = strings.alloc();
    entry->put(value);
    return entry;
}

void CMC_VariableFactory::free(CMC_Variable * value) {
    if (!value || value->getId() < 0) return;
    switch (value->getType()) {
    case types::kInteger: integers.free(value->getId()); break;
    case types::kString: strings.free(value->getId()); break;
    case types::kBool: bools.free(value->getId()); break;
    case types::kDouble: doubles.free(value->getId()); break;
    default: break;
    }
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
    bools.clear();
    doubles.clear();
    integers.clear();
    strings.clear();
}

int CMC_VariableFactory::takenNo() {
    return bools.takenNo() + doubles.takenNo() + integers.takenNo() + strings.takenNo();
}
