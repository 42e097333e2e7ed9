#pragma once

// The pools of temporary values: 500 of each type, all named "f", taken in rotation, so that a value that
// was just handed back stays readable until the rotation comes round. Statement results and conversions
// live here; nothing is allocated for them. Main thread.

#include "script/CMC_Bool.h"
#include "script/CMC_Double.h"
#include "script/CMC_Integer.h"
#include "script/CMC_String.h"

#include <memory>
#include <vector>

// One type's values, taken in rotation.
template <class Value>
class ValuePool {
public:
    void make(); // all are free
    void drop() { items_.clear(); }
    Value * alloc() {
        if (++cursor_ < items_.size() && !items_[cursor_]->isTaken()) return take();
        return search();
    }
    void clear();
    int takenNo() const;

private:
    Value * take() {
        items_[cursor_]->setTaken(true);
        used_ = true;
        return items_[cursor_].get();
    }
    Value * search(); // from behind the cursor on; an exhausted pool grows
    void grow();

    std::vector<std::unique_ptr<Value>> items_;
    std::size_t cursor_ = 0;
    bool used_ = false; // since the last clearing: an idle tick needn't look at each
};

class CMC_VariableFactory {
public:
    static constexpr int kPoolSize = 500; // of each type; an exhausted pool grows by as many, with a note

    static void initialize(); // before anything is loaded; again without done() frees all entries
    static void done();

    static CMC_Bool * allocBool() { return bools.alloc(); }
    static CMC_Double * allocDouble() { return doubles.alloc(); }
    static CMC_Integer * allocInteger() { return integers.alloc(); }
    static CMC_String * allocString() { return strings.alloc(); }

    // A free entry with that value.
    static CMC_Bool * boolean(bool value) { return with(bools.alloc(), value); }
    static CMC_Double * real(double value) { return with(doubles.alloc(), value); }
    static CMC_Integer * integer(int value) { return with(integers.alloc(), value); }
    static CMC_String * string(std::string_view value) { return with(strings.alloc(), value); }
    static CMC_String * string(const CXString & value) { return string(value.view()); }

    // Null and values outside the pools are fine.
    static void free(CMC_Variable * value) {
        if (value) value->setTaken(false);
    }
    static CMC_Variable * copyVariable(CMC_Variable * value); // null for null
    // A value from its form in an array's file or in a message; null when that holds none.
    static CMC_Variable * restore(CXArchive * archive);
    static CMC_Variable * netrestore(const void * buffer, int size);
    static void clearPool(); // all entries are free
    // How often that was: who keeps an entry over it has lost it.
    static unsigned clearings() { return clearings_; }
    static int takenNo(); // entries taken now, of all types

private:
    template <class Value, class Content>
    static Value * with(Value * entry, Content content) {
        entry->put(content);
        return entry;
    }
    static CMC_Variable * alloc(int type); // by the type's number; null for a type that is no value's

    static unsigned clearings_;
    static ValuePool<CMC_Bool> bools;
    static ValuePool<CMC_Double> doubles;
    static ValuePool<CMC_Integer> integers;
    static ValuePool<CMC_String> strings;
};

inline void CMC_Object::flush(CMC_Object * value, bool) {
    if (value && types::isValue(value->getType())) static_cast<CMC_Variable *>(value)->setTaken(false);
}
