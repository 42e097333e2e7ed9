#pragma once

// Every script type by its definition word: in which pass of a file its objects are made, by whom, and what
// its elements and scripts may say. A new type is a row here.

#include "script/CMC_Object.h"

#include <span>
#include <string_view>

class CGraphicsObject;
class CPlayable;
struct MethodRow;

struct TypeRow {
    std::string_view word; // of the key TYPE
    int id;
    int pass; // of resolveObjects, from 1
    CMC_Object * (*make)(CMC_ObjectsContainer * scope, CMElement * element);
    std::span<const char * const> keys; // besides TYPE and the signals
    CMC_Object::SignalList signals;
    // The object of an outer scope that takes the element's bindings instead of a new object; or null.
    CMC_Object * (*mergesWith)(CMC_ObjectsContainer * scope, CMElement * element) = nullptr;
    // What the object shows; frame is the text behind "!" or empty.
    CGraphicsObject * (*graphics)(CMC_Object * object, const CXString & frame) = nullptr;
    // What of the object other objects play as a sound.
    CPlayable * (*sound)(CMC_Object * object) = nullptr;
    // An empty object of that name, for scripts that ask for one.
    CMC_Object * (*create)(CMC_ObjectsContainer * scope, const CXString & name) = nullptr;
};

namespace typetable {

inline constexpr int kFirstPass = 1, kLastPass = 6;
inline constexpr int kConditionsPass = 4; // behind it behaviours look up their conditions

const TypeRow * find(std::string_view word); // null for an unknown word
const TypeRow * find(int id);                // the first row of that type
std::span<const TypeRow> rows();

} // namespace typetable
