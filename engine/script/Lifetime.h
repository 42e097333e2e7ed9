#pragma once

// Scripts may remove what is just running: an object whose signal is being raised, a behaviour, the binding
// it was called by. What goes while a script runs is dead at once for everybody who looks, but its memory
// stays until the outermost run is over.

#include <cstdint>
#include <vector>

class CMC_Object;
class CXArray;
class CXObject;

namespace life {

// A pointer that knows when its object is gone. Objects and pools don't move.
class Handle {
public:
    Handle() = default;
    explicit Handle(CMC_Object * object);
    CMC_Object * get() const; // null once the object is gone, or for none

private:
    CMC_Object * object_ = nullptr;
    std::uint32_t slot_ = 0;
    std::uint32_t generation_ = 0;
};

// The place of an object in the table of the living; a member of each object.
class Slot {
public:
    Slot();
    ~Slot() { free(); }
    Slot(const Slot &) = delete;
    Slot & operator=(const Slot &) = delete;
    void free(); // the object counts as gone

private:
    friend class Handle;
    std::uint32_t index_;
};

// Holds the memory of what goes while it lives. Guards nest; the last one lets go.
class Guard {
public:
    Guard() { depth++; }
    ~Guard() {
        if (--depth == 0 && waiting) release();
    }
    Guard(const Guard &) = delete;
    Guard & operator=(const Guard &) = delete;

private:
    friend void bury(CXObject * object);
    static void release();
    static int depth;
    static bool waiting;
};

// Deletes the object, or marks it gone and deletes it when the last guard ends. Null is fine.
void bury(CXObject * object);
void bury(CMC_Object * object);
// The same for a list of parameters with its strings.
void buryStrings(CXArray * strings);

// How many objects there are that scripts could name, dead ones that wait for a guard not counted.
int livingNo();

// Static objects have slots too, so their tables are there before and after any of them.
union SlotTable {
    constexpr SlotTable() : numbers() {}
    // Never destroyed; a union with such a member has no destructor to default.
    ~SlotTable() {} // NOLINT(modernize-use-equals-default)
    std::vector<std::uint32_t> numbers;
};

// Generations of the slots; inside of Handle::get.
extern SlotTable generations;

inline CMC_Object * Handle::get() const {
    return object_ && generations.numbers[slot_] == generation_ ? object_ : nullptr;
}

// Holds an object's memory over an operation of its own that raises signals; false once a handler removed
// the object.
class Alive {
public:
    explicit Alive(CMC_Object * object) : handle_(object) {}
    explicit operator bool() const { return handle_.get() != nullptr; }

private:
    Guard guard_;
    Handle handle_;
};

} // namespace life
