#include "core/CInteger.h"
#include "core/CMemStorage.h"
#include "core/CSortedVector.h"
#include "core/CStringArray.h"
#include "core/CXPair.h"
#include "core/CXTriple.h"
#include "core/Queues.h"
#include "script/CMC_String.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

// 100 numbers to stand in lists, told apart by address; read back as their values.
CInteger * number(int i) {
    static std::vector<std::unique_ptr<CInteger>> all;
    while (static_cast<int>(all.size()) <= i)
        all.push_back(std::make_unique<CInteger>(static_cast<int>(all.size())));
    return all[static_cast<std::size_t>(i)].get();
}

std::vector<int> values(CXVector & list) {
    std::vector<int> all;
    for (CXObject * each : list) all.push_back(static_cast<CInteger *>(each)->toInt());
    return all;
}
std::vector<int> values(CXArray & list) {
    std::vector<int> all;
    for (void * each : list) all.push_back(static_cast<CInteger *>(each)->toInt());
    return all;
}

using Values = std::vector<int>;

template <class List>
class Lists : public ::testing::Test {
public:
    static void fill(List & list, int count) {
        for (int i = 0; i < count; i++) list.add(number(i));
    }
};
using Kinds = ::testing::Types<CXArray, CXVector>;
TYPED_TEST_SUITE(Lists, Kinds);

TYPED_TEST(Lists, DoubleWhenTheSizePassesTheLoad) {
    struct {
        int capacity;
        float load;
        int size, grown;
    } rows[] = {{4, 0.75F, 3, 4},      {4, 0.75F, 4, 8},      {4, 0.75F, 6, 8},
                {4, 0.75F, 7, 16},     {4, 1.0F, 4, 4},       {4, 1.0F, 5, 8},
                {101, 0.75F, 75, 101}, {101, 0.75F, 76, 202}, {1, 0.75F, 1, 2}};
    for (auto & row : rows) {
        TypeParam list(row.capacity, row.load);
        TestFixture::fill(list, row.size);
        EXPECT_EQ(list.getCapacity(), row.grown) << row.capacity << " " << row.size;
        EXPECT_EQ(list.size, row.size);
        EXPECT_EQ(list.at(row.size - 1), number(row.size - 1));
    }
    TypeParam one(4, 0.75F), other(4, 0.75F);
    TestFixture::fill(one, 3);
    TestFixture::fill(other, 3);
    one.add(&other);
    EXPECT_EQ(one.getCapacity(), 8); // 6 fill 8 x 0.75 exactly
    EXPECT_EQ(values(one), (Values{0, 1, 2, 0, 1, 2}));
    one.add(&one);
    EXPECT_EQ(one.size, 12);
    EXPECT_EQ(one.getCapacity(), 16);
    EXPECT_EQ(one.at(11), number(2));
}

TYPED_TEST(Lists, ChangeInPlace) {
    TypeParam list(4, 0.75F);
    TestFixture::fill(list, 4);
    list.insertAt(0, number(9));
    list.insertAt(5, number(8));
    list.insertAt(2, number(7));
    list.insertAt(8, number(6)); // beyond the end
    list.insertAt(-1, number(6));
    EXPECT_EQ(values(list), (Values{9, 0, 7, 1, 2, 3, 8}));
    list.removeAt(1);
    list.removeAt(6);
    list.removeAt(-1);
    EXPECT_EQ(values(list), (Values{9, 7, 1, 2, 3, 8}));
    list.add(number(7));
    list.remove(number(7)); // the first of two
    list.remove(number(50));
    EXPECT_EQ(values(list), (Values{9, 1, 2, 3, 8, 7}));
    EXPECT_TRUE(list.replace(number(3), number(9)));
    EXPECT_FALSE(list.replace(number(3), number(1)));
    EXPECT_EQ(list.find(number(9)), 0);
    EXPECT_EQ(list.find(number(3)), -1);
    EXPECT_FALSE(list.contains(number(3)));
    EXPECT_EQ(list.setAt(3, number(4)), number(9));
    EXPECT_EQ(list.setAt(-1, number(4)), nullptr);
    EXPECT_EQ(values(list), (Values{9, 1, 2, 4, 8, 7}));
    std::unique_ptr<CXObject> clone(list.clone());
    auto & copy = static_cast<TypeParam &>(*clone);
    EXPECT_EQ(values(copy), values(list));
    EXPECT_EQ(copy.getCapacity(), list.getCapacity());
    int capacity = list.getCapacity();
    list.removeAll();
    EXPECT_EQ(list.size, 0);
    EXPECT_EQ(list.getCapacity(), capacity);
    EXPECT_EQ(copy.size, 6);
}

