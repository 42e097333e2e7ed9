#include "core/CHashtable.h"

#include "core/CInteger.h"
#include "core/CStringHashCode.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

namespace {

std::atomic<std::size_t> allocations;

} // namespace

// Every allocation of this program is counted; the array forms come here too.
void * operator new(std::size_t bytes) {
    allocations++;
    void * memory = std::malloc(bytes ? bytes : 1);
    if (!memory) std::abort();
    return memory;
}
void * operator new(std::size_t bytes, const std::nothrow_t &) noexcept { return ::operator new(bytes); }
void operator delete(void * memory) noexcept { std::free(memory); }
void operator delete(void * memory, const std::nothrow_t &) noexcept { std::free(memory); }
void operator delete(void * memory, std::size_t) noexcept { std::free(memory); }

namespace {

// The classic table, one list of entries a bucket, written the plain way.
class PlainTable {
public:
    PlainTable(int size, double load) : buckets_(static_cast<std::size_t>(size)), load_(load) {}

    void put(CXObject * key, CXObject * value) {
        if (count_ + 1 > static_cast<double>(buckets_.size()) * load_) {
            auto old = std::move(buckets_);
            buckets_ = std::vector<Bucket>(old.size() * 2);
            values_.clear();
            count_ = 0;
            for (Bucket & bucket : old)
                for (auto & [k, v] : bucket) store(k, v);
        }
        store(key, value);
    }
    CXObject * get(CXObject * key) {
        for (auto & [k, v] : bucketOf(key))
            if (k->getHashcode() == key->getHashcode() && key->equals(k)) return v;
        return nullptr;
    }
    void remove(CXObject * value) {
        for (Bucket & bucket : buckets_)
            for (std::size_t i = 0; i < bucket.size(); i++)
                if (bucket[i].second == value) {
                    bucket.erase(bucket.begin() + static_cast<std::ptrdiff_t>(i));
                    values_.erase(std::find(values_.begin(), values_.end(), value));
                    count_--;
                    return;
                }
    }
    std::vector<CXObject *> keys() const {
        std::vector<CXObject *> all;
        for (const Bucket & bucket : buckets_)
            for (auto & entry : bucket) all.push_back(entry.first);
        return all;
    }
    const std::vector<CXObject *> & values() const { return values_; }
    int count() const { return count_; }
    int size() const { return static_cast<int>(buckets_.size()); }

private:
    using Bucket = std::vector<std::pair<CXObject *, CXObject *>>;

    Bucket & bucketOf(CXObject * key) {
        int size = static_cast<int>(buckets_.size());
        return buckets_[static_cast<std::size_t>((key->getHashcode() % size + size) % size)];
    }
    void store(CXObject * key, CXObject * value) {
        bucketOf(key).emplace_back(key, value);
        values_.push_back(value);
        count_++;
    }

