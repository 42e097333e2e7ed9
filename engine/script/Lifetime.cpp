#include "script/Lifetime.h"

#include "core/CXArray.h"
#include "script/CMC_Object.h"

#include <utility>

namespace life {

constinit SlotTable generations;
int Guard::depth = 0;
bool Guard::waiting = false;

namespace {

constinit SlotTable freeSlots;
std::vector<CXObject *> graves;

// A list of strings that goes as one.
class Strings : public CXObject {
public:
    explicit Strings(CXArray * strings) : strings_(strings) {}
    ~Strings() override { CXString::releaseToVector(strings_); }

private:
    CXArray * strings_;
};

} // namespace

Slot::Slot() {
    if (freeSlots.numbers.empty()) {
        index_ = static_cast<std::uint32_t>(generations.numbers.size());
        generations.numbers.push_back(1);
    } else {
        index_ = freeSlots.numbers.back();
        freeSlots.numbers.pop_back();
    }
}

int livingNo() { return static_cast<int>(generations.numbers.size() - freeSlots.numbers.size()); }

void Slot::free() {
    constexpr std::uint32_t kNone = ~std::uint32_t{0};
    if (index_ == kNone) return;
    generations.numbers[index_]++;
    freeSlots.numbers.push_back(std::exchange(index_, kNone));
}

Handle::Handle(CMC_Object * object) : object_(object) {
    if (!object) return;
    slot_ = object->slot().index_;
    if (slot_ >= generations.numbers.size())
        object_ = nullptr; // already gone
    else
        generation_ = generations.numbers[slot_];
}

void Guard::release() {
    waiting = false;
    // A destructor may bury more, at once now.
    std::vector<CXObject *> now = std::exchange(graves, {});
    for (CXObject * each : now) delete each;
}

void bury(CXObject * object) {
    if (!object) return;
    if (Guard::depth == 0) {
        delete object;
        return;
    }
    graves.push_back(object);
    Guard::waiting = true;
}

void bury(CMC_Object * object) {
    if (!object) return;
    object->slot().free();
    bury(static_cast<CXObject *>(object));
}

void buryStrings(CXArray * strings) {
    if (strings) bury(new Strings(strings));
}

} // namespace life
