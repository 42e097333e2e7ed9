#pragma once

// Makes the pictures and playables that a sequence file names, by the TYPE of an element. The types come
// from the rooms that hold the classes: each adds its makers here.

class CMElement;
class CPlayable;
class CWindow;
class CXObject;

class CMElementCreator {
public:
    // A new object over the element's FILENAME, as visible as its VISIBLE says; null when it can't be made.
    using ObjectMaker = CXObject * (*)(CWindow * window, CMElement * element);
    using PlayableMaker = CPlayable * (*)(CWindow * window, CMElement * element);

    // New objects, which belong to the caller; null for an unknown type.
    static CXObject * createObject(CWindow * window, CMElement * element);
    static CPlayable * createPlayable(CWindow * window, CMElement * element);

    // type: a literal, compared exactly. A later maker of the same type replaces the one before it.
    static void addObject(const char * type, ObjectMaker make);
    static void addPlayable(const char * type, PlayableMaker make);
};
