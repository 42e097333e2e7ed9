#include "script/CMC_Array.h"

#include "core/CSortedVector.h"
#include "core/CXRandom.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Conversions.h"
#include "script/Notes.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

const char * const CMC_Array::kSignals[4] = {"ONINIT", "ONDONE", "ONSIGNAL", "ONCHANGED"};
const char * const CMC_Array::kKeys[1] = {"SENDONCHANGE"};

namespace {

constexpr const char * kItemName = "temp";
constexpr int kFirstMinimum = 1000000; // what an array without a smaller item answers

// A value given by a script, over an operation that raises signals. Handlers see and change a named one;
// a temporary one may be overwritten by what they do, so it is copied.
class Operand {
public:
    explicit Operand(CMC_Variable * value)
        : named_(value->getId() < 0 ? value : nullptr), copy_(CMC_VariableFactory::copyVariable(value)) {}
    ~Operand() { CMC_VariableFactory::free(copy_); }
    Operand(const Operand &) = delete;
    Operand & operator=(const Operand &) = delete;

    CMC_Variable * get() const {
        CMC_Object * living = named_.get();
        return living ? static_cast<CMC_Variable *>(living) : copy_;
    }

private:
    life::Handle named_;
    CMC_Variable * copy_;
};

void empty(CMC_Variable * item) {
    if (item->getType() == types::kString)
        static_cast<CMC_String *>(item)->put("NULL");
    else
        item->clear();
}

// Values of one type are in order whichever way they are compared; a number that is none spoils that.
bool ordered(const std::vector<std::unique_ptr<CMC_Variable>> & items) {
    return std::ranges::all_of(items, [&](const auto & item) {
        if (item->getType() != items.front()->getType()) return false;
        double number = item->getType() == types::kDouble ? item->asDouble() : 0.0;
        return number == number;
    });
}

} // namespace

CMC_Array::CMC_Array(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kArray),
      sendOnChange_(element->getPropertyBoolValue("SENDONCHANGE")) {
    initializeBehaviours(scope, element);
}

CMC_Array::CMC_Array(CMC_ObjectsContainer * scope, const CXString & name) : CMC_Object(name, types::kArray) {
    scene_ = scope;
    initializeBehaviours(scope, nullptr);
}

CMC_Runner * CMC_Array::getRunner() { return CMC_RunnerFactory::getRunner(types::kArray); }

CMC_Object * CMC_Array::clone() {
    auto * copy = new CMC_Array(getScene(), CXString());
    copy->sendOnChange_ = sendOnChange_;
    copy->items_.reserve(items_.size());
    for (const Item & item : items_) copy->items_.push_back(copyOf(item.get()));
    return copy;
}

CXString CMC_Array::toString() {
    CXString joined;
    for (const Item & item : items_) {
        if (&item != items_.data()) joined += ',';
        joined += item->toString();
    }
    return joined;
}

CMC_Array::Item CMC_Array::copyOf(CMC_Variable * value) {
    return Item(static_cast<CMC_Variable *>(value->clone()));
}

CMC_Array::Item CMC_Array::text(const CXString & value) {
    return std::make_unique<CMC_String>(value, CXString(kItemName));
}

void CMC_Array::note(std::string_view what) {
    std::string line(getName().view());
    line += ": ";
    line += what;
    notes::add(notes::Kind::other, line);
}

void CMC_Array::onChanged(int i) {
    if (!sendOnChange_ || !isSignalBound(kOnChanged)) return;
    onQualifiedSignal("ONCHANGED", [i] { return CXString::toString(i); });
}

// ------------------------------------------------------------------------------------------------- Items

bool CMC_Array::hasRoom() {
    if (getSize() < kMostItems) return true;
    note("the array is full, at " + std::to_string(kMostItems) + " items");
    return false;
}

