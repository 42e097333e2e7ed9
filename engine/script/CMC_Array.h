#pragma once

// ARRAY: values in order, owned by the array; what enters is copied. With SENDONCHANGE the array raises
// ONCHANGED, qualified with the place, at each change that its operations tell. A handler may change the
// array, or remove it, in the midst of an operation: that goes on with what is left. Owned by its scope.

#include "script/CMC_Variable.h"
#include "script/Marker.h"

#include <memory>
#include <string_view>
#include <vector>

class CConfig;
class CWindow;
class CXArchive;

class CMC_Array : public CMC_Object {
public:
    static constexpr int kMostItems = 1 << 20; // more are refused, with a note
    static constexpr int kOnChanged = 3;       // in kSignals
    static const char * const kSignals[4];
    static const char * const kKeys[1];

    CMC_Array(CMC_ObjectsContainer * scope, CMElement * element);
    CMC_Array(CMC_ObjectsContainer * scope, const CXString & name);

    CMC_Object * clone() override;
    CXString toString() override; // the items' texts with commas between
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;

    // Places outside are passed over. Items given out stay the array's.
    virtual CMC_Variable * get(int i); // null outside
    virtual void add(CMC_Variable * value);
    virtual void addClones(const CXString & name, int from, int to); // the texts NAME_from to NAME_to
    virtual void insertAt(int i, CMC_Variable * value);
    virtual void changeAt(int i, CMC_Variable * value);
    virtual void removeAt(int i);
    virtual void removeAll();
    virtual void remove(CMC_Variable * value); // the first equal item
    virtual bool contains(CMC_Variable * value);
    virtual int find(CMC_Variable * value);                  // -1 for none
    virtual int findAll(CMC_Variable * value, int * places); // the count; room for getSize() places
    virtual int reversefind(CMC_Variable * value);
    virtual void saveINI(); // under the scope's and the array's name
    virtual void loadINI(); // as STRING items
    virtual int getSize() { return static_cast<int>(items_.size()); }
    virtual CMC_Variable * prev(int n); // null when the walk leads to no item
    virtual CMC_Variable * next(int n);
    virtual void resetMarker() { marker_.reset(); }
    virtual int getMarkerPos() { return marker_.position(); }
    virtual void setMarkerPos(int i) { marker_.set(i, getSize()); }
    // Every item combined with the value.
    virtual void sum(CMC_Variable * value) { combineAll(value, op::kAdd); }
    virtual void sub(CMC_Variable * value) { combineAll(value, op::kSub); }
    virtual void mul(CMC_Variable * value) { combineAll(value, op::kMul); }
    virtual void div(CMC_Variable * value) { combineAll(value, op::kDiv); }
    // The items first to last with those of the same places of the other array.
    virtual void suma(CMC_Array * other, int first, int last) { combineWith(other, first, last, op::kAdd); }
    virtual void suba(CMC_Array * other, int first, int last) { combineWith(other, first, last, op::kSub); }
    virtual void mula(CMC_Array * other, int first, int last) { combineWith(other, first, last, op::kMul); }
    virtual void diva(CMC_Array * other, int first, int last) { combineWith(other, first, last, op::kDiv); }
    virtual void mulat(int i, CMC_Variable * value) { combine(i, value, op::kMul); }
    virtual void divat(int i, CMC_Variable * value) { combine(i, value, op::kDiv); }
    virtual void addat(int i, CMC_Variable * value) { combine(i, value, op::kAdd); }
    virtual void subat(int i, CMC_Variable * value) { combine(i, value, op::kSub); }
    virtual void modat(int i, CMC_Variable * value) { combine(i, value, op::kMod); }
    virtual void swap(int i, int j);
    virtual void sort(bool ascending);
    virtual void load(const CXString & fileName);
    virtual void save(const CXString & fileName);
    virtual bool compareArr(CMC_Array * other); // equal item by item

    void shiftLeft();   // the last place takes the empty value of the type that left the first one
    void shiftRight();  // mirrored
    void rotateLeft();  // the first item becomes the last
    void rotateRight(); // the last item becomes the first
    void clampAt(int i, CMC_Variable * low, CMC_Variable * high); // INTEGER and DOUBLE items
    void fill(int count, CMC_Variable * value);
    void randomFill(int from, int n, int count, bool unique); // as CXRandom::random_vector
    void dir(const CXString & path, const CXString & filter); // adds path + name for what a folder lists
    void copyTo(CMC_Array * other);                           // adds the items to it
    void addPlaces(const int * places, int count);            // adds INTEGER items

    // Over the INTEGER items (minD: the DOUBLE ones, maxD: all as DOUBLE), from the values that games know.
    int min();
    int max();
    double minD();
    double maxD();
    int getSumValue();

    void setSendOnChange(bool on) { sendOnChange_ = on; }
    bool isSendOnChange() const { return sendOnChange_; }

    // The form of its files: the count, then each value. A damaged one gives the items before the damage.
    void write(CXArchive & archive);
    void read(CXArchive & archive); // adds

private:
    using Item = std::unique_ptr<CMC_Variable>;

    static Item copyOf(CMC_Variable * value);
    static Item text(const CXString & value);
    bool isInside(int i) const { return i >= 0 && static_cast<std::size_t>(i) < items_.size(); }
    Item & at(int i) { return items_[static_cast<std::size_t>(i)]; }
    bool hasRoom();
    bool append(Item item); // false when there is no room
    void onChanged(int i);
    void combine(int i, CMC_Variable * value, int code);
    void combineAll(CMC_Variable * value, int code);
    void combineWith(CMC_Array * other, int first, int last, int code);
    CWindow * window();
    CConfig * settings();
    void note(std::string_view what);

    std::vector<Item> items_;
    Marker marker_;
    bool sendOnChange_ = false;
};
