#include "core/CHashtable.h"

#include "core/CStringHashCode.h"

#include <cstring>

CHashtable::CHashtable(int size, double loadFactor, bool ownKeys)
    : size_(std::max(size, 1)), loadFactor_(loadFactor), ownKeys_(ownKeys) {}

CHashtable::~CHashtable() { CHashtable::clear(); }

CHashtable::Entry CHashtable::entryFor(CXObject * key, CXObject * value) {
    if (const CStringHashCode * text = key->asStringKey()) {
        std::string_view view = text->view();
        return {view.data(), static_cast<unsigned>(view.size()), text->mixed(), key, value};
    }
    auto hash = static_cast<unsigned>(key->getHashcode()) * 0x9E3779B1U;
    return {nullptr, 0, hash ^ hash >> 16, key, value};
}

inline bool CHashtable::sameKey(const Entry & wanted, const Entry & stored) {
    if (wanted.hash != stored.hash) return false;
    if (!wanted.text || !stored.text)
        return wanted.key->getHashcode() == stored.key->getHashcode() && wanted.key->equals(stored.key);
    return wanted.length == stored.length && std::memcmp(wanted.text, stored.text, wanted.length) == 0;
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
    slots_.assign(slots, kFree);
    mask_ = static_cast<unsigned>(slots - 1);
    for (std::size_t i = 0; i < entries_.size(); i++) {
        unsigned slot = entries_[i].hash & mask_;
        while (slots_[slot] != kFree) slot = (slot + 1) & mask_;
        slots_[slot] = static_cast<int>(i);
    }
}

void CHashtable::grow() {
    entries_ = inBucketOrder();
    size_ *= 2;
    listed_ = false;
    index(entries_.size() * 2);
}

void CHashtable::put(CXObject * key, CXObject * value) {
    if (count_ + 1 > size_ * loadFactor_) grow();
    std::size_t wanted = static_cast<std::size_t>(count_) + 1;
    if (wanted * 2 > slots_.size() || entries_.size() > wanted * 2 + 64) index(wanted * 2);
    Entry entry = entryFor(key, value);
    unsigned slot = entry.hash & mask_;
    while (slots_[slot] != kFree) slot = (slot + 1) & mask_;
    slots_[slot] = static_cast<int>(entries_.size());
    entries_.push_back(entry);
    count_++;
    listed_ = false;
}

// The slot of the first entry with that key and, unless it is null, that value.
inline unsigned CHashtable::slotOf(const Entry & wanted, CXObject * value) const {
    if (slots_.empty()) return kNone;
    for (unsigned slot = wanted.hash & mask_; slots_[slot] != kFree; slot = (slot + 1) & mask_) {
        const Entry & stored = entries_[static_cast<std::size_t>(slots_[slot])];
        if (sameKey(wanted, stored) && (!value || stored.value == value)) return slot;
    }
    return kNone;
}

CXObject * CHashtable::get(CXObject * key) const {
    unsigned slot = slotOf(entryFor(key, nullptr), nullptr);
    return slot == kNone ? nullptr : entries_[static_cast<std::size_t>(slots_[slot])].value;
}

void CHashtable::takeOut(unsigned slot) {
    auto place = static_cast<std::size_t>(slots_[slot]);
    // The entries behind the gap move up, each no further than its own first slot.
    for (unsigned next = (slot + 1) & mask_; slots_[next] != kFree; next = (next + 1) & mask_) {
        unsigned home = entries_[static_cast<std::size_t>(slots_[next])].hash & mask_;
        if (((next - home) & mask_) >= ((next - slot) & mask_)) {
            slots_[slot] = slots_[next];
            slot = next;
        }
    }
    slots_[slot] = kFree;
    if (ownKeys_) delete entries_[place].key;
    entries_[place].key = nullptr;
    while (!entries_.empty() && !entries_.back().key) entries_.pop_back();
    count_--;
    listed_ = false;
}

bool CHashtable::remove(CXObject * key, CXObject * value) {
    unsigned slot = slotOf(entryFor(key, value), value);
    if (slot == kNone) return false;
    takeOut(slot);
    return true;
}

bool CHashtable::remove(CXObject * value) {
    const Entry * first = nullptr;
    for (const Entry & entry : entries_)
        if (entry.key && entry.value == value && (!first || bucket(entry.key) < bucket(first->key)))
            first = &entry;
    if (!first) return false;
    auto place = static_cast<int>(first - entries_.data());
    unsigned slot = first->hash & mask_;
    while (slots_[slot] != place) slot = (slot + 1) & mask_;
    takeOut(slot);
    return true;
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

CXVector * CHashtable::getElements() {
    if (!listed_) {
        elements_.removeAll();
        for (const Entry & entry : entries_)
            if (entry.key) elements_.add(entry.value);
        listed_ = true;
    }
    return &elements_;
}

void CHashtable::clear() {
    if (ownKeys_)
        for (const Entry & entry : entries_) delete entry.key;
    entries_.clear();
    slots_.clear();
    elements_.removeAll();
    listed_ = true;
    count_ = 0;
}

CXObject * CHashtable::clone() {
    auto * copy = new CHashtable(size_, loadFactor_, false);
    copy->entries_ = entries_;
    copy->slots_ = slots_;
    copy->mask_ = mask_;
    copy->count_ = count_;
    copy->listed_ = false;
    return copy;
}