bool CMC_Array::append(Item item) {
    if (!item) return true;
    if (!hasRoom()) return false;
    items_.push_back(std::move(item));
    onChanged(getSize() - 2); // the place before the new one: games count on it
    return true;
}

CMC_Variable * CMC_Array::get(int i) { return isInside(i) ? at(i).get() : nullptr; }

void CMC_Array::add(CMC_Variable * value) { append(copyOf(value)); }

void CMC_Array::addClones(const CXString & name, int from, int to) {
    life::Alive alive(this);
    CXString stem = name + "_";
    for (std::int64_t i = from; alive && i <= to; i++)
        if (!append(text(stem + CXString::toString(static_cast<int>(i))))) break;
}

void CMC_Array::insertAt(int i, CMC_Variable * value) {
    Item item = copyOf(value);
    if (!item || i < 0 || i > getSize() || !hasRoom()) return;
    items_.insert(items_.begin() + i, std::move(item));
    onChanged(i);
}

void CMC_Array::changeAt(int i, CMC_Variable * value) {
    Item item = copyOf(value);
    if (!item || !isInside(i)) return;
    at(i) = std::move(item);
    onChanged(i);
}

void CMC_Array::removeAt(int i) {
    if (isInside(i)) items_.erase(items_.begin() + i);
}

void CMC_Array::removeAll() { items_.clear(); }

void CMC_Array::remove(CMC_Variable * value) { removeAt(find(value)); }

bool CMC_Array::contains(CMC_Variable * value) { return find(value) >= 0; }

int CMC_Array::find(CMC_Variable * value) {
    for (int i = 0; i < getSize(); i++)
        if (at(i)->equals(value)) return i;
    return -1;
}

int CMC_Array::findAll(CMC_Variable * value, int * places) {
    int count = 0;
    for (int i = 0; i < getSize(); i++)
        if (at(i)->equals(value)) places[count++] = i;
    return count;
}

int CMC_Array::reversefind(CMC_Variable * value) {
    int i = getSize() - 1;
    while (i >= 0 && !at(i)->equals(value)) i--;
    return i;
}

bool CMC_Array::compareArr(CMC_Array * other) {
    if (getSize() != other->getSize()) return false;
    for (int i = 0; i < getSize(); i++)
        if (!at(i)->equals(other->get(i))) return false;
    return true;
}

CMC_Variable * CMC_Array::prev(int n) { return get(marker_.prev(n, getSize())); }

CMC_Variable * CMC_Array::next(int n) { return get(marker_.next(n, getSize())); }

void CMC_Array::copyTo(CMC_Array * other) {
    life::Alive alive(this), otherAlive(other);
    int count = getSize(); // the other one may be this one
    for (int i = 0; alive && otherAlive && i < count && isInside(i); i++)
        if (!other->append(copyOf(at(i).get()))) break;
}

void CMC_Array::addPlaces(const int * places, int count) {
    life::Alive alive(this);
    for (int i = 0; alive && i < count; i++) {
        auto item = std::make_unique<CMC_Integer>(CXString(kItemName));
        item->put(places[i]);
        if (!append(std::move(item))) break;
    }
}

void CMC_Array::fill(int count, CMC_Variable * value) {
    life::Alive alive(this);
    Item source = copyOf(value);
    removeAll();
    for (int i = 0; alive && source && i < count; i++)
        if (!append(copyOf(source.get()))) break;
}

void CMC_Array::randomFill(int from, int n, int count, bool unique) {
    removeAll();
    auto drawn = CXRandom::random_vector(from, n, count, unique);
    if (drawn.empty()) note("RANDOMFILL can't draw that many values");
    // The drawn values are shared with all who draw, and so with handlers.
    std::vector<int> values(drawn.begin(), drawn.end());
    addPlaces(values.data(), static_cast<int>(values.size()));
}

// ------------------------------------------------------------------------------------------------- Order

void CMC_Array::swap(int i, int j) {
    if (isInside(i) && isInside(j))
        std::swap(at(i), at(j));
    else
        note("SWAP of a place that isn't there");
}

