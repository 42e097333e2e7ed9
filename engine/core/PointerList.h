#pragma once

// What CXArray and CXVector share: a growing list of pointers that it doesn't own. It doubles when its size
// passes capacity x load factor, counted in floating point, and never shrinks. Memory follows what is stored,
// not the capacity: every element of a definition has two lists, mostly of a few entries or none.

#include "core/CXObject.h"

#include <algorithm>
#include <cassert>

template <class Item>
class PointerList : public CXObject {
public:
    PointerList(int capacity, float loadFactor) : loadFactor_(loadFactor), capacity_(std::max(capacity, 1)) {}
    PointerList(const PointerList &) = delete;
    PointerList & operator=(const PointerList &) = delete;
    ~PointerList() override { delete[] items_; }

    virtual void doubleSize() { capacity_ *= 2; }
    virtual void add(Item * item) {
        if (size == capacity_) doubleSize(); // only with a load factor of 1 and above
        need(size + 1);
        items_[size++] = item;
        if (full(size)) doubleSize();
    }
    // The first slot that holds old takes fresh; whether there was one.
    virtual bool replace(Item * old, Item * fresh) {
        int i = find(old);
        if (i < 0) return false;
        items_[i] = fresh;
        return true;
    }
    // Takes out the first slot that holds this very pointer.
    virtual void remove(Item * item) { removeAt(find(item)); }
    // An index outside is ignored.
    virtual void removeAt(int i) {
        if (i < 0 || i >= size) return;
        std::copy(items_ + i + 1, items_ + size, items_ + i);
        size--;
    }
    virtual int find(Item * item) {
        Item ** end = items_ + size;
        Item ** hit = std::find(items_, end, item);
        return hit == end ? -1 : static_cast<int>(hit - items_);
    }
    virtual bool contains(Item * item) { return find(item) != -1; }
    virtual void removeAll() { size = 0; } // nothing is deleted or cleared
    // i lies within the capacity; behind the size stands what was left there.
    virtual Item * operator[](int i) {
        assert(i >= 0 && i < capacity_);
        return i < room_ ? items_[i] : nullptr;
    }
    Item * at(int i) { return operator[](i); }
    int getCapacity() const { return capacity_; }

    // For range-based loops that neither add nor remove.
    Item ** begin() { return items_; }
    Item ** end() { return items_ + size; }

    int size = 0;

protected:
    bool full(int count) const {
        return static_cast<float>(count) > static_cast<float>(capacity_) * loadFactor_;
    }
    void growFor(int count) {
        while (full(count) || count > capacity_) doubleSize();
    }
    // Memory for that many items, which lie within the capacity; new places are null.
    void need(int count) {
        if (count <= room_) return;
        int room = std::max(count, std::min(capacity_, std::max(room_ * 2, kLeastRoom)));
        auto ** fresh = new Item *[static_cast<std::size_t>(room)]();
        std::copy_n(items_, room_, fresh);
        delete[] items_;
        items_ = fresh;
        room_ = room;
    }
    void open(int i) { // a gap at i; it lies within the capacity
        need(size + 1);
        std::copy_backward(items_ + i, items_ + size, items_ + size + 1);
    }
    // The same, moving also what was set behind the size; what stood in the last place of the capacity goes.
    void openToTheEnd(int i) {
        need(size + 1);
        if (items_[room_ - 1] && room_ < capacity_) need(room_ + 1);
        std::copy_backward(items_ + i, items_ + room_ - 1, items_ + room_);
    }
    void append(PointerList & other) {
        int count = other.size; // other may be this list
        growFor(size + count);
        need(size + count);
        std::copy_n(other.items_, count, items_ + size);
        size += count;
    }

    float loadFactor_;
    int capacity_;
    Item ** items_ = nullptr; // owned

private:
    static constexpr int kLeastRoom = 8;

    int room_ = 0; // places at items_
};
