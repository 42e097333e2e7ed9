#include "script/CMC_Array_Runner.h"

#include "core/Diagnostics.h"
#include "script/CMC_Array.h"
#include "script/CMC_ObjectsContainer.h"

namespace {

CMC_Array & array(const Call & call) { return *call.self<CMC_Array>(); }

CMC_Array * otherArray(const Call & call) { return call.named<CMC_Array>(0, types::kArray); }

// What a place outside the array gives.
CMC_Variable * nothing() { return result("NULL"); }

CMC_Variable * copyOrNothing(CMC_Variable * item) {
    return item ? CMC_VariableFactory::copyVariable(item) : nothing();
}

// The place to write to; people are told when there is none.
bool canSet(const Call & call, int i) {
    if (array(call).get(i)) return true;
    dispMsgBox(nullptr, CXString("Attempting to set element at index (out of bounds) ") +
                            CXString::toString(i) + " from array " + call.object->getName());
    return false;
}

template <void (CMC_Array::*method)()>
CMC_Variable * plain(Call & call) {
    (array(call).*method)();
    return nullptr;
}

template <auto method>
CMC_Variable * answer(Call & call) {
    return result((array(call).*method)());
}

template <void (CMC_Array::*method)(CMC_Variable *)>
CMC_Variable * withValue(Call & call) {
    if (CMC_Variable * value = call.value(0)) (array(call).*method)(value);
    return nullptr;
}

template <auto method>
CMC_Variable * answerToValue(Call & call) {
    CMC_Variable * value = call.value(0);
    return value ? result((array(call).*method)(value)) : nullptr;
}

template <void (CMC_Array::*method)(int, CMC_Variable *)>
CMC_Variable * at(Call & call) {
    int i = call.integer(0);
    if (CMC_Variable * value = call.value(1)) (array(call).*method)(i, value);
    return nullptr;
}

template <void (CMC_Array::*method)(CMC_Array *, int, int)>
CMC_Variable * withArray(Call & call) {
    CMC_Array * other = otherArray(call);
    int first = call.integer(1), last = call.integer(2);
    if (other) (array(call).*method)(other, first, last);
    return nullptr;
}

template <void (CMC_Array::*method)(const CXString &)>
CMC_Variable * withText(Call & call) {
    (array(call).*method)(call.text(0));
    return nullptr;
}

CMC_Variable * add(Call & call) {
    // A handler may run this very statement again, so all are taken before the first one enters.
    std::vector<std::unique_ptr<CMC_Object>> values;
    for (int i = 0; i < call.count(); i++)
        if (CMC_Variable * value = call.value(i)) values.emplace_back(value->clone());
    life::Alive alive(call.object);
    for (const auto & value : values)
        if (alive) array(call).add(static_cast<CMC_Variable *>(value.get()));
    return nullptr;
}

CMC_Variable * get(Call & call) {
    int i = call.integer(0);
    if (CMC_Variable * item = array(call).get(i)) return CMC_VariableFactory::copyVariable(item);
    dispMsgBox(nullptr, CXString("Attempting to access element at index ") + CXString::toString(i) +
                            " from array " + call.object->getName());
    return nothing();
}

CMC_Variable * insertAt(Call & call) {
    int i = call.integer(0);
    CMC_Variable * value = call.value(1);
    if (value && canSet(call, i)) array(call).insertAt(i, value);
    return nullptr;
}

CMC_Variable * changeAt(Call & call) {
    int i = call.integer(0);
    CMC_Variable * value = call.value(1);
    if (value && canSet(call, i)) array(call).changeAt(i, value);
    return nullptr;
}

CMC_Variable * removeAt(Call & call) {
    int i = call.integer(0);
    if (canSet(call, i)) array(call).removeAt(i);
    return nullptr;
}

CMC_Variable * findAll(Call & call) {
    CMC_Array * other = otherArray(call);
    CMC_Variable * value = call.value(1);
    if (!other || !value) return result(0);
    std::vector<int> places(static_cast<std::size_t>(array(call).getSize()));
    int count = array(call).findAll(value, places.data());
    other->addPlaces(places.data(), count);
    return result(count);
}

CMC_Variable * prev(Call & call) { return copyOrNothing(array(call).prev(call.integer(0))); }

CMC_Variable * next(Call & call) { return copyOrNothing(array(call).next(call.integer(0))); }

CMC_Variable * addClones(Call & call) {
    CXString name = call.text(0);
    int from = call.integer(1), to = call.integer(2);
    array(call).addClones(name, from, to);
    return nullptr;
}

CMC_Variable * setMarkerPos(Call & call) {
    array(call).setMarkerPos(call.integer(0));
    return nullptr;
}

CMC_Variable * sort(Call & call) {
    array(call).sort(call.boolean(0));
    return nullptr;
}

CMC_Variable * sortMany(Call &) { return nullptr; }

CMC_Variable * clampAt(Call & call) {
    int i = call.integer(0);
    CMC_Variable * low = call.value(1);
    CMC_Variable * high = call.value(2);
    if (low && high) array(call).clampAt(i, low, high);
    return nullptr;
}

CMC_Variable * dir(Call & call) {
    CXString path = call.text(0), filter = call.text(1);
    array(call).dir(path, filter);
    return nullptr;
}

CMC_Variable * compare(Call & call) {
    CMC_Array * other = otherArray(call);
    return other ? result(array(call).compareArr(other)) : nullptr;
}

CMC_Variable * copyTo(Call & call) {
    if (CMC_Array * other = otherArray(call)) array(call).copyTo(other);
    return nullptr;
}

CMC_Variable * swap(Call & call) {
    int i = call.integer(0), j = call.integer(1);
    array(call).swap(i, j);
    return nullptr;
}

CMC_Variable * sendOnChange(Call & call) {
    array(call).setSendOnChange(call.boolean(0));
    return nullptr;
}

CMC_Variable * fill(Call & call) {
    if (call.count() < 2) {
        dispMsgBox(nullptr, "Insuficient args in call to CMC_Array::fill");
        return nullptr;
    }
    int count = call.integer(0);
    if (CMC_Variable * value = call.value(1)) array(call).fill(count, value);
    return nullptr;
}

CMC_Variable * randomFill(Call & call) {
    int from = call.integer(0), n = call.integer(1), count = call.integer(2);
    bool unique = call.boolean(3);
    array(call).randomFill(from, n, count, unique);
    return nullptr;
}

using A = CMC_Array;

constexpr MethodRow kRows[] = {
    {1, "ADD", "value ...", 1, add},
    {2, "GETSIZE", "", 0, answer<&A::getSize>},
    {3, "INSERTAT", "index, value", 2, insertAt},
    {4, "REMOVEAT", "index", 1, removeAt},
    {5, "CHANGEAT", "index, value", 2, changeAt},
    {6, "REMOVEALL", "", 0, plain<&A::removeAll>},
    {7, "GET", "index", 1, get},
    {8, "REMOVE", "value", 1, withValue<&A::remove>},
    {9, "FIND", "value", 1, answerToValue<&A::find>},
    {10, "CONTAINS", "value", 1, answerToValue<&A::contains>},
    {11, "SAVEINI", "", 0, plain<&A::saveINI>},
    {12, "LOADINI", "", 0, plain<&A::loadINI>},
    {13, "PREV", "places", 1, prev},
    {14, "NEXT", "places", 1, next},
    {15, "ADDCLONES", "name, first number, last number", 3, addClones},
    {16, "RESETMARKER", "", 0, plain<&A::resetMarker>},
    {17, "GETMARKERPOS", "", 0, answer<&A::getMarkerPos>},
    {18, "SETMARKERPOS", "index", 1, setMarkerPos},
    {19, "SUM", "value", 1, withValue<&A::sum>},
    {20, "SUMA", "array name, first index, last index", 3, withArray<&A::suma>},
    {21, "SUB", "value", 1, withValue<&A::sub>},
    {22, "SUBA", "array name, first index, last index", 3, withArray<&A::suba>},
    {23, "MUL", "value", 1, withValue<&A::mul>},
    {24, "MULA", "array name, first index, last index", 3, withArray<&A::mula>},
    {25, "DIV", "value", 1, withValue<&A::div>},
    {32, "DIVA", "array name, first index, last index", 3, withArray<&A::diva>},
    {33, "MIN", "", 0, answer<&A::min>},
    {34, "MAX", "", 0, answer<&A::max>},
    {35, "GETSUMVALUE", "", 0, answer<&A::getSumValue>},
    {36, "SORT", "ascending", 1, sort},
    {37, "LOAD", "file name", 1, withText<&A::load>},
    {38, "SAVE", "file name", 1, withText<&A::save>},
    {39, "REVERSEFIND", "value", 1, answerToValue<&A::reversefind>},
    {40, "MULAT", "index, value", 2, at<&A::mulat>},
    {41, "DIVAT", "index, value", 2, at<&A::divat>},
    {42, "ADDAT", "index, value", 2, at<&A::addat>},
    {43, "SUBAT", "index, value", 2, at<&A::subat>},
    {44, "MODAT", "index, value", 2, at<&A::modat>},
    {45, "CLAMPAT", "index, low, high", 3, clampAt},
    {46, "DIR", "path, filter", 2, dir},
    {47, "COMPARE", "array name", 1, compare},
    {48, "SENDONCHANGE", "bool", 1, sendOnChange},
    {49, "SHIFTLEFT", "", 0, plain<&A::shiftLeft>},
    {50, "SHIFTRIGHT", "", 0, plain<&A::shiftRight>},
    {51, "ROTATELEFT", "", 0, plain<&A::rotateLeft>},
    {52, "ROTATERIGHT", "", 0, plain<&A::rotateRight>},
    {53, "SWAP", "index, index", 2, swap},
    {54, "FINDALL", "array name, value", 2, findAll},
    {55, "SORTMANY", "", 0, sortMany},
    {56, "MAXD", "", 0, answer<&A::maxD>},
    {57, "MIND", "", 0, answer<&A::minD>},
    {58, "COPYTO", "array name", 1, copyTo},
    {59, "FILL", "count, value", 0, fill},
    {60, "RANDOMFILL", "from, n, count, unique", 4, randomFill},
};

} // namespace

CMC_Array_Runner::CMC_Array_Runner() : CMC_Runner(kRows) {}