void CMC_Array::sort(bool ascending) {
    if (items_.empty()) return;
    if (ordered(items_)) {
        std::ranges::stable_sort(items_,
                                 [](const Item & a, const Item & b) { return a->compare(b.get()) < 0; });
    } else {
        // Compared as the type of the one that stands there, so the way through the list counts.
        CSortedVector sorted(getSize());
        for (Item & item : items_) sorted.add(item.release());
        for (int i = 0; i < sorted.size; i++) at(i).reset(static_cast<CMC_Variable *>(sorted[i]));
    }
    if (!ascending) std::ranges::reverse(items_);
}

void CMC_Array::rotateLeft() {
    if (!items_.empty()) std::rotate(items_.begin(), items_.begin() + 1, items_.end());
}

void CMC_Array::rotateRight() {
    if (!items_.empty()) std::rotate(items_.begin(), items_.end() - 1, items_.end());
}

void CMC_Array::shiftLeft() {
    if (items_.empty()) return;
    rotateLeft();
    empty(items_.back().get());
    onChanged(getSize() - 1);
}

void CMC_Array::shiftRight() {
    if (items_.empty()) return;
    rotateRight();
    empty(items_.front().get());
    onChanged(0);
}

// -------------------------------------------------------------------------------------------- Arithmetic

void CMC_Array::combine(int i, CMC_Variable * value, int code) {
    CMC_Variable * item = get(i);
    if (!item) {
        note("no item at " + std::to_string(i));
        return;
    }
    CMC_Variable * combined = item->calculate(value, code);
    item->set(combined);
    flush(combined);
    onChanged(i);
}

void CMC_Array::combineAll(CMC_Variable * value, int code) {
    life::Alive alive(this);
    Operand operand(value);
    for (int i = 0; alive && i < getSize(); i++) combine(i, operand.get(), code);
}

void CMC_Array::combineWith(CMC_Array * other, int first, int last, int code) {
    life::Alive alive(this), otherAlive(other);
    for (std::int64_t i = std::max(first, 0); alive && otherAlive && i <= last; i++) {
        CMC_Variable * value = other->get(static_cast<int>(i));
        if (!value || i >= getSize()) break;
        combine(static_cast<int>(i), value, code);
    }
}

void CMC_Array::clampAt(int i, CMC_Variable * low, CMC_Variable * high) {
    CMC_Variable * item = get(i);
    if (!item) {
        note("no item at " + std::to_string(i));
    } else if (item->getType() == types::kInteger) {
        int value = item->asInteger(), least = low->asInteger(), most = high->asInteger();
        static_cast<CMC_Integer *>(item)->put(value < least ? least : value > most ? most : value);
    } else if (item->getType() == types::kDouble) {
        double value = item->asDouble(), least = low->asDouble(), most = high->asDouble();
        static_cast<CMC_Double *>(item)->put(value < least ? least : value > most ? most : value);
    }
}

int CMC_Array::min() {
    int least = kFirstMinimum;
    for (const Item & item : items_)
        if (item->getType() == types::kInteger) least = std::min(least, item->asInteger());
    return least;
}

int CMC_Array::max() {
    int most = 0;
    for (const Item & item : items_)
        if (item->getType() == types::kInteger) most = std::max(most, item->asInteger());
    return most;
}

double CMC_Array::minD() {
    double least = kFirstMinimum;
    for (const Item & item : items_)
        if (item->getType() == types::kDouble) least = std::min(least, item->asDouble());
    return least;
}

double CMC_Array::maxD() {
    double most = 0.0;
    for (const Item & item : items_) most = std::max(most, item->asDouble());
    return most;
}

int CMC_Array::getSumValue() {
    int sum = 0;
    for (const Item & item : items_)
        if (item->getType() == types::kInteger) sum = convert::add(sum, item->asInteger());
    return sum;
}
