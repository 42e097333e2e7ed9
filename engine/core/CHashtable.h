#pragma once

// Objects under keys, found by hash. Keys belong to the table when it is made so; values never do. put
// doesn't look for an equal key: of two, get finds the earlier one.
//
// Inside stands one list of entries in order of put with an index over it, empty until the first put, so
// that a table costs nothing before and a hit allocates nothing. What can be seen of the classic table with
// one bucket a hash is kept: its size, when it doubles, and the orders that follow from its buckets.

#include "core/CStringHashCode.h"
#include "core/CXVector.h"

#include <string_view>
#include <vector>

class CHashtable : public CXObject {
public:
    // size: buckets, at least 1; doubled when the entries would pass size x loadFactor.
    CHashtable(int size, double loadFactor, bool ownKeys);
    CHashtable(const CHashtable &) = delete;
    CHashtable & operator=(const CHashtable &) = delete;
    ~CHashtable() override;

    void put(CXObject * key, CXObject * value) { put(markOf(key), key, value); }
    void put(CStringHashCode * key, CXObject * value) { put(key->mark(), key, value); }
    CXObject * get(CXObject * key) const; // null when there is none
    CXObject * get(CStringHashCode * key) const;
    // Takes out the entry of this very value, in all buckets the first; false when there is none.
    bool remove(CXObject * value);
    // The same for an entry whose key is known: no search through the table.
    bool remove(CXObject * key, CXObject * value);
    bool remove(CStringHashCode * key, CXObject * value);
    bool contains(CXObject * value);
    // New vector of all keys in bucket order, in a bucket in order of put; null for an empty table.
    CXVector * getKeys() const;
    // All values in order of put (a doubling puts all again, in bucket order); removing one takes its first
    // place in the list. The vector stays the table's and follows its changes.
    CXVector * getElements();
    int getSize() const { return count_; }
    int getTableSize() const { return size_; }
    // Empties the table. Owned keys are deleted; the rest is the owners' business.
    void clear();
    // The same entries; the copy owns no keys.
    CXObject * clone() override;

private:
    struct Entry {
        CXObject * key; // null in an entry that was taken out
        CXObject * value;
    };
    static constexpr int kFree = -1;
    // All that a lookup reads of an entry, in half a cache line: the key's mark, the place in entries_.
    struct alignas(32) Slot {
        std::uint64_t ends[2] = {};
        unsigned hash = 0;
        int place = kFree;
        CXObject * value = nullptr;

        bool has(const TextMark & mark) const {
            return hash == mark.hash && ends[0] == mark.ends[0] && ends[1] == mark.ends[1];
        }
    };
    static constexpr unsigned kNone = ~0U;

    static TextMark markOf(CXObject * key);
    static bool sameKey(CXObject * wanted, CXObject * stored);
    unsigned home(unsigned hash) const { return hash >> 8 & mask_; } // the low byte is no hash
    int bucket(CXObject * key) const;
    std::vector<Entry> inBucketOrder() const;
    unsigned find(const TextMark & mark, CXObject * key, CXObject * value) const;
    CXObject * valueAt(unsigned slot) const { return slot == kNone ? nullptr : slots_[slot].value; }
    void put(const TextMark & mark, CXObject * key, CXObject * value);
    bool takeOut(unsigned slot);
    void enter(const TextMark & mark, std::size_t place);
    void list();
    void grow();
    void index(std::size_t room);

    int size_;
    int count_ = 0;
    int limit_; // entries that fit before the table doubles
    double loadFactor_;
    bool ownKeys_;
    bool listed_ = false; // elements_ was asked for: from then on it is kept up to date
    std::vector<Entry> entries_;
    std::vector<Slot> slots_; // open addressing, a power of two, at most a third full
    unsigned mask_ = 0;
    CXVector elements_{101, 0.75F};
};

// The slot of the first entry with that key and, unless it is null, that value.
inline unsigned CHashtable::find(const TextMark & mark, CXObject * key, CXObject * value) const {
    if (slots_.empty()) return kNone;
    for (unsigned slot = home(mark.hash); slots_[slot].place != kFree; slot = (slot + 1) & mask_) {
        const Slot & stored = slots_[slot];
        if (!stored.has(mark) || (value && stored.value != value)) continue;
        if (mark.tellsAll() || sameKey(key, entries_[static_cast<std::size_t>(stored.place)].key))
            return slot;
    }
    return kNone;
}

inline CXObject * CHashtable::get(CStringHashCode * key) const {
    return valueAt(find(key->mark(), key, nullptr));
}
