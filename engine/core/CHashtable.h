#pragma once

// Objects under keys, found by hash. Keys belong to the table when it is made so; values never do. put
// doesn't look for an equal key: of two, get finds the earlier one.
//
// Inside stands one list of entries in order of put with an index over it, empty until the first put, so
// that a table costs nothing before and a hit allocates nothing. What can be seen of the classic table with
// one bucket a hash is kept: its size, when it doubles, and the orders that follow from its buckets.

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

    void put(CXObject * key, CXObject * value);
    CXObject * get(CXObject * key) const; // null when there is none
    // Takes out the entry of this very value, in all buckets the first; false when there is none.
    bool remove(CXObject * value);
    // The same for an entry whose key is known: no search through the table.
    bool remove(CXObject * key, CXObject * value);
    bool contains(CXObject * value);
    // New vector of all keys in bucket order, in a bucket in order of put; null for an empty table.
    CXVector * getKeys() const;
    // All values in order of put (a doubling puts all again, in bucket order). The vector stays the table's;
    // each call brings it up to date.
    CXVector * getElements();
    int getSize() const { return count_; }
    int getTableSize() const { return size_; }
    // Empties the table. Owned keys are deleted; the rest is the owners' business.
    void clear();
    // The same entries; the copy owns no keys.
    CXObject * clone() override;

private:
    struct Entry {
        const char * text; // of a text key, else null
        unsigned length;
        unsigned hash;  // what the index goes by
        CXObject * key; // null in an entry that was taken out
        CXObject * value;
    };
    static constexpr int kFree = -1;

    static Entry entryFor(CXObject * key, CXObject * value);
    static bool sameKey(const Entry & wanted, const Entry & stored);
    int bucket(CXObject * key) const;
    std::vector<Entry> inBucketOrder() const;
    unsigned slotOf(const Entry & wanted, CXObject * value) const;
    void takeOut(unsigned slot);
    void grow();
    void index(std::size_t room);
    static constexpr unsigned kNone = ~0U;

    int size_;
    int count_ = 0;
    double loadFactor_;
    bool ownKeys_;
    bool listed_ = true; // elements_ is up to date
    std::vector<Entry> entries_;
    std::vector<int> slots_; // places in entries_, open addressing, a power of two, at most half full
    unsigned mask_ = 0;
    CXVector elements_{101, 0.75F};
};
