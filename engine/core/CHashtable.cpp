#include "core/CHashtable.h"

#include "core/CStringHashCode.h"

#include <climits>
#include <cmath>

namespace {

int limitOf(int size, double loadFactor) {
    return static_cast<int>(std::clamp(std::floor(size * loadFactor), 0.0, static_cast<double>(INT_MAX)));
}

} // namespace

CHashtable::CHashtable(int size, double loadFactor, bool ownKeys)
    : size_(std::max(size, 1)),
      limit_(limitOf(size_, loadFactor)),
      loadFactor_(loadFactor),
      ownKeys_(ownKeys) {}

CHashtable::~CHashtable() { CHashtable::clear(); }

TextMark CHashtable::markOf(CXObject * key) {
    if (const CStringHashCode * text = key->asStringKey()) return text->mark();
    return TextMark(static_cast<unsigned>(key->getHashcode()) * 0x9E3779B1U);
}

// Of keys with equal marks that don't tell all.
bool CHashtable::sameKey(CXObject * wanted, CXObject * stored) {
    if (!wanted->asStringKey() != !stored->asStringKey()) return false;
    return wanted->getHashcode() == stored->getHashcode() && wanted->equals(stored);
}

// The remainder is taken to a bucket of its own when a hash is negative.
int CHashtable::bucket(CXObject * key) const {
    int rest = key->getHashcode() % size_;
    return rest < 0 ? rest + size_ : rest;
}

std::vector<CHashtable::Entry> CHashtable::inBucketOrder() const {
    struct Placed {
        int bucket;
        Entry entry;
    };
    std::vector<Placed> placed;
    placed.reserve(static_cast<std::size_t>(count_));
    for (const Entry & entry : entries_)
        if (entry.key) placed.push_back({bucket(entry.key), entry});
    std::ranges::stable_sort(placed, {}, &Placed::bucket);
    std::vector<Entry> entries;
    entries.reserve(placed.size());
    for (const Placed & each : placed) entries.push_back(each.entry);
    return entries;
}

void CHashtable::index(std::size_t room) {
    std::erase_if(entries_, [](const Entry & entry) { return !entry.key; });
    std::size_t slots = 16;
    while (slots < room * 2) slots *= 2;
    slots_.assign(slots, {});
    mask_ = static_cast<unsigned>(slots - 1);
    for (std::size_t i = 0; i < entries_.size(); i++) enter(markOf(entries_[i].key), i);
}

inline void CHashtable::enter(const TextMark & mark, std::size_t place) {
    unsigned slot = home(mark.hash);
    while (slots_[slot].place != kFree) slot = (slot + 1) & mask_;
    slots_[slot] = {{mark.ends[0], mark.ends[1]}, mark.hash, static_cast<int>(place), entries_[place].value};
}

void CHashtable::grow() {
    entries_ = inBucketOrder();
    size_ *= 2;
    limit_ = limitOf(size_, loadFactor_);
    if (listed_) list();
    index(entries_.size() * 2);
}

void CHashtable::put(const TextMark & mark, CXObject * key, CXObject * value) {
    if (count_ >= limit_) grow();
    std::size_t wanted = static_cast<std::size_t>(count_) + 1;
    if (wanted * 3 > slots_.size() || entries_.size() > wanted * 2 + 64) index(wanted * 2);
    entries_.push_back({key, value});
    enter(mark, entries_.size() - 1);
    count_++;
    if (listed_) elements_.add(value);
}

CXObject * CHashtable::get(CXObject * key) const { return valueAt(find(markOf(key), key, nullptr)); }

// False when the slot is none.
bool CHashtable::takeOut(unsigned slot) {
    if (slot == kNone) return false;
    auto place = static_cast<std::size_t>(slots_[slot].place);
    // The entries behind the gap move up, each no further than its own first slot.
    for (unsigned next = (slot + 1) & mask_; slots_[next].place != kFree; next = (next + 1) & mask_) {
        if (((next - home(slots_[next].hash)) & mask_) >= ((next - slot) & mask_)) {
            slots_[slot] = slots_[next];
            slot = next;
        }
    }
    slots_[slot].place = kFree;
    if (listed_) elements_.remove(entries_[place].value);
    if (ownKeys_) delete entries_[place].key;
    entries_[place].key = nullptr;
    while (!entries_.empty() && !entries_.back().key) entries_.pop_back();
    count_--;
    return true;
}

bool CHashtable::remove(CXObject * key, CXObject * value) { return takeOut(find(markOf(key), key, value)); }

bool CHashtable::remove(CStringHashCode * key, CXObject * value) {
    return takeOut(find(key->mark(), key, value));
}

bool CHashtable::remove(CXObject * value) {
    const Entry *first = nullptr, *firstListed = nullptr;
    for (const Entry & entry : entries_) {
        if (!entry.key || entry.value != value) continue;
        if (!firstListed) firstListed = &entry;
        if (!first || bucket(entry.key) < bucket(first->key)) first = &entry;
    }
    if (!first) return false;
    // Of a value under several keys another place goes in the list than in the buckets.
    if (first != firstListed && !listed_) list();
    auto place = static_cast<int>(first - entries_.data());
    unsigned slot = home(markOf(first->key).hash);
    while (slots_[slot].place != place) slot = (slot + 1) & mask_;
    return takeOut(slot);
}

bool CHashtable::contains(CXObject * value) {
    return std::ranges::any_of(entries_, [value](const Entry & e) { return e.key && e.value == value; });
}

CXVector * CHashtable::getKeys() const {
    if (count_ == 0) return nullptr;
    auto * keys = new CXVector(count_, 0.75F);
    for (const Entry & entry : inBucketOrder()) keys->add(entry.key);
    return keys;
}

void CHashtable::list() {
    elements_.removeAll();
    for (const Entry & entry : entries_)
        if (entry.key) elements_.add(entry.value);
    listed_ = true;
}

CXVector * CHashtable::getElements() {
    if (!listed_) list();
    return &elements_;
}

void CHashtable::clear() {
    if (ownKeys_)
        for (const Entry & entry : entries_) delete entry.key;
    entries_.clear();
    slots_.clear();
    elements_.removeAll();
    count_ = 0;
}

CXObject * CHashtable::clone() {
    auto * copy = new CHashtable(size_, loadFactor_, false);
    copy->entries_ = entries_;
    copy->slots_ = slots_;
    copy->mask_ = mask_;
    copy->count_ = count_;
    copy->listed_ = listed_;
    copy->elements_.add(&elements_);
    return copy;
}