TEST(CXArray, SetsBehindItsSize) {
    CXArray list(4, 0.75F);
    list.add(number(1));
    EXPECT_EQ(list.setAt(3, number(3)), nullptr);
    EXPECT_EQ(list.getCapacity(), 4); // 3 fits under 4 x 0.75
    EXPECT_EQ(list.setAt(20, number(20)), nullptr);
    EXPECT_EQ(list.getCapacity(), 32);
    EXPECT_EQ(list.size, 1);
    EXPECT_EQ(list[3], number(3));
    EXPECT_EQ(list[20], number(20));
    EXPECT_EQ(list[19], nullptr);
    EXPECT_EQ(list.setAt(20, number(2)), number(20));
    EXPECT_EQ(list.setAt(0x7FFFFFFF, number(2)), nullptr); // refused, not allocated
    list.insertAt(1, number(2));                           // moves what stands behind the size too
    EXPECT_EQ(list.size, 2);
    EXPECT_EQ(list[4], number(3));
    EXPECT_EQ(list[21], number(2));
    EXPECT_EQ(list[20], nullptr);
    CXArray full(2, 1.0F);
    full.setAt(1, number(1));
    full.insertAt(0, number(0)); // the last place of the capacity falls off
    EXPECT_EQ(full.getCapacity(), 2);
    EXPECT_EQ(full[0], number(0));
    EXPECT_EQ(full[1], nullptr);
    CXString text("t");
    list.setAt(0, &text);
    EXPECT_EQ(list.stringAt(0), &text);
    EXPECT_EQ(list.stringAt(2), nullptr);
    EXPECT_EQ(list.stringAt(-1), nullptr);
}

TEST(CXArray, FindsTheTextsOfScriptValues) {
    CMC_String word{CXString("Wor\xA5"), CXString("NAME")}, empty{CXString(""), CXString("OTHER")};
    CXArray list(4, 0.75F);
    EXPECT_FALSE(list.containsString(""));
    list.add(&word);
    EXPECT_TRUE(list.containsString("wOR\xB9"));
    for (const char * absent : {"", "wor", "NAME", "Wor\xA5 "})
        EXPECT_FALSE(list.containsString(absent)) << absent;
    list.add(&empty);
    EXPECT_TRUE(list.containsString(""));
}

TEST(CXVector, SetsWithinItsSizeOnly) {
    CXVector list(4, 0.75F), other(101, 0.75F);
    list.add(number(1));
    list.add(number(2));
    EXPECT_EQ(list.setAt(2, number(3)), nullptr);
    EXPECT_EQ(values(list), (Values{1, 2}));
    for (int i = 0; i < 5; i++) other.add(number(9));
    list.copyInto(&other);
    EXPECT_EQ(values(other), (Values{1, 2}));
}

class Ranked : public CInteger {
public:
    Ranked(int rank, int name) : CInteger(name), rank_(rank) {}
    int compare(CXObject * other) override { return rank_ - static_cast<Ranked *>(other)->rank_; }

private:
    int rank_;
};

TEST(CSortedVector, KeepsEqualsInOrderOfArrival) {
    CSortedVector list(4);
    std::vector<std::unique_ptr<Ranked>> all;
    int name = 0;
    for (int rank : {5, 1, 5, 3, 1, 9, 0, 3}) list.add(all.emplace_back(new Ranked(rank, name++)).get());
    EXPECT_EQ(values(list), (Values{6, 1, 4, 3, 7, 0, 2, 5}));
    EXPECT_EQ(list.getCapacity(), 16);
}