    std::vector<Bucket> buckets_;
    double load_;
    int count_ = 0;
    std::vector<CXObject *> values_;
};

std::vector<CXObject *> listed(CXVector * list) { return {list->begin(), list->end()}; }

void expectSame(CHashtable & table, const PlainTable & plain) {
    ASSERT_EQ(table.getSize(), plain.count());
    ASSERT_EQ(table.getTableSize(), plain.size());
    ASSERT_EQ(listed(table.getElements()), plain.values());
    std::unique_ptr<CXVector> keys(table.getKeys());
    ASSERT_EQ(keys == nullptr, plain.count() == 0);
    if (keys) {
        ASSERT_EQ(listed(keys.get()), plain.keys());
    }
}

// Values are distinct; keys repeat, and most of them collide or have a negative hash.
void runAgainstPlain(unsigned seed, int size, double load,
                     const std::vector<std::unique_ptr<CXObject>> & keys) {
    std::mt19937 random(seed);
    CHashtable table(size, load, false);
    PlainTable plain(size, load);
    std::vector<std::unique_ptr<CInteger>> values;
    std::vector<CXObject *> inside;
    for (int step = 0; step < 400; step++) {
        CXObject * key = keys[random() % keys.size()].get();
        // First it fills, then it empties.
        if (inside.empty() || random() % 10 < (step < 200 ? 7U : 3U)) {
            values.push_back(std::make_unique<CInteger>(step));
            inside.push_back(values.back().get());
            table.put(key, inside.back());
            plain.put(key, inside.back());
        } else {
            auto victim = inside.begin() + static_cast<std::ptrdiff_t>(random() % inside.size());
            ASSERT_TRUE(table.remove(*victim));
            plain.remove(*victim);
            ASSERT_FALSE(table.contains(*victim));
            ASSERT_FALSE(table.remove(*victim));
            inside.erase(victim);
        }
        for (auto & each : keys)
            ASSERT_EQ(table.get(each.get()), plain.get(each.get())) << seed << " " << step;
        if (step % 16 == 0) expectSame(table, plain);
    }
    expectSame(table, plain);
}

TEST(CHashtable, BehavesAsThePlainTable) {
    std::vector<std::unique_ptr<CXObject>> texts, numbers;
    // "b\x01" and "`\x02": equal hashes; bytes above 127 make them negative.
    for (const char * name : {"", "A", "A", "b\x01", "`\x02", "^\x03", "\x80\x80\x80", "\x80\x80\x80",
                              "\xB9\xE6", "START", "STOP", "ONCLICK^A", "ONCLICK^B"})
        texts.push_back(std::make_unique<CStringHashCode>(name));
    for (int i = 0; i < 30; i++) texts.push_back(std::make_unique<CStringHashCode>("N" + std::to_string(i)));
    for (int i : {0, 1, 7, 8, 15, -1, -7, -8, 101, 101, 202, 2147483647, -2147483647 - 1})
        numbers.push_back(std::make_unique<CInteger>(i));
    ASSERT_EQ(texts[3]->getHashcode(), texts[4]->getHashcode());
    ASSERT_LT(texts[6]->getHashcode(), 0);
    for (unsigned seed = 1; seed <= 20; seed++) {
        runAgainstPlain(seed, 101, 0.75, texts);
        runAgainstPlain(seed, 11, 0.75, texts);
        runAgainstPlain(seed, 1, 1.0, texts);
        runAgainstPlain(seed, 7, 0.75, numbers);
    }
}

TEST(CHashtable, EqualKeysStayApartAndTheEarlierIsFound) {
    CStringHashCode one("KEY"), twin("KEY"), other("key");
    CInteger first(1), second(2);
    CHashtable table(101, 0.75, false);
    table.put(&one, &first);
    table.put(&twin, &second);
    EXPECT_EQ(table.getSize(), 2);
    EXPECT_EQ(table.get(&twin), &first);
    EXPECT_EQ(table.get(&other), nullptr); // by case
    EXPECT_FALSE(table.remove(&other, &first));
    EXPECT_TRUE(table.remove(&twin, &first));
    EXPECT_EQ(table.get(&one), &second);
}

// The entry of the first bucket goes; in the list of values the first of the equal places.
TEST(CHashtable, AValueUnderSeveralKeys) {
    struct {
        std::vector<int> keys; // their bucket is their remainder by 11
        const char *values, *left;
        int leftKey;                           // of the two keys for v
    } rows[] = {{{3, 5, 4}, "vwv", "wv", 4},   // bucket 3, first in the list too
                {{4, 5, 3}, "vwv", "wv", 4},   // bucket 3, last in the list: there the first place goes
                {{3, 5, 14}, "vwv", "wv", 14}, // both in one bucket
                {{-1, 2, 10}, "vwv", "wv", 10}};
    for (auto & row : rows)
        for (bool asked : {false, true}) {
            CInteger v(1), w(2);
            std::vector<std::unique_ptr<CInteger>> keys;
            CHashtable table(11, 0.75, false);
            CXVector * list = asked ? table.getElements() : nullptr;
            for (std::size_t i = 0; i < row.keys.size(); i++)
                table.put(keys.emplace_back(new CInteger(row.keys[i])).get(), row.values[i] == 'v' ? &v : &w);
            EXPECT_TRUE(table.remove(&v));
            if (!asked) list = table.getElements();
            std::string left;
            for (CXObject * each : *list) left += each == &v ? 'v' : 'w';
            EXPECT_EQ(left, row.left) << row.leftKey << asked;
            CInteger stays(row.leftKey);
            EXPECT_EQ(table.get(&stays), &v) << row.leftKey << asked;
            EXPECT_TRUE(table.contains(&v) && table.remove(&v));
            EXPECT_FALSE(table.contains(&v) || table.remove(&v));
            EXPECT_EQ(table.get(&stays), nullptr);
            EXPECT_EQ(list->size, 1); // the list follows
            EXPECT_EQ(list->at(0), &w);
        }
}

// A key that counts how many of it are alive.
class Counted : public CInteger {
public:
    explicit Counted(int value) : CInteger(value) { alive++; }
    ~Counted() override { alive--; }
    static int alive;
};
int Counted::alive = 0;

TEST(CHashtable, DeletesTheKeysThatItOwns) {
    CInteger value(0), another(1);
    {
        CHashtable table(11, 0.75, true);
        for (int i = 0; i < 50; i++) table.put(new Counted(i % 7), i == 3 ? &another : &value);
        EXPECT_EQ(Counted::alive, 50);
        table.remove(&another);
        EXPECT_EQ(Counted::alive, 49);
        std::unique_ptr<CXObject> copy(table.clone());
        auto & twin = static_cast<CHashtable &>(*copy);
        expectSame(twin, [&] {
            PlainTable plain(table.getTableSize(), 0.75);
            std::unique_ptr<CXVector> keys(twin.getKeys());
            for (CXObject * key : *keys) plain.put(key, &value);
            return plain;
        }());
        twin.clear(); // owns none
        copy.reset();
        EXPECT_EQ(Counted::alive, 49);
        table.clear();
        EXPECT_EQ(Counted::alive, 0);
        EXPECT_EQ(table.getSize(), 0);
        EXPECT_EQ(table.getElements()->size, 0);
        EXPECT_EQ(table.getKeys(), nullptr);
        table.put(new Counted(5), &value); // and can be filled again
        CInteger five(5);
        EXPECT_EQ(table.get(&five), &value);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(CHashtable, ALookupAllocatesNothing) {
    CHashtable table(101, 0.75, true);
    CInteger value(1);
    for (int i = 0; i < 60; i++) table.put(new CStringHashCode("NAME" + std::to_string(i)), &value);
    CStringHashCode key("NAME17"), missing("NOBODY");
    std::size_t before = allocations.load();
    CXObject * hit = table.get(&key);
    CXObject * miss = table.get(&missing);
    key.set("NAME59");
    CXObject * second = table.get(&key);
    std::size_t after = allocations.load();
    EXPECT_EQ(after, before);
    EXPECT_EQ(hit, &value);
    EXPECT_EQ(second, &value);
    EXPECT_EQ(miss, nullptr);
    std::unique_ptr<CInteger> counted(new CInteger(1));
    EXPECT_GT(allocations.load(), after); // the count counts
}

} // namespace