TEST(Queues, FirstInAndLastIn) {
    CFifoQuene fifo;
    CLifoQuene lifo;
    CXFifoQuene objectFifo;
    CXLifoQuene objectLifo;
    EXPECT_EQ(objectFifo.pop(), nullptr);
    EXPECT_EQ(objectLifo.pop(), nullptr);
    for (int i = 0; i < 3; i++) {
        fifo.push(number(i));
        lifo.push(number(i));
        objectFifo.push(number(i));
        objectLifo.push(number(i));
    }
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(fifo.pop(), number(i));
        EXPECT_EQ(lifo.pop(), number(2 - i));
        EXPECT_EQ(objectFifo.pop(), number(i));
        EXPECT_EQ(objectLifo.pop(), number(2 - i));
    }
    EXPECT_EQ(fifo.size + lifo.size + objectFifo.size + objectLifo.size, 0);
    EXPECT_EQ(objectLifo.pop(), nullptr);
    EXPECT_EQ(objectLifo.size, 0);
}

TEST(CStringArray, UniqueGoesByNoCaseAndRemoveByCase) {
    CStringArray unique(true), all(false);
    for (const char * text : {"a", "A", "b", "a", "\xA5", "\xB9"}) {
        unique.add(text);
        all.add(text);
    }
    EXPECT_EQ(unique.getSize(), 3);
    EXPECT_EQ(all.getSize(), 6);
    EXPECT_TRUE(all.contains("B"));
    all.remove("B");
    EXPECT_EQ(all.getSize(), 6);
    all.remove(*all.stringAt(0)); // the argument goes too
    EXPECT_EQ(all.getSize(), 4);
    EXPECT_EQ(*all.stringAt(0), "A");
    all.removeAll();
    EXPECT_EQ(all.getSize(), 0);
    EXPECT_EQ(all.stringAt(0), nullptr);
}

TEST(CXPair, NamesAndClones) {
    int a = 0, b = 0;
    CXPair named(CXString("NaMe"), &a), pair(&a, &b);
    EXPECT_EQ(named.getName(), "name");
    EXPECT_EQ(named.getSecond(), &a);
    EXPECT_EQ(pair.getName(), "");
    std::unique_ptr<CXObject> clone(pair.clone());
    EXPECT_EQ(static_cast<CXPair &>(*clone).getName(), "cloned");
    EXPECT_EQ(static_cast<CXPair &>(*clone).getSecond(), &b);
    CXTriple triple(&a, &b, nullptr);
    triple.setThird(&a);
    clone.reset(triple.clone());
    EXPECT_EQ(static_cast<CXTriple &>(*clone).getSecond(), &b);
    EXPECT_EQ(static_cast<CXTriple &>(*clone).getThird(), &a);
}

TEST(CMemStorage, StartsAChunkWhenAPieceDoesNotFit) {
    CMemStorage storage(10);
    storage.put("abcdef", 6);
    storage.put("ghij", 4); // fills it
    storage.put("kl", 2);
    storage.put("012345678", 9);    // leaves room behind "kl"
    storage.put("01234567890", 11); // more than a chunk
    storage.put("x", -1);
    ASSERT_EQ(storage.getChunkCount(), 3);
    EXPECT_EQ(storage.getDataSize(0), 10);
    EXPECT_EQ(storage.getDataSize(1), 2);
    EXPECT_EQ(storage.getDataSize(2), 9);
    std::string all(static_cast<std::size_t>(storage.getTotalSize()), ' ');
    storage.copy(all.data());
    EXPECT_EQ(all, "abcdefghijkl012345678");
    CMemStorage usual(-1);
    std::string block(102400, 'x');
    usual.put(block.data(), 102400);
    EXPECT_EQ(usual.getTotalSize(), 102400);
    EXPECT_EQ(usual.getChunkCount(), 1);
}

} // namespace
